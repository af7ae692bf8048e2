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

  FileFacts(Application& app, Learn learn) : app_(app), learn_(std::move(learn)) {}

  /// The facts of the file; those of an empty text where there is none. Valid until the next call.
  const Facts& Of(const Text& path) {
    const std::optional<FileStamp> stamp = app_.machine.files.Stamp(path);
    const auto [place, isNew] = learnt_.try_emplace(path);
    Learnt& learnt = place->second;
    if (isNew || learnt.stamp != stamp) {
      learnt.stamp = stamp;
      const FileText text = LookAtFile(app_, path);
      learnt.facts = learn_(text);
      if (stamp && text.size() < stamp->Size) learnt.stamp.reset();
    }
    return learnt.facts;
  }

 private:
  struct Learnt {
    std::optional<FileStamp> stamp;
    Facts facts{};
  };

  Application& app_;
  Learn learn_;
  std::unordered_map<Text, Learnt> learnt_;
};

}  // namespace tarvo
