#pragma once

#include <QPainterPath>
#include <QPointF>

#include "Pose.h"

namespace tarvo::art {

/// The round body, as a ball that is turned: gives places on it as the viewer sees them.
class Ball {
 public:
  explicit Ball(const Pose& pose);

  /// The place that lies `yaw` degrees right and `pitch` degrees up of the middle of the face;
  /// `out` is its distance from the ball's middle in radii.
  QPointF At(double yaw, double pitch, double out = 1) const;

  /// How much of its width something at that yaw keeps.
  double Narrowing(double yaw) const;

  QPainterPath Outline() const;
  QPointF Middle() const { return middle_; }
  double RadiusX() const { return radiusX_; }
  double RadiusY() const { return radiusY_; }

 private:
  QPointF middle_;
  double radiusX_, radiusY_;
  double yaw_;
};

}  // namespace tarvo::art
