#pragma once

#include <deque>
#include <functional>
#include <map>
#include <set>
#include <tuple>
#include <vector>

#include "platform/Clock.h"
#include "platform/Locale.h"
#include "platform/Registry.h"
#include "platform/Settings.h"
#include "platform/Sound.h"
#include "platform/Video.h"

namespace tarvo::test {

/// Keeps a record of the sounds, and plays none.
class RecordingSound : public Sound {
 public:
  struct Order {
    Text File;
    unsigned Flags;
    bool Heard;  ///< False where "no stop" met a sound that plays.

    friend bool operator==(const Order&, const Order&) = default;
  };

  void Play(TextView file, unsigned flags) override;

  std::vector<Order> Orders;
  std::function<void(const Order&)> OnPlay;
  bool Busy = false;  ///< A sound is playing. The test sets it; playing doesn't.
};

/// Keeps a record of the videos that are being opened. The test ends the work on them.
class RecordingVideo : public Video {
 public:
  struct Order {
    Text File;
    std::function<void(VideoPictures)> Opened;  ///< Does nothing once the opening has ended.
  };

  std::unique_ptr<VideoOpening> Open(TextView file, int width, int height,
                                     std::function<void(VideoPictures)> opened) override;

  std::vector<Order> Orders;
};

class FixedLocale : public Locale {
 public:
  Text ShortDate() override { return Date; }
  char16_t DecimalMark() override { return Mark; }

  Text Date = u"1/2/2003";
  char16_t Mark = u'.';
};

/// Gives the numbers of the script, then 0.
class ScriptedClock : public Clock {
 public:
  void Randomize() override { ++Randomized; }
  double Random() override;
  Text RunOfComputer() override { return Run; }
  void Pause(int milliseconds) override {
    Waited += milliseconds;
    if (OnPause) OnPause();
  }

  std::deque<double> Numbers;
  Text Run = u"first";
  int Randomized = 0;
  int Waited = 0;                 ///< Milliseconds.
  std::function<void()> OnPause;  ///< What others do meanwhile.
};

/// Letter case of names is ignored.
class MemorySettings : public Settings {
 public:
  Text Read(TextView application, TextView section, TextView key, TextView fallback) override;

  /// Throws PlatformError with FailingCode when that isn't 0, from the write after FailingAfter on.
  void Write(TextView application, TextView section, TextView key, TextView text) override;

  int FailingCode = 0;
  int FailingAfter = 0;

 private:
  std::map<std::tuple<Text, Text, Text>, Text> texts_;
};

/// Letter case of names is ignored. A key exists once it has a value, or is named unreadable.
class MemoryRegistry : public Registry {
 public:
  std::unique_ptr<RegistryKey> OpenKey(std::uint32_t root, TextView keyPath) override;

  void Set(TextView keyPath, TextView valueName, RegistryValue value);
  void SetText(TextView keyPath, TextView valueName, TextView text);

  /// The key is there, but can't be opened.
  void Lock(TextView keyPath);

  std::vector<Text> ProgramDrives() override { return Drives; }
  std::vector<Text> Drives;

  /// The value is there, but can't be read.
  void LockValue(TextView keyPath, TextView valueName);

 private:
  using Values = std::map<Text, RegistryValue>;

  std::map<Text, Values> keys_;
  std::set<Text> lockedKeys_;
  std::set<std::pair<Text, Text>> lockedValues_;
};

}  // namespace tarvo::test
