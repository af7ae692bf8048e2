#include "Drawing.h"

#include <array>

namespace tarvo::video {
namespace {

/// The strokes of the digits on a square of 1 by 2: top, the upper and lower sides, middle, bottom.
constexpr std::array<QLineF, 7> kStrokes = {QLineF{0.15, 0, 0.85, 0}, QLineF{1, 0.15, 1, 0.85},
                                            QLineF{1, 1.15, 1, 1.85}, QLineF{0.15, 2, 0.85, 2},
                                            QLineF{0, 1.15, 0, 1.85}, QLineF{0, 0.15, 0, 0.85},
                                            QLineF{0.15, 1, 0.85, 1}};
constexpr std::array<unsigned, 10> kLit = {0x3F, 0x06, 0x5B, 0x4F, 0x66,
                                           0x6D, 0x7D, 0x07, 0x7F, 0x6F};

}  // namespace

QColor Dimmed(const Colour& colour, double share) {
  return QColor::fromRgbF(static_cast<float>(colour.Red * share / 255),
                          static_cast<float>(colour.Green * share / 255),
                          static_cast<float>(colour.Blue * share / 255));
}

void DrawPill(QPainter& painter, const QRectF& area, const QColor& colour) {
  const double radius = std::min(area.width(), area.height()) / 2;
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  painter.drawRoundedRect(area, radius, radius);
}

void DrawDigits(QPainter& painter, QPointF corner, double height, unsigned number, int count,
                const QColor& colour) {
  const double wide = height / 2;
  painter.setPen(QPen(colour, height / 7, Qt::SolidLine, Qt::RoundCap));
  for (int place = count - 1; place >= 0; --place, number /= 10) {
    const QPointF at = corner + QPointF(place * wide * 1.55, 0);
    for (std::size_t i = 0; i < kStrokes.size(); ++i) {
      if (!(kLit[number % 10] >> i & 1)) continue;
      painter.drawLine(at + kStrokes[i].p1() * wide, at + kStrokes[i].p2() * wide);
    }
  }
}

unsigned Scramble(unsigned a, unsigned b) {
  unsigned mixed = a * 0x9E3779B1u + b * 0x85EBCA77u + 0x27D4EB2Fu;
  for (int round = 0; round < 3; ++round) {
    mixed ^= mixed >> 15;
    mixed *= 0x2C1B3C6Du;
  }
  return mixed ^ mixed >> 16;
}

double ScrambledShare(unsigned a, unsigned b) {
  return (Scramble(a, b) & 0xFFFF) / 65535.0;
}

}  // namespace tarvo::video
