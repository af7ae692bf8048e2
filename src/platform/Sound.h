#pragma once

#include "text/Text.h"

namespace tarvo {

/// The flags of a sound; their values are those of the Windows call PlaySound.
enum SoundFlags : unsigned {
  kSoundFile = 0x20000,  ///< The sound is a file: always set.
  kSoundAsync = 0x1,     ///< Return at once. Without it the call waits for the sound's end.
  kSoundLoop = 0x8,      ///< Repeat until the next sound replaces it. Comes with async.
  kSoundNoStop = 0x10,   ///< Stay silent when a sound is playing, a loop included.
};

/// The five sums of flags that the program uses.
constexpr unsigned kPlayToEnd = kSoundFile;
constexpr unsigned kPlay = kSoundFile | kSoundAsync;
constexpr unsigned kPlayLoop = kSoundFile | kSoundAsync | kSoundLoop;
constexpr unsigned kPlayUnlessBusy = kSoundFile | kSoundAsync | kSoundNoStop;
constexpr unsigned kPlayToEndUnlessBusy = kSoundFile | kSoundNoStop;

/// One sound at a time: a new one ends the one that plays, unless it says "no stop".
class Sound {
 public:
  virtual ~Sound() = default;

  /// Plays a wave file, named by its game path, with one of the five sums above. A file that is
  /// missing or can't be played, or a machine without sound, gives silence. Never throws.
  virtual void Play(TextView file, unsigned flags) = 0;
};

}  // namespace tarvo
