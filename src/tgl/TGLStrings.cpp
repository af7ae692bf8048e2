#include "tgl/TGLStrings.h"

#include <algorithm>
#include <string>
#include <utility>

#include "text/LetterCase.h"
#include "text/RaisedError.h"
#include "text/Utf8.h"
#include "tgl/Blanks.h"
#include "tgl/NameKeys.h"
#include "tgl/TGLFormat.h"

namespace tarvo {
namespace {

[[noreturn]] void NothingToRemove(const Text& where) {
  throw RaisedError(u"TGLStrings.Remove",
                    u"There is no TGL string " + where + u".  Remove failed.");
}

}  // namespace

TGLStrings::TGLStrings(FileText file, const std::vector<FilePlaces>& strings)
    : file_(std::move(file)) {
  order_.reserve(strings.size());
  index_.Reserve(strings.size());
  for (const FilePlaces& places : strings) {
    const FileTextView name = NameIn(file_, places[0]);
    if (name.find_first_not_of(' ') == FileTextView::npos) RefuseBlankName();
    const std::uint32_t hash = tarvo::HashOfKey(name);
    const auto isSame = [&](std::uint32_t slot) {
      return SameKey(name, NameIn(file_, slots_[slot].At[0]));
    };
    if (index_.Find(hash, isSame) != KeyIndex::kNone) continue;
    const auto slot = static_cast<std::uint32_t>(slots_.size());
    slots_.push_back({nullptr, {}, places});
    order_.push_back(slot);
    index_.Insert(hash, slot);
  }
}

void TGLStrings::RefuseBlankName() {
  throw RaisedError(u"TGLStrings.Add",
                    u"The TGL string's Name parameter cannot be blank.  Add failed.");
}

FileTextView TGLStrings::BytesInFile(const Slot& slot, std::size_t column) const {
  return StringBytes(file_, slot.At[column], kTGLColumns[column].Form);
}

Text TGLStrings::TextInFile(const Slot& slot, std::size_t column) const {
  return StringText(BytesInFile(slot, column), kTGLColumns[column].Form);
}

TGLStrings::Entry TGLStrings::Add(Text Name, Text Data, Text Media, std::optional<TextView> Key) {
  if (IsBlank(Name)) RefuseBlankName();
  if (IsBlank(Data)) Data = u" ";
  if (IsBlank(Media)) Media = Name + u".wav";
  if (Key && IsBlank(*Key)) {
    throw RaisedError(u"TGLStrings.Add",
                      u"The Key parameter may not be a blank string.  Add failed.");
  }
  const Text key = FoldCase(Key ? *Key : TextView(Name));
  auto entry =
      std::make_shared<TGLString>(TGLString{std::move(Name), std::move(Data), std::move(Media)});
  const std::uint32_t hash = tarvo::HashOfKey(key);
  const auto isSame = [&](std::uint32_t slot) { return HasKey(slot, key); };
  if (index_.Find(hash, isSame) != KeyIndex::kNone) return entry;
  const auto slot = static_cast<std::uint32_t>(slots_.size());
  slots_.push_back({entry, keys_.Keep(key), {}});
  order_.push_back(slot);
  index_.Insert(hash, slot);
  return entry;
}

void TGLStrings::Clear() {
  *this = TGLStrings();
}

TGLStrings::Entry TGLStrings::EntryOf(std::uint32_t slot) const {
  Slot& found = slots_[slot];
  if (!found.Object) {
    found.Object = std::make_shared<TGLString>();
    for (std::size_t i = 0; i < kTGLColumns.size(); ++i) {
      (*found.Object).*kTGLColumns[i].Field = TextInFile(found, i);
    }
  }
  return found.Object;
}

bool TGLStrings::HasKey(std::uint32_t slot, TextView foldedKey) const {
  const Slot& found = slots_[slot];
  if (!found.Key.empty()) return found.Key == foldedKey;
  const FileTextView name = NameIn(file_, found.At[0]);
  return std::equal(name.begin(), name.end(), foldedKey.begin(), foldedKey.end(),
                    [](char byte, char16_t unit) { return FoldedUnit(byte) == unit; });
}

std::uint32_t TGLStrings::HashOfKey(std::uint32_t slot) const {
  const Slot& found = slots_[slot];
  if (!found.Key.empty()) return tarvo::HashOfKey(found.Key);
  return tarvo::HashOfKey(NameIn(file_, found.At[0]));
}

TGLStrings::Entry TGLStrings::Lookup(TextView ID) const {
  const Text key = FoldCase(ID);
  const std::uint32_t slot =
      index_.Find(tarvo::HashOfKey(key), [&](std::uint32_t at) { return HasKey(at, key); });
  return slot == KeyIndex::kNone ? nullptr : EntryOf(slot);
}

TGLStrings::Entry TGLStrings::Item(std::int32_t Index) const {
  if (Index < 1 || Index > Count()) return nullptr;
  return EntryOf(order_[static_cast<std::size_t>(Index) - 1]);
}

void TGLStrings::Remove(std::int32_t Index) {
  if (Index < 1 || Index > Count()) {
    NothingToRemove(u"at the place " + TextFromUtf8(std::to_string(Index)));
  }
  RemoveAt(static_cast<std::size_t>(Index) - 1);
}

void TGLStrings::Remove(TextView Index) {
  const Text key = FoldCase(Index);
  const std::uint32_t slot =
      index_.Find(tarvo::HashOfKey(key), [&](std::uint32_t at) { return HasKey(at, key); });
  if (slot == KeyIndex::kNone) NothingToRemove(u"with the key '" + Text(Index) + u"'");
  // The order is that of the slots, as entries come in at the end alone.
  const auto place = std::lower_bound(order_.begin(), order_.end(), slot);
  RemoveAt(static_cast<std::size_t>(place - order_.begin()));
}

void TGLStrings::RemoveAt(std::size_t at) {
  const std::uint32_t slot = order_[at];
  index_.Erase(HashOfKey(slot), slot);
  slots_[slot].Object = nullptr;
  order_.erase(order_.begin() + static_cast<std::ptrdiff_t>(at));
}

}  // namespace tarvo
