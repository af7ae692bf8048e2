#pragma once

#include <QColor>
#include <QPainter>
#include <numbers>

#include "controls/Palette.h"

namespace tarvo::video {

inline constexpr double kTurn = 2 * std::numbers::pi;  ///< Radians.

/// A colour of the skin with a share (0 to 1) of its light.
QColor Dimmed(const Colour& colour, double share);

/// A bar with round ends.
void DrawPill(QPainter& painter, const QRectF& area, const QColor& colour);

/// A number of fixed length out of strokes, each digit `height` / 2 wide.
void DrawDigits(QPainter& painter, QPointF corner, double height, unsigned number, int count,
                const QColor& colour);

/// A number with nothing behind it: equal for equal arguments, and without visible order.
unsigned Scramble(unsigned a, unsigned b);

/// The same between 0 and 1.
double ScrambledShare(unsigned a, unsigned b);

}  // namespace tarvo::video
