#pragma once

#include <string>

#include "platform/Files.h"
#include "platform/posix/Descriptor.h"

namespace tarvo {

/// A regular file of the host, open for reading alone.
class PosixFileReader : public FileReader {
 public:
  /// Throws PlatformError, with `path` as the name of the file, when it can't be opened.
  PosixFileReader(const std::string& hostPath, TextView path);

  std::uint64_t Size() const override { return size_; }
  std::size_t ReadAt(std::uint64_t position, std::span<char> block) override;

  int Handle() const { return file_.Get(); }

 private:
  Text path_;
  Descriptor file_;
  std::uint64_t size_ = 0;
};

}  // namespace tarvo
