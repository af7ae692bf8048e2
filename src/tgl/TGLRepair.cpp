#include "tgl/TGLRepair.h"

#include <optional>
#include <utility>

#include "tgl/KeyIndex.h"
#include "tgl/NameKeys.h"
#include "tgl/TGLFormat.h"
#include "tgl/TGLStringHasher.h"

namespace tarvo {
namespace {

Text NameAt(const FileText& file, std::uint32_t at) {
  return StringText(NameIn(file, at), kTGLColumns[0].Form);
}

}  // namespace

TGLString TGLEntries::At(std::int32_t place) const {
  const Places& at = places_[static_cast<std::size_t>(place) - 1];
  TGLString string;
  for (std::size_t i = 0; i < kTGLColumns.size(); ++i) {
    const TGLColumn& column = kTGLColumns[i];
    string.*column.Field = StringText(StringBytes(file_, at[i], column.Form), column.Form);
  }
  return string;
}

/// Goes through the entries and keeps what can stand in one file. Entries are told by where their
/// names begin in the file.
class TGLRepair::Sieve {
 public:
  explicit Sieve(const TGLEntries& entries) : file_(entries.file_) {}

  /// Nothing for a name that stays.
  std::optional<Drop> Take(std::int32_t place, std::uint32_t at) {
    const FileTextView name = NameIn(file_, at);
    if (name.find_first_not_of(' ') == FileTextView::npos)
      return Drop{place, Reason::Blank, at, at};
    const auto hasKey = [&](std::uint32_t other) { return SameKey(NameIn(file_, other), name); };
    const std::uint32_t same = byKey_.Find(HashOfKey(name), hasKey);
    if (same != KeyIndex::kNone) {
      const Reason why = NameIn(file_, same) == name ? Reason::Again : Reason::OtherCase;
      return Drop{place, why, at, same};
    }
    const std::uint32_t hash = hasher_.HashNumber(NameAt(file_, at));
    const std::uint32_t earlier = byHash_.Find(hash, [](std::uint32_t) { return true; });
    if (earlier != KeyIndex::kNone) return Drop{place, Reason::SameHash, at, earlier};
    byKey_.Insert(HashOfKey(name), at);
    byHash_.Insert(hash, at);
    return std::nullopt;
  }

 private:
  const FileText& file_;
  TGLStringHasher hasher_;
  KeyIndex byKey_;
  KeyIndex byHash_;
};

TGLRepair::TGLRepair(TGLEntries entries) {
  std::size_t kept = 0;
  {
    Sieve sieve(entries);
    for (std::size_t i = 0; i < entries.places_.size(); ++i) {
      const TGLEntries::Places places = entries.places_[i];
      if (const auto drop = sieve.Take(static_cast<std::int32_t>(i + 1), places[0])) {
        dropped_.push_back(*drop);
      } else {
        entries.places_[kept++] = places;
      }
    }
  }
  entries.places_.resize(kept);
  strings_ = TGLStrings(std::move(entries.file_), entries.places_);
}

TGLRepair::Dropped TGLRepair::DroppedAt(std::size_t index) const {
  const Drop& drop = dropped_[index];
  const Text earlier = u"'" + NameAt(strings_.file_, drop.Earlier) + u"'";
  Dropped dropped{drop.Place, NameAt(strings_.file_, drop.Name), {}};
  switch (drop.Why) {
    case Reason::Blank:
      dropped.Why = u"its name is blank";
      break;
    case Reason::Again:
      dropped.Why = u"its name stands already";
      break;
    case Reason::OtherCase:
      dropped.Why = u"its name differs only in case from " + earlier;
      break;
    case Reason::SameHash:
      dropped.Why = u"its name has the same hash as " + earlier;
      break;
  }
  return dropped;
}

}  // namespace tarvo
