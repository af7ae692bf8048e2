#include "platform/windows/WindowsSound.h"

#include <windows.h>
// Needs the header above.
#include <mmsystem.h>

#include "platform/windows/Wide.h"

namespace tarvo {

static_assert(kSoundFile == SND_FILENAME && kSoundAsync == SND_ASYNC && kSoundLoop == SND_LOOP &&
              kSoundNoStop == SND_NOSTOP);

WindowsSound::~WindowsSound() {
  PlaySoundW(nullptr, nullptr, 0);
}

void WindowsSound::Play(TextView file, unsigned flags) {
  // Without "no default" a missing file would give the system's own beep.
  PlaySoundW(Wide(file).c_str(), nullptr, flags | SND_NODEFAULT);
}

}  // namespace tarvo
