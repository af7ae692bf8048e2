#include "Poses.h"

#include <QtMath>

namespace tarvo::art {
namespace {

/// A swing between -1 and 1 that is at `share` of its way.
double Wave(double share) {
  return qSin(share * 2 * M_PI);
}

// The window moves 5 pixels to the left with each frame. A foot on the ground goes back by as much,
// so that it stays where it stands.
constexpr double kStepPerFrame = 5;
constexpr double kReach = kStepPerFrame * kFrames / 4;

/// The foot at that share of the cycle: on the ground in the first half, in the air in the second.
Foot WalkingFoot(double share, double middle) {
  share -= std::floor(share);
  if (share < 0.5) {
    const double along = share / 0.5;
    const double heelUp = qMax(0.0, along - 0.75) * 4;
    const double toeUp = qMax(0.0, 0.2 - along) * 5;
    return {middle + kReach * (2 * along - 1), 0, 16 * toeUp - 24 * heelUp};
  }
  const double along = (share - 0.5) / 0.5;
  const double smooth = along * along * (3 - 2 * along);
  return {middle + kReach * (1 - 2 * smooth), 5 * qSin(along * M_PI), -24 + 40 * smooth};
}

PoseSet Walk() {
  PoseSet set;
  for (int frame = 0; frame < kFrames; ++frame) {
    const double share = static_cast<double>(frame) / kFrames;
    Pose& pose = set[frame];
    pose.yaw = 40;
    pose.farFoot = WalkingFoot(share, 31);
    pose.nearFoot = WalkingFoot(share + 0.5, 33);
    const double bounce = -Wave(2 * share + 0.25);
    pose.lift = 0.8 + 0.8 * bounce;
    pose.squash = -0.012 * bounce;
    const double swing = qCos(share * 2 * M_PI);
    pose.far = {14 + 7.5 * swing, 43 - qAbs(swing)};
    pose.near = {44 - 7.5 * swing, 43 - 1.5 * qAbs(swing)};
    pose.mouth = {0.3 - 0.22 * qCos(share * 2 * M_PI), 0.95, 1};
    pose.eyes.lookX = -0.9;
    pose.brows.raise = 0.3 + 0.3 * bounce;
  }
  return set;
}

PoseSet Talk() {
  constexpr std::array<Mouth, kFrames> kSpeech{{{0.30, 0.95, 0.9},
                                                {0.66, 0.90, 0.8},
                                                {0.90, 0.84, 0.6},
                                                {0.66, 0.66, 0.3},
                                                {0.40, 0.60, 0.3},
                                                {0.42, 0.86, 0.8},
                                                {0.60, 1.02, 1.0},
                                                {0.30, 1.00, 1.0},
                                                {0, 0.95, 1.0}}};
  PoseSet set;
  for (int frame = 0; frame < kFrames; ++frame) {
    const double share = (frame + 1.0) / kFrames;
    Pose& pose = set[frame];
    pose.mouth = kSpeech[frame];
    pose.squash = -0.016 * pose.mouth.open;
    pose.brows.raise = 0.2 + 0.8 * pose.mouth.open;
    pose.far.y -= 1 + 2.4 * Wave(share / 2);
    pose.near.y -= 1 * Wave(share / 2);
  }
  return set;
}

/// A hand raised, for what the figure asks or worries about.
PoseSet Sad() {
  constexpr std::array<Mouth, kFrames> kSpeech{{{0.24, 0.62, -0.6},
                                                {0.44, 0.58, -0.6},
                                                {0.58, 0.52, -0.5},
                                                {0.46, 0.46, -0.4},
                                                {0.28, 0.46, -0.4},
                                                {0.34, 0.54, -0.5},
                                                {0.46, 0.60, -0.6},
                                                {0.24, 0.64, -0.7},
                                                {0, 0.64, -0.8}}};
  PoseSet set;
  for (int frame = 0; frame < kFrames; ++frame) {
    const double share = (frame + 1.0) / kFrames;
    Pose& pose = set[frame];
    pose.mouth = kSpeech[frame];
    pose.eyes = {0.98, 0.95, -0.5, -0.5};
    pose.brows = {0.6 + 0.8 * pose.mouth.open, 0.85};
    pose.squash = 0.012 - 0.012 * pose.mouth.open;
    pose.near = {57.2 + 1.6 * Wave(share), 24.5 - 3 * pose.mouth.open};
    pose.far = {10, 43.5};
  }
  return set;
}

/// Both hands at the head.
PoseSet Critical() {
  constexpr std::array<double, kFrames> kShout{0.35, 0.7, 0.95, 1, 0.82, 0.92, 0.78, 0.4, 0};
  PoseSet set;
  for (int frame = 0; frame < kFrames; ++frame) {
    const double share = (frame + 1.0) / kFrames;
    Pose& pose = set[frame];
    const double shout = kShout[frame];
    pose.yaw = 10;
    pose.mouth = {shout, 0.72 - 0.1 * shout, -0.5};
    pose.eyes = {1.14, 0.62, -0.2, 0};
    pose.brows = {2 + 0.5 * shout, 0.5};
    pose.squash = -0.02 * shout;
    const double shake = Wave(2 * share);
    pose.far = {11 + 0.7 * shake, 20 - 0.8 * shout, true};
    pose.near = {53 + 0.7 * shake, 20 - 0.8 * shout};
    pose.sweat = share;
  }
  return set;
}

PoseSet Mad() {
  PoseSet set;
  constexpr int kCycle = kFrames - 1;
  for (int frame = 0; frame < kCycle; ++frame) {
    const double share = static_cast<double>(frame) / kCycle;
    Pose& pose = set[frame];
    pose.flush = 0.82 + 0.1 * Wave(share);
    pose.steam = share;
    pose.mouth = {0, 0.86, -0.6, 1 + share};
    pose.eyes = {0.96, 0.85, -0.6, 0.2, 0.16};
    pose.brows = {-1.4, -1.1};
    pose.squash = 0.014 + 0.012 * Wave(share);
    pose.far = {7.5, 39 + 1.2 * Wave(share)};
    pose.near = {55, 40 - 1.2 * Wave(share)};
    pose.nearFoot.toeUp = 9 * (1 - qCos(share * 2 * M_PI));
  }
  set[kCycle] = Talk()[kCycle];
  return set;
}

}  // namespace

std::array<NamedSet, 5> PoseSets() {
  return {{{"walk", Walk()},
           {"talk", Talk()},
           {"sad", Sad()},
           {"critical", Critical()},
           {"mad", Mad()}}};
}

}  // namespace tarvo::art
