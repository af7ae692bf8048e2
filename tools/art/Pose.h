#pragma once

namespace tarvo::art {

/// What one frame shows of the figure. Lengths are pixels of the frame of 64 by 64, angles degrees.
/// The figure faces left: its far side is the left one.

struct Mouth {
  double open = 0;  ///< 0 shut to 1 wide open.
  double width = 1;
  double curve = 1;  ///< 1 smiles, -1 droops.
  double grit = 0;   ///< Above 0 the teeth are clenched; says where the ripple of the lips stands.
};

struct Eyes {
  double wide = 1;  ///< Scale of the eyes.
  double pupil = 1;
  double lookX = -0.6, lookY = 0;
  double lid = 0;  ///< 0 open to 1 shut.
};

struct Brows {
  double raise = 0;
  double slant = 0;  ///< How much higher the inner end is: above 0 worried, below 0 angry.
};

struct Hand {
  double x, y;
  bool before = false;  ///< In front of the body, not behind it. The near hand always is.
};

struct Foot {
  double x, y;  ///< The middle of the sole; y counts from the ground, upwards.
  double toeUp = 0;
};

inline constexpr double kOff = -1;  ///< Of an effect: it isn't there.

struct Pose {
  double yaw = 16;  ///< Degrees from the viewer to the left.
  double lift = 0;  ///< Of the body, upwards.
  double squash = 0;
  Mouth mouth;
  Eyes eyes;
  Brows brows;
  Hand far{8.5, 41};
  Hand near{55, 43};
  Foot farFoot{24, 0};
  Foot nearFoot{39, 0};
  double flush = 0;     ///< 0 yellow to 1 red.
  double steam = kOff;  ///< Place in the cycle of the puffs, 0 to 1.
  double sweat = kOff;  ///< Place in the cycle of the drops, 0 to 1.
};

}  // namespace tarvo::art
