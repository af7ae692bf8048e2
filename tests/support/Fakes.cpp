#include "support/Fakes.h"

#include "platform/PlatformError.h"
#include "text/LetterCase.h"

namespace tarvo::test {
namespace {

class MemoryKey : public RegistryKey {
 public:
  MemoryKey(std::map<Text, RegistryValue> values, std::set<Text> locked)
      : values_(std::move(values)), locked_(std::move(locked)) {}

  std::optional<RegistryValue> Query(TextView valueName) override {
    const Text name = FoldCase(valueName);
    if (locked_.contains(name)) throw PlatformError(u"read", Text(valueName), kReadFault);
    const auto found = values_.find(name);
    return found == values_.end() ? std::nullopt : std::optional(found->second);
  }

 private:
  std::map<Text, RegistryValue> values_;
  std::set<Text> locked_;
};

std::tuple<Text, Text, Text> Place(TextView application, TextView section, TextView key) {
  return {FoldCase(application), FoldCase(section), FoldCase(key)};
}

}  // namespace

void RecordingSound::Play(TextView file, unsigned flags) {
  const bool isSilenced = Busy && (flags & kSoundNoStop) != 0;
  Orders.push_back({Text(file), flags, !isSilenced});
  if (OnPlay) OnPlay(Orders.back());
}

std::unique_ptr<VideoOpening> RecordingVideo::Open(TextView file, int, int,
                                                   std::function<void(VideoPictures)> opened) {
  struct Opening : VideoOpening {
    std::shared_ptr<bool> alive = std::make_shared<bool>(true);
  };
  auto opening = std::make_unique<Opening>();
  Orders.push_back({Text(file), [alive = std::weak_ptr(opening->alive), opened](auto pictures) {
                      if (!alive.expired()) opened(std::move(pictures));
                    }});
  return opening;
}

double ScriptedClock::Random() {
  if (Numbers.empty()) return 0;
  const double number = Numbers.front();
  Numbers.pop_front();
  return number;
}

Text MemorySettings::Read(TextView application, TextView section, TextView key, TextView fallback) {
  const auto found = texts_.find(Place(application, section, key));
  return found == texts_.end() ? Text(fallback) : found->second;
}

void MemorySettings::Write(TextView application, TextView section, TextView key, TextView text) {
  if (FailingCode != 0 && FailingAfter-- <= 0)
    throw PlatformError(u"write", u"settings", FailingCode);
  texts_.insert_or_assign(Place(application, section, key), Text(text));
}

std::unique_ptr<RegistryKey> MemoryRegistry::OpenKey(std::uint32_t root, TextView keyPath) {
  const Text path = FoldCase(keyPath);
  if (lockedKeys_.contains(path)) throw PlatformError(u"open", Text(keyPath), kAccessDenied);
  const auto found = keys_.find(path);
  if (root != kLocalMachine || found == keys_.end()) {
    throw PlatformError(u"open", Text(keyPath), kNoSuchFile);
  }
  std::set<Text> locked;
  for (const auto& [key, value] : lockedValues_) {
    if (key == path) locked.insert(value);
  }
  return std::make_unique<MemoryKey>(found->second, std::move(locked));
}

void MemoryRegistry::Set(TextView keyPath, TextView valueName, RegistryValue value) {
  keys_[FoldCase(keyPath)].insert_or_assign(FoldCase(valueName), std::move(value));
}

void MemoryRegistry::SetText(TextView keyPath, TextView valueName, TextView text) {
  Set(keyPath, valueName, {kRegistryString, Text(text), {}});
}

void MemoryRegistry::Lock(TextView keyPath) {
  lockedKeys_.insert(FoldCase(keyPath));
}

void MemoryRegistry::LockValue(TextView keyPath, TextView valueName) {
  keys_[FoldCase(keyPath)];
  lockedValues_.emplace(FoldCase(keyPath), FoldCase(valueName));
}

}  // namespace tarvo::test
