#pragma once

#include <vector>

#include "Synth.h"

namespace tarvo {

/// The program's sounds: one family, in one key, of few timbres.
std::vector<Score> Scores();

}  // namespace tarvo
