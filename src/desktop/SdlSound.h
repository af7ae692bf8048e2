#pragma once

#include <memory>

#include "platform/Sound.h"

namespace tarvo {

class Files;

/// Sound by way of SDL. Nothing is opened before the first sound plays, and then on a thread of
/// its own: a sound server that is slow, hangs or is missing costs the caller no time, but that a
/// call which waits for the end waits as long as the sound would last. After the sound device
/// turned out unusable all sounds are silence at once.
///
/// A sound that can't be played still ends the one before it, unless it says "no stop".
class SdlSound : public Sound {
 public:
  explicit SdlSound(Files& files);

  /// Ends the sound, and returns soon even where the sound server hangs.
  ~SdlSound() override;

  void Play(TextView file, unsigned flags) override;

 private:
  class Player;

  /// The bytes of a file; empty when it can't be read or is no sound of a reasonable size.
  FileText Read(TextView file);

  Files& files_;
  std::shared_ptr<Player> player_;  ///< Nothing before the first sound.
  Text last_;                       ///< The file of the last sound.
};

}  // namespace tarvo
