#pragma once

#include <cstdint>

#include "state/Application.h"

namespace tarvo {

/// The progress bar that a read of a whole file drives: that of CurrentScreen, or none.
class ReadProgress {
 public:
  /// Raises an error when there is a bar and the file has no bytes: a bar refuses a maximum of 0.
  ReadProgress(Application& app, std::uint64_t fileLength);

  /// One chunk has been read. The bar moves on by ReadChunkSize - 1; false, with the bar as it was,
  /// when that is past its end, which only the last chunk can bring about.
  bool Advance();

 private:
  Application& app_;
  ProgressBar* bar_ = nullptr;
};

}  // namespace tarvo
