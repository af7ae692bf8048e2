#include <QPainterPath>
#include <algorithm>
#include <array>
#include <cmath>

#include "Drawing.h"
#include "Scenes.h"

namespace tarvo::video {
namespace {

constexpr double kWide = 239;
constexpr double kTop = 22;  ///< Above it the picture may be covered.
constexpr double kBottom = 173;

constexpr std::array<Colour, 4> kColours = {palette::kBlue, palette::kPeach, palette::kViolet,
                                            palette::kOrange};

/// Rows of numbers that roll upward one by one, each with a rest, fading out at both ends.
void PaintRows(QPainter& painter, double phase) {
  constexpr QRectF kArea{48, kTop, 128, 104};
  constexpr double kPitch = 13;
  constexpr unsigned kRows = 10;  // As many as pass by in a round.
  const double beat = kRows * phase - std::floor(kRows * phase);
  const double glide = std::clamp((beat - 0.5) * 2, 0.0, 1.0);
  const double rolled = std::floor(kRows * phase) + glide * glide * (3 - 2 * glide);
  painter.save();
  painter.setClipRect(kArea);
  for (unsigned i = 0; i < kRows; ++i) {
    const double shift = std::fmod(i + kRows - rolled, kRows) - 1;
    const double y = kArea.top() + (shift + 0.5) * kPitch - 4;
    const double middle = (y + 4 - kArea.center().y()) / (kArea.height() / 2);
    const double light = std::max(0.0, 1 - middle * middle);
    const Colour& colour = kColours[Scramble(i, 21) % 3];
    DrawDigits(painter, {kArea.left() + 2, y + 1}, 8, Scramble(i, 22), 4,
               Dimmed(palette::kOrange, 0.85 * light));
    DrawDigits(painter, {kArea.left() + 34, y + 1}, 8, Scramble(i, 23), 7,
               Dimmed(colour, 0.8 * light));
    DrawPill(painter, {kArea.left() + 82, y + 2.5, 12 + 30 * ScrambledShare(i, 24), 5},
             Dimmed(colour, 0.65 * light));
  }
  painter.restore();
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(Dimmed(palette::kPeach, 0.8), 1));
  const QRectF window(kArea.left() - 6, kArea.top() + 3 * kPitch, kArea.width() + 12, kPitch + 2);
  painter.drawRoundedRect(window, 7.5, 7.5);
}

/// The frame at the left: an elbow and the pieces of its upright.
void PaintFrame(QPainter& painter, double phase) {
  constexpr std::array<double, 4> kHeights = {26, 40, 18, 26};
  QPainterPath elbow;
  elbow.moveTo(6, kTop + 18);
  elbow.arcTo(QRectF(6, kTop - 4, 36, 40), 180, -90);
  elbow.lineTo(34, kTop - 4);
  elbow.lineTo(34, kTop + 1);
  elbow.arcTo(QRectF(26, kTop + 1, 16, 16), 90, 90);
  elbow.lineTo(26, kTop + 18);
  elbow.closeSubpath();
  painter.setPen(Qt::NoPen);
  painter.setBrush(Dimmed(palette::kOrange, 0.85));
  painter.drawPath(elbow);
  double y = kTop + 20;
  for (std::size_t i = 0; i < kHeights.size(); ++i) {
    const double glow = 0.62 + 0.2 * std::sin(kTurn * (phase + static_cast<double>(i) / 4));
    painter.setPen(Qt::NoPen);
    painter.setBrush(Dimmed(kColours[(i + 1) % 4], glow));
    painter.drawRect(QRectF(6, y, 20, kHeights[i]));
    y += kHeights[i] + 2;
  }
}

/// Columns at the right that rise and fall.
void PaintColumns(QPainter& painter, double phase) {
  for (unsigned i = 0; i < 6; ++i) {
    const double x = 186 + 8.0 * i;
    const double share = 0.52 + 0.3 * std::sin(kTurn * (phase + i * 0.17)) +
                         0.14 * std::sin(kTurn * (2 * phase + ScrambledShare(i, 31)));
    const QRectF whole(x, kTop, 5, 104);
    DrawPill(painter, whole, Dimmed(kColours[i % 4], 0.14));
    DrawPill(painter, whole.adjusted(0, whole.height() * (1 - share), 0, 0),
             Dimmed(kColours[i % 4], 0.8));
  }
}

/// Two waves along the foot.
void PaintWaves(QPainter& painter, double phase) {
  constexpr double kMiddle = 152;
  painter.setPen(QPen(Dimmed(palette::kBlue, 0.2), 0.7));
  for (double x = 34; x <= kWide - 7; x += 16.5) {
    painter.drawLine(QPointF(x, kMiddle - 17), QPointF(x, kMiddle + 17));
  }
  painter.drawLine(QPointF(34, kMiddle), QPointF(kWide - 7, kMiddle));
  const auto wave = [&](const Colour& colour, double waves, int speed, double high) {
    QPolygonF line;
    for (double x = 34; x <= kWide - 7; x += 1) {
      const double along = (x - 34) / (kWide - 41);
      const double swell = std::sin(kTurn / 2 * along);
      line << QPointF(x,
                      kMiddle - high * swell * std::sin(kTurn * (waves * along - speed * phase)));
    }
    painter.setPen(QPen(Dimmed(colour, 0.9), 1.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(line);
  };
  wave(palette::kViolet, 2.5, 1, 15);
  wave(palette::kPeach, 4, 2, 9);
  const double y = kBottom - 1;
  painter.setPen(Qt::NoPen);
  painter.setBrush(Dimmed(palette::kOrange, 0.85));
  painter.drawRect(QRectF(34, y, 150, 4));
  DrawPill(painter, {188, y, kWide - 195, 4}, Dimmed(palette::kViolet, 0.85));
}

void PaintTGL(QPainter& painter, double phase) {
  PaintFrame(painter, phase);
  PaintRows(painter, phase);
  PaintColumns(painter, phase);
  PaintWaves(painter, phase);
}

}  // namespace

const Scene kTGLScene{"LCARS_TGL.MOV", {239, 179}, PaintTGL};

}  // namespace tarvo::video
