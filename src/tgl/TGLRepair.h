#pragma once

#include <cstdint>
#include <vector>

#include "text/Text.h"
#include "tgl/TGLEntries.h"
#include "tgl/TGLStrings.h"

namespace tarvo {

/// Making a loadable database of one that the loader refuses. The whole of it:
///
///   const TGLRepair repair(rep.ReadEntries(damaged));
///   if (repair.Strings().Count() > 0) rep.WriteFile(target, &repair.Strings(), true);
///
/// Every entry that can stand in one file stays, as it is. One goes with a blank Name, with the
/// Name of an earlier one (without regard to case), or with the hash of an earlier one's Name. Of
/// several such entries the first stays.
class TGLRepair {
 public:
  struct Dropped {
    std::int32_t Place;  ///< In the damaged file, from 1.
    Text Name;
    Text Why;  ///< Half a sentence for the user, such as "its name is blank".
  };

  /// Throws nothing of its own.
  explicit TGLRepair(TGLEntries entries);

  /// What stays, in the order of the damaged file.
  const TGLStrings& Strings() const { return strings_; }

  /// What goes, in the same order, counted from 0.
  std::size_t DroppedCount() const { return dropped_.size(); }
  Dropped DroppedAt(std::size_t index) const;

 private:
  enum class Reason : std::uint32_t { Blank, Again, OtherCase, SameHash };

  struct Drop {
    std::int32_t Place;
    Reason Why;
    std::uint32_t Name;     ///< Where it begins in the file.
    std::uint32_t Earlier;  ///< That of the entry that stays.
  };

  class Sieve;

  TGLStrings strings_;
  std::vector<Drop> dropped_;
};

}  // namespace tarvo
