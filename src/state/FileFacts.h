#pragma once

#include <functional>
#include <optional>
#include <unordered_map>
#include <utility>

#include "platform/Files.h"
#include "state/CommonUtilities.h"

namespace tarvo {

/// What a routine learns from the texts of files. A file is read once, and again only when its size
/// or its time of change is another one, or when it couldn't be read to its end, which is noted.
template <class Facts>
class FileFacts {
 public:
  using Learn = std::function<Facts(const FileText& text)>;

  /// Tells whether the beginning of a text shows all that is to be learnt.
  using Enough = std::function<bool(FileTextView head)>;

  /// With `enough` the rest of a file is read only where its beginning doesn't do.
  FileFacts(Application& app, Learn learn, Enough enough = nullptr)
      : app_(app), learn_(std::move(learn)), enough_(std::move(enough)) {}

  /// The facts of the file; those of an empty text where there is none. Valid until the next call.
  const Facts& Of(const Text& path) {
    const std::optional<FileStamp> stamp = app_.machine.files.Stamp(path);
    const auto [place, isNew] = learnt_.try_emplace(path);
    Learnt& learnt = place->second;
    if (isNew || learnt.stamp != stamp) {
      learnt.stamp = stamp;
      if (!LearnFromHead(path, learnt)) LearnFromAll(path, learnt);
    }
    return learnt.facts;
  }

 private:
  struct Learnt {
    std::optional<FileStamp> stamp;
    Facts facts{};
  };

  static constexpr std::size_t kHead = 4096;

  bool LearnFromHead(const Text& path, Learnt& learnt) {
    if (!enough_ || !learnt.stamp || learnt.stamp->Size <= kHead) return false;
    const FileText head = LookAtHead(app_, path, kHead);
    if (!enough_(head)) return false;
    learnt.facts = learn_(head);
    return true;
  }

  void LearnFromAll(const Text& path, Learnt& learnt) {
    const FileText text = LookAtFile(app_, path, learnt.stamp);
    learnt.facts = learn_(text);
    if (learnt.stamp && text.size() < learnt.stamp->Size) learnt.stamp.reset();
  }

  Application& app_;
  Learn learn_;
  Enough enough_;
  std::unordered_map<Text, Learnt> learnt_;
};

}  // namespace tarvo
