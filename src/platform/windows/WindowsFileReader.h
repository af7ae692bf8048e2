#pragma once

#include <string>

#include "platform/Files.h"
#include "platform/windows/Handle.h"

namespace tarvo {

/// A file open for reading alone. Other programs may read, write and rename it meanwhile.
class WindowsFileReader : public FileReader {
 public:
  /// Throws PlatformError, with `path` as the name of the file.
  WindowsFileReader(const std::wstring& hostPath, TextView path);

  std::uint64_t Size() const override { return size_; }
  std::size_t ReadAt(std::uint64_t position, std::span<char> block) override;

 private:
  Text path_;
  Handle file_;
  std::uint64_t size_ = 0;
};

}  // namespace tarvo
