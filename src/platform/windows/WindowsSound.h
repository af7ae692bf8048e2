#pragma once

#include "platform/Sound.h"

namespace tarvo {

/// Sound by way of the system's own call.
class WindowsSound : public Sound {
 public:
  WindowsSound() = default;
  WindowsSound(const WindowsSound&) = delete;
  WindowsSound& operator=(const WindowsSound&) = delete;

  /// Ends the sound.
  ~WindowsSound() override;

  void Play(TextView file, unsigned flags) override;
};

}  // namespace tarvo
