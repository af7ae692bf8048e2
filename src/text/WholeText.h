#pragma once

#include <utility>

#include "text/Text.h"

namespace tarvo {

/// The bytes of a file from its first to its last. What is to be written back is made of one, so
/// that a file which couldn't be read to its end is never cut short.
class WholeText {
 public:
  /// For bytes that are known to be all.
  explicit WholeText(FileText bytes) : bytes_(std::move(bytes)) {}

  const FileText& Bytes() const { return bytes_; }

 private:
  FileText bytes_;
};

}  // namespace tarvo
