#pragma once

#include <vector>

#include "text/Text.h"

namespace tarvo {

/// The names of the weapons that a hardpoint script uses: each that stands behind "SetFireSound",
/// two characters further on, and then each behind "Tactical.Projectiles.", up to the next `")`.
/// A name comes once, where it was found first; comments count. A marker with no `")` behind it
/// gives no name, and neither does one with `")` in place of the two characters.
std::vector<Text> WeaponNames(FileTextView hardpointScript);

}  // namespace tarvo
