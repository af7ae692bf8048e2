#pragma once

#include <dirent.h>
#include <fcntl.h>

#include <cerrno>
#include <string>

#include "platform/posix/Descriptor.h"

namespace tarvo {

/// What all of our calls to the system have in common.

/// Makes a call that gives -1, or a null pointer, on failure, again for as long as it is only
/// interrupted by a signal.
template <class Call>
auto Uninterrupted(Call&& call) {
  while (true) {
    const auto answer = call();
    if (answer != decltype(answer)(-1) || errno != EINTR) return answer;
  }
}

/// Opens a file for this process alone; what comes back isn't open, with errno set, when it can't.
inline Descriptor OpenDescriptor(const std::string& hostPath, int flags, mode_t mode = 0) {
  return Descriptor(
      Uninterrupted([&] { return open(hostPath.c_str(), flags | O_CLOEXEC | O_NOCTTY, mode); }));
}

/// A folder that is being listed.
class OpenFolder {
 public:
  explicit OpenFolder(const std::string& hostPath) {
    do {
      stream_ = opendir(hostPath.c_str());
    } while (!stream_ && errno == EINTR);
  }
  OpenFolder(const OpenFolder&) = delete;
  OpenFolder& operator=(const OpenFolder&) = delete;
  ~OpenFolder() {
    if (stream_) closedir(stream_);
  }

  /// False, with errno set, when the folder can't be listed.
  bool IsOpen() const { return stream_ != nullptr; }

  /// The next entry in no order; null at the end, with errno 0, and after a failure, with its code.
  const dirent* Next() const {
    errno = 0;
    return readdir(stream_);
  }

  int Handle() const { return dirfd(stream_); }

 private:
  DIR* stream_ = nullptr;
};

}  // namespace tarvo
