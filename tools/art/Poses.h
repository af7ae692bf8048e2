#pragma once

#include <array>

#include "Pose.h"

namespace tarvo::art {

inline constexpr int kFrames = 9;
using PoseSet = std::array<Pose, kFrames>;

struct NamedSet {
  const char* name;  ///< First part of the names of its files.
  PoseSet poses;
};

/// The five sets. Each is played at 40 ms a frame, from 8 on to 0, but the angry one from 7 on to
/// 0; the figure stands on frame 8 when it is silent, so that frame has the mouth shut.
std::array<NamedSet, 5> PoseSets();

}  // namespace tarvo::art
