#pragma once

#include <string>

#include "platform/Files.h"
#include "platform/posix/Descriptor.h"

namespace tarvo {

/// A regular file of the host, open for reading alone.
class PosixFileReader : public FileReader {
 public:
  /// Opens a file; what comes back isn't open, and errno tells why, when that can't be.
  static Descriptor TryOpen(const std::string& hostPath);

  /// Reads a file that TryOpen has just opened. Throws PlatformError, with `path` as the name of
  /// the file, when it couldn't, or when it is no regular file.
  PosixFileReader(Descriptor file, TextView path);
  PosixFileReader(const std::string& hostPath, TextView path)
      : PosixFileReader(TryOpen(hostPath), path) {}

  std::uint64_t Size() const override { return size_; }
  std::size_t ReadAt(std::uint64_t position, std::span<char> block) override;

  int Handle() const { return file_.Get(); }

 private:
  Text path_;
  Descriptor file_;
  std::uint64_t size_ = 0;
};

}  // namespace tarvo
