#pragma once

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace tarvo {

/// Owns a file descriptor.
class Descriptor {
 public:
  explicit Descriptor(int descriptor = -1) : descriptor_(descriptor) {}
  Descriptor(Descriptor&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    return *this;
  }
  ~Descriptor() { Close(); }

  int Get() const { return descriptor_; }
  bool IsOpen() const { return descriptor_ >= 0; }

  /// Gives 0, or the code of the failure. The descriptor is closed either way.
  int Close() {
    const int descriptor = std::exchange(descriptor_, -1);
    if (descriptor < 0 || close(descriptor) == 0 || errno == EINTR) return 0;
    return errno;
  }

 private:
  int descriptor_;
};

}  // namespace tarvo
