#pragma once

#include <vector>

#include "text/Text.h"

namespace tarvo {

/// What all implementations of Files do with the names of a folder.

/// True when `name` matches one of the patterns, which are separated by ";".
bool MatchesAnyPattern(TextView name, TextView patterns);

/// Without regard to letter case; what differs in nothing else, by its units.
std::vector<Text> SortedNames(std::vector<Text> names);

}  // namespace tarvo
