#pragma once

#include <vector>

#include "text/Text.h"

namespace tarvo {

/// As many lines as fit into a message box, with `separator` in front of each; the last one tells
/// how many more there are.
Text FirstLines(const std::vector<Text>& lines, TextView separator = u"\n");

/// All of them in one line.
Text Joined(const std::vector<Text>& parts, TextView separator = u", ");

}  // namespace tarvo
