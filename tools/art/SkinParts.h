#pragma once

#include <QColor>
#include <QRectF>
#include <functional>

#include "controls/Button.h"

class QPainter;

namespace tarvo::art {

/// Fills an area in pixels at normal density with a part of the skin.
using Drawing = std::function<void(QPainter& painter, const QRectF& area)>;

/// Buttons and rows. From left to right each is uniform between ends half as long as it is high, so
/// that it can be stretched there. A lit one is brighter, and has a rim of another colour.
Drawing Pill(const QColor& colour);
Drawing LitPill(const QColor& colour, const QColor& rim);
Drawing Tab(const QColor& colour);
Drawing LitTab(const QColor& colour, const QColor& rim);
Drawing ChosenTab(const QColor& colour);  ///< Flat: its caption may be black or white.
Drawing Arrow(Button::Arrow arrow, const QColor& disc, const QColor& sign);
Drawing LitArrow(Button::Arrow arrow, const QColor& disc, const QColor& rim, const QColor& sign);
enum class Sign { Closed, Open, Dot };
Drawing Row(const QColor& colour, Sign sign, const QColor& ink);
Drawing LitRow(const QColor& colour, const QColor& rim);

/// Grounds and frames.
Drawing Heading(const QColor& accent, const QColor& ground);
Drawing CommandRow(const QColor& colour);
Drawing TabLine(const QColor& colour, const QColor& end);
enum class Side { Left, Right };
Drawing Bracket(Side side, const QColor& colour);

/// The part of the main menu's ground that begins `top` below its upper edge. Parts overlap alike.
Drawing MenuGround(int top);

/// A rectangle with its own roundings at the upper left, upper right, lower right and lower left.
struct Roundings {
  double upperLeft, upperRight, lowerRight, lowerLeft;
};
void FillRounded(QPainter& painter, const QRectF& area, const Roundings& roundings,
                 const QBrush& brush);

}  // namespace tarvo::art
