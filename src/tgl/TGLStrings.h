#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "text/Text.h"

namespace tarvo {

/// One entry of a text database: a plain record, with no checks. A file holds Name and
/// MediaFilename in code page Windows-1252, where a character that the page lacks becomes "?", and
/// Data as its 16-bit units. A NUL unit inside a field ends it for whoever reads the file.
struct TGLString {
  Text Name;           ///< The key text.
  Text Data;           ///< What is shown.
  Text MediaFilename;  ///< The sound that goes with it.

  friend bool operator==(const TGLString&, const TGLString&) = default;
};

/// The keyed, ordered collection of entries. Each has a place, counted from 1 in the order of
/// adding, and a key; keys are compared without regard to case, and one key stands only once.
///
/// Entries are shared: what Add, Item, Lookup and a walk give is the object in the collection, and
/// it outlives its removal for whoever holds it. Changing an entry's Name doesn't change its key.
/// Collections can be moved, not copied.
class TGLStrings {
 public:
  using Entry = std::shared_ptr<TGLString>;

  TGLStrings() = default;
  TGLStrings(TGLStrings&&) = default;
  TGLStrings& operator=(TGLStrings&&) = default;

  /// Adds an entry at the end under `Key`, or under `Name` when no key is given. A Data of only
  /// blanks becomes one blank, a Media of only blanks becomes `Name` + ".wav".
  ///
  /// Gives the new entry. When the key stands already the collection keeps its earlier entry, and
  /// what comes back belongs to the caller alone.
  ///
  /// Raises RaisedError with the Source "TGLStrings.Add" for a blank Name or a blank Key, the
  /// collection being left as it was.
  Entry Add(Text Name, Text Data, Text Media, std::optional<TextView> Key = std::nullopt);

  void Clear();

  /// The entry with that key; null when there is none.
  Entry Lookup(TextView ID) const;

  /// The entry at a place counted from 1, or with a key; null when there is none.
  Entry Item(std::int32_t Index) const;
  Entry Item(TextView Index) const { return Lookup(Index); }

  std::int32_t Count() const { return static_cast<std::int32_t>(entries_.size()); }

  /// Takes out the entry at a place counted from 1, or with a key; the places behind it move up.
  /// Raises RaisedError with the Source "TGLStrings.Remove" when there is none.
  void Remove(std::int32_t Index);
  void Remove(TextView Index);

  /// A walk over the entries in the order of their places. Adding and removing ends it.
  auto begin() const { return entries_.begin(); }
  auto end() const { return entries_.end(); }

 private:
  void RemoveAt(std::size_t at);

  std::vector<Entry> entries_;
  std::vector<const Text*> keys_;  ///< For each entry its key in `byKey_`.
  std::unordered_map<Text, Entry> byKey_;
};

}  // namespace tarvo
