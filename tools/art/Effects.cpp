// Steam and sweat.

#include <QPainter>
#include <QPainterPath>
#include <QtMath>

#include "Canvas.h"
#include "Figure.h"

namespace tarvo::art {
namespace {

/// One puff that has gone `age` of its way, 0 to 1, from the ear on that side.
void DrawPuff(QPainter& painter, const QPointF& ear, double side, double age) {
  const QPointF place = ear + QPointF(side * (1 + 5.5 * age), -4 - 11.5 * age);
  const double radius = age < 0.65 ? 1.6 + 4 * age : 4.2 * (1.25 - age) / 0.6;
  const double strength = age < 0.7 ? 1 : 1 - (age - 0.7) / 0.45;
  QPainterPath cloud;
  cloud.setFillRule(Qt::WindingFill);
  cloud.addEllipse(place, radius, radius);
  cloud.addEllipse(place + QPointF(-0.8, 0.5) * radius, radius * 0.7, radius * 0.7);
  cloud.addEllipse(place + QPointF(0.8, 0.35) * radius, radius * 0.75, radius * 0.75);
  cloud = cloud.simplified();
  QLinearGradient shade(place - QPointF(0, radius), place + QPointF(0, radius));
  shade.setColorAt(0, WithAlpha(Qt::white, strength));
  shade.setColorAt(1, WithAlpha(QColor(196, 188, 220), strength));
  painter.setBrush(shade);
  painter.setPen(QPen(WithAlpha(QColor(120, 104, 150), strength * 0.8), 0.7));
  painter.drawPath(cloud);
  painter.setPen(Qt::NoPen);
}

}  // namespace

void DrawSteam(QPainter& painter, const Ball& ball, const Pose& pose) {
  if (pose.steam == kOff) return;
  for (const double side : {-1.0, 1.0}) {
    const QPointF ear = ball.At(side * 90, 20, 0.95);
    for (const double lag : {0.0, 0.5}) {
      double whole = 0;
      DrawPuff(painter, ear, side, std::modf(pose.steam + lag, &whole));
    }
  }
}

void DrawSweat(QPainter& painter, const Ball& ball, const Pose& pose) {
  if (pose.sweat == kOff) return;
  struct Drop {
    double degrees, lag;
  };
  for (const Drop& drop : {Drop{-38, 0}, {6, 0.45}, {44, 0.2}}) {
    double whole = 0;
    const double age = std::modf(pose.sweat + drop.lag, &whole);
    const double reach = ball.RadiusX() * (1.1 + 0.22 * age);
    painter.save();
    painter.translate(ball.Middle());
    painter.rotate(drop.degrees);
    painter.translate(0, -reach);
    const double size = 1.1 + 0.5 * qSin(age * M_PI);
    QPainterPath shape(QPointF(0, 2.6 * size));
    shape.cubicTo(2.2 * size, -0.2 * size, 1.4 * size, -1.6 * size, 0, -1.6 * size);
    shape.cubicTo(-1.4 * size, -1.6 * size, -2.2 * size, -0.2 * size, 0, 2.6 * size);
    const double strength = qMin(1.0, 4 * qMin(age, 1 - age));
    painter.setPen(QPen(WithAlpha(QColor(50, 84, 150), strength), 0.6));
    painter.setBrush(WithAlpha(QColor(150, 214, 255), strength));
    painter.drawPath(shape);
    painter.setPen(Qt::NoPen);
    painter.restore();
  }
}

}  // namespace tarvo::art
