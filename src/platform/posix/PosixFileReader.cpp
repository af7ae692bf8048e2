#include "platform/posix/PosixFileReader.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <limits>

#include "platform/PlatformError.h"
#include "platform/posix/SystemCalls.h"

namespace tarvo {

/// Without O_NONBLOCK the opening of a pipe would wait for its writer.
Descriptor PosixFileReader::TryOpen(const std::string& hostPath) {
  return OpenDescriptor(hostPath, O_RDONLY | O_NONBLOCK);
}

PosixFileReader::PosixFileReader(Descriptor file, TextView path)
    : path_(path), file_(std::move(file)) {
  struct stat state;
  if (!file_.IsOpen() || fstat(file_.Get(), &state) != 0) {
    throw PlatformError(u"open", path_, errno);
  }
  if (S_ISDIR(state.st_mode)) throw PlatformError(u"open", path_, EISDIR);
  if (!S_ISREG(state.st_mode)) throw PlatformError(u"open", path_, EINVAL);
  size_ = static_cast<std::uint64_t>(state.st_size);
}

std::size_t PosixFileReader::ReadAt(std::uint64_t position, std::span<char> block) {
  constexpr auto kLast = static_cast<std::uint64_t>(std::numeric_limits<off_t>::max());
  std::size_t filled = 0;
  while (filled < block.size() && position + filled <= kLast) {
    const ssize_t count = pread(file_.Get(), block.data() + filled, block.size() - filled,
                                static_cast<off_t>(position + filled));
    if (count == 0) break;
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) throw PlatformError(u"read", path_, errno);
    filled += static_cast<std::size_t>(count);
  }
  return filled;
}

}  // namespace tarvo
