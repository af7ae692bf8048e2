#pragma once

#include <functional>
#include <optional>
#include <span>
#include <unordered_map>
#include <utility>

#include "platform/Files.h"
#include "state/CommonUtilities.h"

namespace tarvo {

/// What a routine learns from the texts of files. A file is read once, and again only when its size
/// or its time of change is another one.
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
  /// Throws PlatformError for a file that can't be looked at or read to its end: there are no facts
  /// then, and the next call tries again.
  const Facts& Of(const Text& path) {
    const std::optional<FileStamp> stamp = app_.machine.files.Stamp(path);
    const auto known = learnt_.find(path);
    if (known != learnt_.end() && known->second.stamp == stamp) return known->second.facts;
    Learnt learnt{stamp, stamp ? LearnFrom(path, *stamp) : learn_({})};
    return learnt_.insert_or_assign(path, std::move(learnt)).first->second.facts;
  }

  void Forget() { learnt_.clear(); }

 private:
  struct Learnt {
    std::optional<FileStamp> stamp;
    Facts facts{};
  };

  static constexpr std::size_t kHead = 4096;

  Facts LearnFrom(const Text& path, const FileStamp& stamp) {
    if (enough_ && stamp.Size > kHead) {
      FileText head(kHead, '\0');
      head.resize(app_.machine.files.Open(path)->ReadAt(0, std::span(head)));
      if (enough_(head)) return learn_(head);
    }
    return learn_(ReadFollowed(app_, path, stamp));
  }

  Application& app_;
  Learn learn_;
  Enough enough_;
  std::unordered_map<Text, Learnt> learnt_;
};

}  // namespace tarvo
