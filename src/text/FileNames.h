#pragma once

#include "text/Text.h"

namespace tarvo {

/// Why no file may be made under a name that a user has typed, in a sentence that names it: it
/// would lead elsewhere, or mean several files. Empty for a name that will do.
Text FaultOfFileName(TextView name);

/// The same for a name that the game has to read as well, in its code page.
Text FaultOfGameName(TextView name);

}  // namespace tarvo
