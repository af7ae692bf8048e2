// The ball, its limbs and its headset.

#include <QPainter>
#include <QPainterPath>
#include <QtMath>

#include "Canvas.h"
#include "Figure.h"
#include "controls/Palette.h"

namespace tarvo::art {
namespace {

constexpr double kGround = 63;
constexpr double kEarYaw = 90;
constexpr double kEarPitch = 8;

const QColor kLine(94, 48, 24);
const QColor kLimb(214, 132, 28);

/// The colours of the skin from where the light falls to the edge.
struct Skin {
  QColor shine, light, middle, shade, edge;
};

Skin SkinOf(const Pose& pose) {
  const auto flushed = [&](const QColor& calm, const QColor& red) {
    return Mix(calm, red, pose.flush);
  };
  return {flushed({255, 250, 200}, {255, 196, 160}), flushed({255, 225, 84}, {255, 128, 80}),
          flushed({255, 198, 40}, {236, 74, 48}), flushed({224, 138, 20}, {176, 34, 40}),
          flushed({150, 80, 16}, {110, 16, 34})};
}

void DrawLimb(QPainter& painter, const QPointF& from, const QPointF& bend, const QPointF& to,
              const QColor& colour) {
  QPainterPath limb(from);
  limb.quadTo(bend, to);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(kLine, 4.2, Qt::SolidLine, Qt::RoundCap));
  painter.drawPath(limb);
  painter.setPen(QPen(colour, 2.8, Qt::SolidLine, Qt::RoundCap));
  painter.drawPath(limb);
  painter.setPen(Qt::NoPen);
}

/// A glove with its thumb, turned away from the shoulder.
void DrawGlove(QPainter& painter, const QPointF& place, double degrees, bool thumbLeft, bool far) {
  const QColor cloth = Mix(QColor(255, 246, 232), QColor(196, 168, 190), far ? 0.35 : 0);
  painter.save();
  painter.translate(place);
  painter.rotate(degrees);
  if (thumbLeft) painter.scale(-1, 1);
  QPainterPath fist;
  fist.addEllipse(QPointF(0, 0.6), 4.1, 4.4);
  QPainterPath thumb;
  thumb.addEllipse(QPointF(3.6, -1.2), 1.9, 2.4);
  painter.setPen(QPen(kLine, 0.9));
  painter.setBrush(cloth);
  painter.drawPath(fist.united(thumb));
  painter.setPen(QPen(Mix(cloth, kLine, 0.5), 0.7, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(QPointF(-1.3, 2.4), QPointF(-1.3, 4.3));
  painter.drawLine(QPointF(1.2, 2.5), QPointF(1.2, 4.4));
  painter.setPen(QPen(kLine, 0.8));
  painter.setBrush(Mix(ToQt(palette::kViolet), Qt::black, far ? 0.25 : 0.05));
  painter.drawRoundedRect(QRectF(-3.3, -4.9, 6.6, 2.6), 1.3, 1.3);
  painter.setPen(Qt::NoPen);
  painter.restore();
}

void DrawArm(QPainter& painter, const QPointF& shoulder, const Hand& hand, bool far) {
  const QPointF place(hand.x, hand.y);
  const QPointF way = place - shoulder;
  const QPointF outwards(far ? -2.5 : 2.5, 1.5);
  const QPointF bend = shoulder + way / 2 + outwards;
  DrawLimb(painter, shoulder, bend, place, far ? Mix(kLimb, kLine, 0.35) : kLimb);
  const QPointF end = place - bend;
  const double degrees = qRadiansToDegrees(qAtan2(end.y(), end.x())) - 90;
  DrawGlove(painter, place, degrees, far, far);
}

/// Where the middle of the sole is. A tilted foot stands on its heel or its toe.
QPointF SoleOf(const Foot& foot) {
  const double tilt = qSin(qDegreesToRadians(foot.toeUp));
  const double below = tilt > 0 ? 4.8 * tilt : -6.8 * tilt;
  return {foot.x, kGround - foot.y - below};
}

/// A boot whose sole has its middle at the foot's place, with the toe on the left.
void DrawBoot(QPainter& painter, const Foot& foot, bool far) {
  const QColor leather = Mix(ToQt(palette::kBlue), QColor(20, 10, 60), far ? 0.38 : 0.08);
  painter.save();
  painter.translate(SoleOf(foot));
  painter.rotate(foot.toeUp);
  QPainterPath boot(QPointF(-6.6, -1.4));
  boot.cubicTo(-6.8, -5.6, -2.2, -6.2, -0.8, -7.2);
  boot.lineTo(3.9, -7.2);
  boot.quadTo(4.9, -4, 4.6, -1.4);
  boot.closeSubpath();
  QLinearGradient shine(0, -7, 0, -1);
  shine.setColorAt(0, Mix(leather, Qt::white, 0.25));
  shine.setColorAt(1, Mix(leather, QColor(30, 10, 70), 0.3));
  painter.setPen(QPen(QColor(44, 34, 92), 0.9, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(shine);
  painter.drawPath(boot);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(44, 34, 92));
  painter.drawRoundedRect(QRectF(-7.1, -1.9, 12.2, 2.2), 1.1, 1.1);
  painter.restore();
}

void DrawLeg(QPainter& painter, const Ball& ball, const Foot& foot, bool far) {
  const QPointF hip = ball.At(far ? -90 : 90, 0, 0.3) + QPointF(0, ball.RadiusY() * 0.86);
  const double angle = qDegreesToRadians(foot.toeUp);
  const QPointF ankle = SoleOf(foot) + QPointF(1.4 + 6 * qSin(angle), -6.2 * qCos(angle));
  const QPointF knee = (hip + ankle) / 2 + QPointF(-1.2 - foot.y * 0.5, 0);
  DrawLimb(painter, hip, knee, ankle, far ? Mix(kLimb, kLine, 0.35) : kLimb);
  DrawBoot(painter, foot, far);
}

/// The upper half of the headset's band, from the far ear (-1) or the top (0) to the near ear.
QPainterPath Band(const Ball& ball, double from) {
  QPainterPath band;
  constexpr double kOut = 1.05;
  for (double along = from * 82; along <= 82; along += 2) {
    // The band runs over the top in the plane of the ears.
    const double across = qSin(qDegreesToRadians(along));
    const double up = qCos(qDegreesToRadians(along));
    const QPointF ear = ball.At(kEarYaw, 0) - ball.Middle();
    const QPointF place = ball.Middle() + QPointF(ear.x() * across, -ball.RadiusY() * up) * kOut;
    if (band.elementCount() == 0)
      band.moveTo(place);
    else
      band.lineTo(place);
  }
  return band;
}

void DrawBand(QPainter& painter, const QPainterPath& band, const QBrush& colour) {
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(QColor(58, 30, 74), 3.6, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
  painter.drawPath(band);
  painter.setPen(QPen(colour, 2.1, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
  painter.drawPath(band);
  painter.setPen(Qt::NoPen);
}

void DrawCup(QPainter& painter, const QPointF& place, double width, const QColor& colour) {
  painter.setPen(QPen(QColor(58, 30, 74), 0.9));
  painter.setBrush(colour);
  painter.drawRoundedRect(QRectF(place.x() - width / 2, place.y() - 5, width, 10), width / 2.2,
                          width / 2.2);
  painter.setPen(Qt::NoPen);
}

/// The near cup with the microphone before the cheek.
void DrawNearCup(QPainter& painter, const Ball& ball) {
  const QPointF ear = ball.At(kEarYaw, kEarPitch, 1.0);
  const QPointF microphone = ball.At(38, -37, 1.04);
  QPainterPath boom(ear + QPointF(0, 3));
  boom.quadTo(QPointF(ear.x() + 0.5, microphone.y() - 0.5), microphone);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(QColor(58, 30, 74), 1.5, Qt::SolidLine, Qt::RoundCap));
  painter.drawPath(boom);
  painter.setPen(QPen(QColor(58, 30, 74), 0.8));
  painter.setBrush(ToQt(palette::kBlue));
  painter.drawEllipse(microphone, 2.0, 1.7);
  painter.setPen(Qt::NoPen);
  const double width = 6.4 + 2.6 * (1 - ball.Narrowing(0));
  DrawCup(painter, ear, width, ToQt(palette::kViolet));
  painter.setBrush(WithAlpha(Qt::white, 0.45));
  painter.drawEllipse(ear + QPointF(-0.6, -1.6), width * 0.2, 1.9);
}

}  // namespace

void DrawFarParts(QPainter& painter, const Ball& ball, const Pose& pose) {
  const QColor violet = Mix(ToQt(palette::kViolet), Qt::black, 0.3);
  DrawCup(painter, ball.At(-kEarYaw, kEarPitch, 1.02), 5.5, violet);
  QLinearGradient shade(ball.At(-kEarYaw, 0), ball.Middle());
  shade.setColorAt(0, violet);
  shade.setColorAt(1, ToQt(palette::kViolet));
  DrawBand(painter, Band(ball, -1), shade);
  if (!pose.far.before) DrawArm(painter, ball.At(-80, -18, 0.9), pose.far, true);
  DrawLeg(painter, ball, pose.farFoot, true);
  DrawLeg(painter, ball, pose.nearFoot, false);
}

void DrawBody(QPainter& painter, const Ball& ball, const Pose& pose) {
  const Skin skin = SkinOf(pose);
  const double radius = ball.RadiusX();
  const QPointF light = ball.Middle() - QPointF(radius, radius) * 0.38;
  QRadialGradient round(ball.Middle() + QPointF(-1, -2), radius * 1.12, light);
  round.setColorAt(0, skin.shine);
  round.setColorAt(0.3, skin.light);
  round.setColorAt(0.68, skin.middle);
  round.setColorAt(0.95, skin.shade);
  round.setColorAt(1, skin.shade);
  painter.setBrush(round);
  painter.setPen(QPen(skin.edge, 1));
  painter.drawEllipse(ball.Middle(), ball.RadiusX() - 0.5, ball.RadiusY() - 0.5);
  painter.setPen(Qt::NoPen);
  DrawBand(painter, Band(ball, 0), ToQt(palette::kViolet));
}

void DrawNearParts(QPainter& painter, const Ball& ball, const Pose& pose) {
  DrawNearCup(painter, ball);
  if (pose.far.before) DrawArm(painter, ball.At(-62, -30, 0.9), pose.far, true);
  DrawArm(painter, ball.At(86, -22, 0.96), pose.near, false);
}

}  // namespace tarvo::art
