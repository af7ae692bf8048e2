#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "Drawing.h"
#include "Scenes.h"

namespace tarvo::video {
namespace {

constexpr double kWide = 249;
constexpr double kHigh = 129;
constexpr double kHorizon = 66;
constexpr QPointF kShip{124, 60};

struct Point {
  double x, y, z;  ///< Right, up, towards the viewer.
};

/// The right half of the hull: a slender body, a swept wing that is notched behind, and a fin.
constexpr std::array<Point, 13> kHull = {
    Point{0, 0, 66},     // 0: nose
    Point{8, 0, 14},     // 1: shoulder
    Point{0, 8, 6},      // 2: top of the body
    Point{0, -6, 4},     // 3: its foot
    Point{11, 0, -26},   // 4: hip
    Point{0, 7, -26},    // 5: top behind
    Point{0, -4, -26},   // 6: foot behind
    Point{0, 1, -40},    // 7: tail
    Point{30, -2, -14},  // 8: knee of the wing
    Point{56, -5, -50},  // 9: its tip
    Point{28, -2, -30},  // 10: its notch
    Point{0, 20, -42},   // 11: tip of the fin
    Point{0, 8, -8},     // 12: where the fin begins
};

struct Face {
  std::array<std::size_t, 3> corners;
  bool upper;
};

constexpr std::array<Face, 13> kFaces = {
    Face{{0, 1, 2}, true},  Face{{1, 4, 5}, true},  Face{{1, 2, 5}, true},  Face{{4, 5, 7}, true},
    Face{{1, 8, 4}, true},  Face{{8, 10, 4}, true}, Face{{8, 9, 10}, true}, Face{{5, 11, 12}, true},
    Face{{5, 7, 11}, true}, Face{{0, 1, 3}, false}, Face{{1, 4, 6}, false}, Face{{1, 3, 6}, false},
    Face{{4, 6, 7}, false},
};

/// Turned about the upright axis, seen a little from above.
Point Turned(const Point& point, double angle) {
  const double tilt = 0.42;
  const double x = point.x * std::cos(angle) + point.z * std::sin(angle);
  const double z = -point.x * std::sin(angle) + point.z * std::cos(angle);
  return {x, point.y * std::cos(tilt) - z * std::sin(tilt),
          point.y * std::sin(tilt) + z * std::cos(tilt)};
}

QPointF Seen(const Point& point, double lift) {
  const double nearness = 260 / (260 - point.z);
  return kShip + QPointF(point.x * nearness * 1.05, lift - point.y * nearness * 1.05);
}

void PaintGrid(QPainter& painter, double phase) {
  constexpr int kLines = 9;
  for (int i = -14; i <= 14; ++i) {
    QLinearGradient fade(0, kHorizon, 0, kHigh);
    fade.setColorAt(0, Qt::black);
    fade.setColorAt(1, Dimmed(palette::kBlue, 0.42));
    painter.setPen(QPen(QBrush(fade), 0.8));
    painter.drawLine(QPointF(kWide / 2 + i * 9, kHorizon), QPointF(kWide / 2 + i * 42, kHigh));
  }
  for (int i = 0; i < kLines; ++i) {
    // Comes on by two lines in a round.
    const double way = std::fmod((i + 2 * phase) / kLines, 1.0);
    const double y = kHorizon + (kHigh - kHorizon) * way * way;
    painter.setPen(QPen(Dimmed(palette::kBlue, 0.45 * way), 0.5 + 0.6 * way));
    painter.drawLine(QPointF(0, y), QPointF(kWide, y));
  }
}

/// Lets the grid end in the black that surrounds the picture.
void FadeSides(QPainter& painter) {
  QLinearGradient fade(0, 0, kWide, 0);
  for (const double side : {0.0, 1.0}) {
    fade.setColorAt(side, Qt::black);
    fade.setColorAt(0.5 + (side - 0.5) * 0.45, Qt::transparent);
  }
  painter.fillRect(QRectF(0, 0, kWide, kHigh), fade);
}

/// The ring under the ship, with marks that go against the ship's turn.
void PaintRing(QPainter& painter, double phase) {
  const auto at = [](double angle, double reach) {
    return kShip + QPointF(74 * reach * std::cos(angle), 20 + 27 * reach * std::sin(angle));
  };
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(Dimmed(palette::kViolet, 0.5), 0.9));
  painter.drawEllipse(kShip + QPointF(0, 20), 74, 27);
  constexpr int kMarks = 36;
  for (int i = 0; i < kMarks; ++i) {
    const double angle = kTurn * (i - 4 * phase) / kMarks;
    const bool strong = i % 4 == 0;
    painter.setPen(QPen(Dimmed(palette::kViolet, strong ? 0.9 : 0.4), strong ? 1.3 : 0.8));
    painter.drawLine(at(angle, 1), at(angle, strong ? 1.09 : 1.045));
  }
  painter.setPen(QPen(Dimmed(palette::kPeach, 0.9), 2.2, Qt::SolidLine, Qt::RoundCap));
  QPolygonF arc;
  for (int i = 0; i <= 12; ++i) arc << at(-kTurn * (phase + i * 0.01), 1);
  painter.drawPolyline(arc);
}

/// A face as it is seen.
struct Side {
  QPolygonF corners;
  double depth;  ///< Greater is nearer.
  bool upper;
};

void PaintShip(QPainter& painter, double phase) {
  const double lift = 1.6 * std::sin(kTurn * 2 * phase);
  std::vector<Side> sides;
  for (const Face& face : kFaces) {
    for (const double half : {1, -1}) {
      Side side{{}, face.upper ? 0.0 : -14.0, face.upper};
      for (const std::size_t corner : face.corners) {
        const Point& point = kHull[corner];
        const Point turned = Turned({half * point.x, point.y, point.z}, kTurn * (phase + 0.08));
        side.corners << Seen(turned, lift);
        side.depth += turned.z / 3;
      }
      sides.push_back(side);
    }
  }
  std::sort(sides.begin(), sides.end(),
            [](const Side& a, const Side& b) { return a.depth < b.depth; });
  for (const Side& side : sides) {
    const double light = std::clamp(0.8 + side.depth / 160, 0.5, 1.0);
    painter.setBrush(Dimmed(palette::kOrange, side.upper ? 0.17 * light : 0.08));
    painter.setPen(QPen(
        Dimmed(side.upper ? palette::kOrange : palette::kPeach, side.upper ? light : 0.4 * light),
        1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolygon(side.corners);
  }
}

void PaintGauges(QPainter& painter, double phase) {
  constexpr std::array<Colour, 4> kColours = {palette::kOrange, palette::kViolet, palette::kPeach,
                                              palette::kBlue};
  for (unsigned i = 0; i < 6; ++i) {
    const double swing = std::sin(kTurn * ((1 + i % 3) * phase + ScrambledShare(i, 1)));
    const double y = 6 + 7.0 * i;
    DrawPill(painter, {4, y, 40, 4}, Dimmed(kColours[i % 4], 0.16));
    DrawPill(painter, {4, y, 22 + 15 * swing, 4}, Dimmed(kColours[i % 4], 0.85));
  }
  for (unsigned row = 0; row < 4; ++row) {
    const auto step = static_cast<unsigned>(std::floor(phase * 6 + row / 4.0)) % 6;
    DrawDigits(painter, {kWide - 41, 6.5 + 10.0 * row}, 6.5, Scramble(step, row), 7,
               Dimmed(row == 1 ? palette::kPeach : palette::kBlue, 0.75));
  }
}

void PaintMain(QPainter& painter, double phase) {
  PaintGrid(painter, phase);
  FadeSides(painter);
  PaintRing(painter, phase);
  PaintShip(painter, phase);
  PaintGauges(painter, phase);
}

}  // namespace

const Scene kMainScene{"LCARS_Main.MOV", {249, 129}, PaintMain};

}  // namespace tarvo::video
