#pragma once

#include "text/Text.h"

namespace tarvo {

/// Letter case as the game's file system and our sorted lists ignore it: Latin with all its
/// accented letters of code page Windows-1252 and Latin Extended-A, Greek and Cyrillic. The result
/// doesn't depend on the user's locale.

/// `text` with every capital letter made small. As long as `text`.
Text FoldCase(TextView text);

bool EqualIgnoringCase(TextView a, TextView b);

/// The order of sorted lists: by folded 16-bit units.
bool LessIgnoringCase(TextView a, TextView b);

}  // namespace tarvo
