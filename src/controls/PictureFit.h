#pragma once

namespace tarvo {

/// How a picture comes to fill its control.
enum class PictureFit {
  Stretched,
  Across,   ///< As high as the control; its ends keep their shape and its middle is stretched.
  Down,     ///< The same from top to bottom.
  Natural,  ///< In its own size in the middle, or smaller where it has no room.
};

}  // namespace tarvo
