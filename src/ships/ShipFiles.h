#pragma once

#include "text/Text.h"

namespace tarvo {

/// Names of ships and of their files. A ship is enabled as long as its plug-in ends in ".py", and
/// disabled while it ends in ".Disabled".

inline constexpr TextView kEnabledEnding = u".py";
inline constexpr TextView kDisabledEnding = u".Disabled";
inline constexpr TextView kCompiledEnding = u".pyc";

/// The ship of a file that ends in `ending` in any letter case: the file's name without every
/// `ending` in it. Empty for another file, and for a name that no game can have because it holds a
/// control character or a wildcard.
Text ShipOfFile(TextView fileName, TextView ending);

/// True for the scripts in the folder of the ship plug-ins that are none, but serve them all.
bool IsNoPlugin(TextView fileName);

/// True for a file that goes when the ship is deleted: its base name is the ship's, whatever its
/// ending. The plug-in of a ship whose name goes on behind a dot isn't one of them.
bool BelongsToShip(TextView fileName, TextView ship);

/// `text` as a screen can show it: a blank in place of each control character.
Text Showable(Text text);

}  // namespace tarvo
