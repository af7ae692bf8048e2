#pragma once

#include <cstdint>
#include <vector>

#include "text/Text.h"
#include "tgl/TGLStrings.h"

namespace tarvo {

/// Making a loadable database of one that the loader refuses. The whole of it:
///
///   TGLRepaired repaired = RepairTGLStrings(rep.ReadEntries(damaged));
///   if (repaired.Strings.Count() > 0) rep.WriteFile(target, &repaired.Strings, true);

struct TGLDropped {
  std::int32_t Place;  ///< In the damaged file, from 1.
  TGLString String;
  Text Why;  ///< Half a sentence for the user, such as "its name is blank".
};

struct TGLRepaired {
  TGLStrings Strings;               ///< What stays, in the order of the damaged file.
  std::vector<TGLDropped> Dropped;  ///< In the same order.
};

/// Keeps every entry that can stand in one file, as it is, and drops one with a blank Name, with
/// the Name of an earlier one (without regard to case), or with the hash of an earlier one's Name.
/// Of several such entries the first stays. Throws nothing of its own.
TGLRepaired RepairTGLStrings(std::vector<TGLString> entries);

}  // namespace tarvo
