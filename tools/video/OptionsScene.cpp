#include <array>
#include <cmath>

#include "Drawing.h"
#include "Scenes.h"

namespace tarvo::video {
namespace {

constexpr double kWide = 207;
constexpr double kHigh = 171;
constexpr QPointF kCentre{103.5, 85.5};
constexpr double kReach = 68;

QPointF OnDial(double angle, double radius) {
  return kCentre + QPointF(std::sin(angle), -std::cos(angle)) * radius;
}

void PaintGround(QPainter& painter) {
  painter.setPen(QPen(Dimmed(palette::kBlue, 0.13), 0.7));
  for (double x = kCentre.x() - 5 * 18; x < kWide; x += 18) {
    painter.drawLine(QPointF(x, 6), QPointF(x, kHigh - 6));
  }
  for (double y = kCentre.y() - 4 * 18; y < kHigh; y += 18) {
    painter.drawLine(QPointF(6, y), QPointF(kWide - 6, y));
  }
  painter.setPen(Qt::NoPen);
  painter.setBrush(Qt::black);
  painter.drawEllipse(kCentre, kReach, kReach);
}

/// The beam, and the light that it leaves behind for a third of a turn.
void PaintSweep(QPainter& painter, double phase) {
  // A conical gradient begins at three o'clock and runs against the clock, as does its tail here.
  QConicalGradient tail(kCentre, 90 - 360 * phase);
  tail.setColorAt(0, Dimmed(palette::kBlue, 0.55));
  tail.setColorAt(0.12, Dimmed(palette::kBlue, 0.2));
  tail.setColorAt(0.34, Qt::black);
  tail.setColorAt(1, Qt::black);
  painter.setPen(Qt::NoPen);
  painter.setBrush(tail);
  painter.drawEllipse(kCentre, kReach, kReach);
}

void PaintDial(QPainter& painter) {
  painter.setBrush(Qt::NoBrush);
  for (int ring = 1; ring <= 4; ++ring) {
    const bool rim = ring == 4;
    painter.setPen(
        QPen(Dimmed(rim ? palette::kOrange : palette::kViolet, rim ? 0.9 : 0.3), rim ? 2 : 0.8));
    painter.drawEllipse(kCentre, kReach * ring / 4, kReach * ring / 4);
  }
  for (int mark = 0; mark < 48; ++mark) {
    const double angle = kTurn * mark / 48;
    const bool strong = mark % 4 == 0;
    painter.setPen(QPen(Dimmed(palette::kPeach, strong ? 0.85 : 0.35), strong ? 1.3 : 0.8));
    painter.drawLine(OnDial(angle, kReach + 4), OnDial(angle, kReach + (strong ? 10 : 7)));
  }
  painter.setPen(QPen(Dimmed(palette::kViolet, 0.3), 0.8));
  painter.drawLine(OnDial(0, kReach), OnDial(kTurn / 2, kReach));
  painter.drawLine(OnDial(kTurn / 4, kReach), OnDial(kTurn * 3 / 4, kReach));
}

/// Places on the dial that light up under the beam.
void PaintEchoes(QPainter& painter, double phase) {
  for (unsigned i = 0; i < 9; ++i) {
    const double angle = (i + 0.7 * ScrambledShare(i, 3)) / 9;
    const double radius = kReach * (0.22 + 0.7 * ScrambledShare(i, 4));
    const double age = phase - angle - std::floor(phase - angle);
    const double light = std::max(0.0, 1 - age * 1.5) * (1 - std::exp(-age * 120));
    if (light <= 0) continue;
    const Colour& colour = i % 3 == 0 ? palette::kOrange : palette::kPeach;
    painter.setPen(Qt::NoPen);
    painter.setBrush(Dimmed(colour, light));
    painter.drawEllipse(OnDial(kTurn * angle, radius), 2.1, 2.1);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Dimmed(colour, 0.5 * light * light), 0.8));
    painter.drawEllipse(OnDial(kTurn * angle, radius), 2.5 + 9 * age, 2.5 + 9 * age);
  }
}

void PaintBeam(QPainter& painter, double phase) {
  painter.setPen(QPen(Dimmed(palette::kBlue, 1), 1.5, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(kCentre, OnDial(kTurn * phase, kReach - 1));
  painter.setPen(QPen(Dimmed(palette::kPeach, 1), 3, Qt::SolidLine, Qt::RoundCap));
  painter.drawPoint(OnDial(kTurn * phase, kReach + 7));
  painter.setPen(Qt::NoPen);
  painter.setBrush(Dimmed(palette::kOrange, 1));
  painter.drawEllipse(kCentre, 2.6, 2.6);
}

void PaintCorners(QPainter& painter, double phase) {
  for (unsigned i = 0; i < 3; ++i) {
    const double swing = std::sin(kTurn * ((1 + i) * phase + ScrambledShare(i, 7)));
    DrawPill(painter, {8, 9 + 7.0 * i, 17 + 7 * swing, 4},
             Dimmed(i == 1 ? palette::kViolet : palette::kOrange, 0.8));
    DrawPill(painter, {kWide - 8 - (17 - 7 * swing), kHigh - 27 + 7.0 * i, 17 - 7 * swing, 4},
             Dimmed(i == 1 ? palette::kPeach : palette::kBlue, 0.8));
  }
  const auto degrees = static_cast<unsigned>(phase * 360);
  DrawDigits(painter, {kWide - 26, 9.5}, 7, degrees, 3, Dimmed(palette::kPeach, 0.85));
  DrawDigits(painter, {9, kHigh - 17}, 7, Scramble(degrees / 60, 5), 3,
             Dimmed(palette::kViolet, 0.85));
}

void PaintOptions(QPainter& painter, double phase) {
  PaintGround(painter);
  PaintSweep(painter, phase);
  PaintDial(painter);
  PaintEchoes(painter, phase);
  PaintBeam(painter, phase);
  PaintCorners(painter, phase);
}

}  // namespace

const Scene kOptionsScene{"LCARS_Options.MOV", {207, 171}, PaintOptions};

}  // namespace tarvo::video
