#pragma once

#include "text/Text.h"

namespace tarvo {

/// `text` with every `part` taken out, from the front to the back. `part` isn't empty.
Text Without(TextView text, TextView part);

/// True for a control character, of the upper half (80 to 9F) too: no line of a screen shows it.
bool IsUnprintable(char16_t unit);

}  // namespace tarvo
