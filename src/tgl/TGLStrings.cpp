#include "tgl/TGLStrings.h"

#include <algorithm>
#include <string>
#include <utility>

#include "text/LetterCase.h"
#include "text/RaisedError.h"
#include "text/Utf8.h"
#include "tgl/Blanks.h"

namespace tarvo {

TGLStrings::Entry TGLStrings::Add(Text Name, Text Data, Text Media, std::optional<TextView> Key) {
  if (IsBlank(Name)) {
    throw RaisedError(u"TGLStrings.Add",
                      u"The TGL string's Name parameter cannot be blank.  Add failed.");
  }
  if (IsBlank(Data)) Data = u" ";
  if (IsBlank(Media)) Media = Name + u".wav";
  if (Key && IsBlank(*Key)) {
    throw RaisedError(u"TGLStrings.Add",
                      u"The Key parameter may not be a blank string.  Add failed.");
  }
  Text key = FoldCase(Key ? *Key : TextView(Name));
  auto entry = std::make_shared<TGLString>(std::move(Name), std::move(Data), std::move(Media));
  const auto [place, isNew] = byKey_.try_emplace(std::move(key), entry);
  if (isNew) {
    entries_.push_back(entry);
    keys_.push_back(&place->first);
  }
  return entry;
}

void TGLStrings::Clear() {
  entries_.clear();
  keys_.clear();
  byKey_.clear();
}

TGLStrings::Entry TGLStrings::Lookup(TextView ID) const {
  const auto found = byKey_.find(FoldCase(ID));
  return found == byKey_.end() ? nullptr : found->second;
}

TGLStrings::Entry TGLStrings::Item(std::int32_t Index) const {
  return Index >= 1 && Index <= Count() ? entries_[static_cast<std::size_t>(Index) - 1] : nullptr;
}

void TGLStrings::Remove(std::int32_t Index) {
  if (Index < 1 || Index > Count()) {
    throw RaisedError(u"TGLStrings.Remove", u"There is no TGL string at the place " +
                                                TextFromUtf8(std::to_string(Index)) +
                                                u".  Remove failed.");
  }
  RemoveAt(static_cast<std::size_t>(Index) - 1);
}

void TGLStrings::Remove(TextView Index) {
  const auto found = byKey_.find(FoldCase(Index));
  if (found == byKey_.end()) {
    throw RaisedError(u"TGLStrings.Remove", u"There is no TGL string with the key '" + Text(Index) +
                                                u"'.  Remove failed.");
  }
  const auto key = std::find(keys_.begin(), keys_.end(), &found->first);
  RemoveAt(static_cast<std::size_t>(key - keys_.begin()));
}

void TGLStrings::RemoveAt(std::size_t at) {
  byKey_.erase(byKey_.find(*keys_[at]));
  entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(at));
  keys_.erase(keys_.begin() + static_cast<std::ptrdiff_t>(at));
}

}  // namespace tarvo
