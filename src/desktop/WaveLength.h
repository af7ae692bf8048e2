#pragma once

#include <chrono>
#include <optional>

#include "text/Text.h"

namespace tarvo {

/// How long a wave file plays, by its header; nothing for bytes that are no wave file or say no
/// rate. A file that is cut off plays as long as what is left of it.
std::optional<std::chrono::milliseconds> WaveLength(FileTextView bytes);

}  // namespace tarvo
