#pragma once

#include <optional>

#include "text/Text.h"

namespace tarvo {

/// A stored flag: a number is false when it is 0, the words True and False count too, and any
/// other text says nothing.
std::optional<bool> StoredFlag(TextView text);

}  // namespace tarvo
