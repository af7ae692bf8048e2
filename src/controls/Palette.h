#pragma once

#include "controls/Control.h"

namespace tarvo {

/// The colours of the skin: warm bars and cool panels on black ground.
namespace palette {

inline constexpr Colour kOrange{255, 153, 51};
inline constexpr Colour kPeach{255, 192, 128};
inline constexpr Colour kViolet{204, 153, 204};
inline constexpr Colour kBlue{153, 153, 255};
inline constexpr Colour kPanel{20, 18, 32};  ///< Ground of lists and fields.

}  // namespace palette
}  // namespace tarvo
