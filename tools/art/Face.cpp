// Eyes, brows, cheeks and mouth.

#include <QPainter>
#include <QPainterPath>
#include <QtMath>

#include "Canvas.h"
#include "Figure.h"

namespace tarvo::art {
namespace {

constexpr double kEyeYaw = 19;
constexpr double kEyePitch = 15;

const QColor kInk(62, 28, 34);

void DrawEye(QPainter& painter, const Ball& ball, const Pose& pose, double yaw) {
  const QPointF place = ball.At(yaw, kEyePitch, 0.97);
  const double across = 4.6 * pose.eyes.wide * qMin(1.0, ball.Narrowing(yaw) * 1.12);
  const double up = 5.9 * pose.eyes.wide;
  QPainterPath eye;
  eye.addEllipse(place, across, up);
  painter.setBrush(Qt::white);
  painter.drawPath(eye);
  painter.save();
  painter.setClipPath(eye);
  const double share = across / 4.6;
  const QPointF pupil = place + QPointF(pose.eyes.lookX * 1.6 * share, pose.eyes.lookY * 2 + 0.6);
  painter.setBrush(kInk);
  painter.drawEllipse(pupil, 2.5 * pose.eyes.pupil * qMax(0.75, share), 3.2 * pose.eyes.pupil);
  painter.setBrush(Qt::white);
  painter.drawEllipse(pupil + QPointF(-0.8 * share, -1.3), 0.95, 0.95);
  if (pose.eyes.lid > 0) {
    painter.setBrush(Mix(QColor(240, 172, 30), QColor(214, 60, 44), pose.flush));
    painter.drawRect(
        QRectF(place.x() - across, place.y() - up, 2 * across, 2 * up * pose.eyes.lid));
  }
  painter.restore();
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(kInk, 0.8));
  painter.drawPath(eye);
  painter.setPen(Qt::NoPen);
}

/// `inner` is the yaw of the end next to the nose.
void DrawBrow(QPainter& painter, const Ball& ball, const Pose& pose, double inner, double outer) {
  const double height = kEyePitch + 20 + pose.brows.raise * 3.2;
  const double slant = pose.brows.slant * 9;
  const QPointF from = ball.At(inner, height + slant);
  const QPointF to = ball.At(outer, height - slant - 3);
  const QPointF bend = (from + to) / 2 - QPointF(0, 1.6);
  QPainterPath brow(from);
  brow.quadTo(bend, to);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(kInk, 2.1, Qt::SolidLine, Qt::RoundCap));
  painter.drawPath(brow);
  painter.setPen(Qt::NoPen);
}

void DrawCheek(QPainter& painter, const Ball& ball, double yaw) {
  painter.save();
  painter.setClipPath(ball.Outline());
  painter.setBrush(QColor(255, 104, 72, 105));
  painter.drawEllipse(ball.At(yaw, -12, 0.97), 3.9 * qMax(0.35, ball.Narrowing(yaw)), 2.5);
  painter.restore();
}

/// The lips: the corners of the mouth and how far the middles of the lips are from their line.
struct Lips {
  QPointF left, right;
  double upper, lower;

  QPainterPath Upper() const {
    QPainterPath lip(left);
    lip.quadTo(Middle() + QPointF(0, upper * 2), right);
    return lip;
  }
  QPainterPath Inside() const {
    QPainterPath inside = Upper();
    const double bow = lower * 4 / 3;
    const double reach = (right.x() - left.x()) * 0.06;
    inside.cubicTo(right + QPointF(reach, bow), left + QPointF(-reach, bow), left);
    inside.closeSubpath();
    return inside;
  }
  QPointF Middle() const { return (left + right) / 2; }
};

Lips LipsOf(const Ball& ball, const Mouth& mouth) {
  const double reach = 23 * mouth.width;
  const double pitch = -21 + mouth.curve * 4 + mouth.open * 3;
  const double bend = mouth.curve * 2.6;
  return {ball.At(-reach, pitch), ball.At(reach, pitch), bend - mouth.open * 1.6,
          bend + mouth.open * 10.5};
}

void DrawOpenMouth(QPainter& painter, const Lips& lips, const Mouth& mouth) {
  const QPainterPath inside = lips.Inside();
  painter.setBrush(QColor(112, 22, 36));
  painter.drawPath(inside);
  painter.save();
  painter.setClipPath(inside);
  painter.setBrush(QColor(240, 104, 100));
  const double width = lips.right.x() - lips.left.x();
  painter.drawEllipse(lips.Middle() + QPointF(0, lips.lower + 0.6), width * 0.32,
                      1 + mouth.open * 3.4);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(Qt::white, qMin(3.9, 6 * mouth.open)));
  painter.drawPath(lips.Upper());
  painter.restore();
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(kInk, 1.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPath(inside);
  painter.setPen(Qt::NoPen);
}

/// Clenched teeth between rippled lips.
void DrawGrit(QPainter& painter, const Lips& lips, const Mouth& mouth) {
  const QPointF middle = lips.Middle();
  const double half = (lips.right.x() - lips.left.x()) / 2;
  const auto height = [&](double share, double side) {
    const double ripple = 0.3 * qSin((share + mouth.grit) * 2 * M_PI);
    const double rounding = 1 - qPow(qAbs(share), 5);
    return middle.y() + 2 * share * share + ripple + side * 3.1 * rounding;
  };
  QPolygonF outline;
  for (double share = -1; share <= 1.001; share += 0.1) {
    outline << QPointF(middle.x() + half * share, height(share, -1));
  }
  for (double share = 1; share >= -1.001; share -= 0.1) {
    outline << QPointF(middle.x() + half * share, height(share, 1));
  }
  painter.setPen(QPen(kInk, 1.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::white);
  painter.drawPolygon(outline);
  painter.setPen(QPen(Mix(kInk, Qt::white, 0.4), 0.6));
  QPolygonF seam;
  for (double share = -1; share <= 1.001; share += 0.1) {
    seam << QPointF(middle.x() + half * share, height(share, 0));
  }
  painter.drawPolyline(seam);
  for (const double share : {-0.5, 0.0, 0.5}) {
    painter.drawLine(QPointF(middle.x() + half * share, height(share, -1)),
                     QPointF(middle.x() + half * share, height(share, 1)));
  }
  painter.setPen(Qt::NoPen);
}

void DrawMouth(QPainter& painter, const Ball& ball, const Mouth& mouth) {
  const Lips lips = LipsOf(ball, mouth);
  if (mouth.grit > 0) return DrawGrit(painter, lips, mouth);
  if (mouth.open > 0.05) return DrawOpenMouth(painter, lips, mouth);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(kInk, 1.7, Qt::SolidLine, Qt::RoundCap));
  painter.drawPath(lips.Upper());
  painter.setPen(Qt::NoPen);
}

}  // namespace

void DrawFace(QPainter& painter, const Ball& ball, const Pose& pose) {
  for (const double side : {-1.0, 1.0}) {
    DrawCheek(painter, ball, side * 42);
    DrawEye(painter, ball, pose, side * kEyeYaw);
    DrawBrow(painter, ball, pose, side * (kEyeYaw - 10), side * (kEyeYaw + 12));
  }
  DrawMouth(painter, ball, pose.mouth);
}

}  // namespace tarvo::art
