#pragma once

#include "text/Text.h"

namespace tarvo {

/// What goes into a plug-in unchanged and yet doesn't reach the game: words for the user, empty
/// where all is well.

/// Of a value that stands between apostrophes.
Text FaultOfValue(TextView value);

/// Of a ship's name, which is a name in Python, too.
Text FaultOfShipName(TextView name);

}  // namespace tarvo
