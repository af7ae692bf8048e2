#include "Ball.h"

#include <QtMath>

namespace tarvo::art {
namespace {

constexpr double kRadius = 20.5;
constexpr double kMiddleX = 32;
constexpr double kBottom = 51;  ///< Of the body at rest.

}  // namespace

Ball::Ball(const Pose& pose)
    : radiusX_(kRadius * (1 + pose.squash)), radiusY_(kRadius * (1 - pose.squash)), yaw_(pose.yaw) {
  middle_ = {kMiddleX, kBottom - pose.lift - radiusY_};
}

QPointF Ball::At(double yaw, double pitch, double out) const {
  const double across = qSin(qDegreesToRadians(yaw - yaw_)) * qCos(qDegreesToRadians(pitch));
  const double up = qSin(qDegreesToRadians(pitch));
  return middle_ + QPointF(across * radiusX_, -up * radiusY_) * out;
}

double Ball::Narrowing(double yaw) const {
  return qCos(qDegreesToRadians(yaw - yaw_));
}

QPainterPath Ball::Outline() const {
  QPainterPath outline;
  outline.addEllipse(middle_, radiusX_, radiusY_);
  return outline;
}

}  // namespace tarvo::art
