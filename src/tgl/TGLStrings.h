#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <vector>

#include "text/Text.h"
#include "tgl/KeyIndex.h"
#include "tgl/TGLEntries.h"
#include "tgl/TGLString.h"
#include "tgl/TextStore.h"

namespace tarvo {

/// The keyed, ordered collection of entries. Each has a place, counted from 1 in the order of
/// adding, and a key; keys are compared without regard to case, and one key stands only once.
///
/// Entries are shared: what Add, Item, Lookup and a walk give is the object in the collection, and
/// it outlives its removal for whoever holds it. Changing an entry's Name doesn't change its key.
/// Collections can be moved, not copied, and are for one thread, also for looking at.
///
/// A database has tens of thousands of strings, of which a change touches a few. So a collection
/// that was loaded keeps the bytes of its file, and makes an entry when it is first asked for.
class TGLStrings {
 public:
  using Entry = std::shared_ptr<TGLString>;
  class Walk;

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

  std::int32_t Count() const { return static_cast<std::int32_t>(order_.size()); }

  /// Takes out the entry at a place counted from 1, or with a key; the places behind it move up.
  /// Raises RaisedError with the Source "TGLStrings.Remove" when there is none.
  void Remove(std::int32_t Index);
  void Remove(TextView Index);

  /// A walk over the entries in the order of their places. Adding and removing ends it.
  Walk begin() const;
  Walk end() const;

 private:
  friend class TGLFileRep;
  friend class TGLRepair;

  using FilePlaces = TGLEntries::Places;

  struct Slot {
    Entry Object;   ///< Null until asked for, where the string stands in the file.
    TextView Key;   ///< Folded, of what was added; empty where the string stands in the file.
    FilePlaces At;  ///< Where the string stands in the file.
  };

  /// The strings of a file, which ends in kEndBytes 0 bytes. Of several with one key the first
  /// goes in. Raises what Add raises for a blank Name.
  TGLStrings(FileText file, const std::vector<FilePlaces>& strings);

  [[noreturn]] static void RefuseBlankName();

  /// A field of a string that stands in the file: its bytes without terminator, and its text.
  /// `column` is its number in kTGLColumns.
  FileTextView BytesInFile(const Slot& slot, std::size_t column) const;
  Text TextInFile(const Slot& slot, std::size_t column) const;

  Entry EntryOf(std::uint32_t slot) const;
  bool HasKey(std::uint32_t slot, TextView foldedKey) const;
  std::uint32_t HashOfKey(std::uint32_t slot) const;
  void RemoveAt(std::size_t at);

  FileText file_;  ///< What was loaded, never changed.
  TextStore keys_;
  mutable std::deque<Slot> slots_;    ///< In the order of coming, those removed included.
  std::vector<std::uint32_t> order_;  ///< For each place its slot.
  KeyIndex index_;                    ///< Slots by the hashes of their folded keys.
};

/// An iterator: each step gives the Entry at the next place.
class TGLStrings::Walk {
 public:
  Walk(const TGLStrings& strings, std::int32_t place) : strings_(&strings), place_(place) {}

  Entry operator*() const { return strings_->Item(place_); }
  Walk& operator++() {
    ++place_;
    return *this;
  }
  bool operator==(const Walk& other) const { return place_ == other.place_; }

 private:
  const TGLStrings* strings_;
  std::int32_t place_;
};

inline TGLStrings::Walk TGLStrings::begin() const {
  return {*this, 1};
}
inline TGLStrings::Walk TGLStrings::end() const {
  return {*this, Count() + 1};
}

}  // namespace tarvo
