#include <QPainter>
#include <QPainterPath>

#include "Canvas.h"
#include "SkinParts.h"
#include "controls/Palette.h"

namespace tarvo::art {
namespace {

const QColor kOrange = ToQt(palette::kOrange);
const QColor kPeach = ToQt(palette::kPeach);
const QColor kViolet = ToQt(palette::kViolet);
const QColor kBlue = ToQt(palette::kBlue);

/// Places on the main menu, in pixels.
constexpr double kLeft = 20;        ///< The column on the left.
constexpr double kInner = 72;       ///< Where it ends.
constexpr double kRight = 619;      ///< The frame's right edge.
constexpr double kGap = 4;          ///< Between parts.
constexpr double kNotchLeft = 427;  ///< The title stands between these two.
constexpr double kNotchRight = 526;
constexpr double kWorkRight = 539;  ///< Where the work screens end.

/// A column that turns into a bar. The bar leads to the right from the column's upper end, or from
/// its lower one where `barTop` lies below `columnEnd`.
struct Elbow {
  double barTop, barBottom, barEnd, columnEnd;
  double outer, inner;  ///< Radii.
};

void DrawElbow(QPainter& painter, const Elbow& at, const QColor& colour) {
  const bool down = at.columnEnd > at.barTop;
  const double side = down ? 1 : -1;
  const double near = down ? at.barTop : at.barBottom;
  const double far = down ? at.barBottom : at.barTop;
  const auto turn = [&](QPainterPath& path, double x, double y, double radius, double sweep) {
    const QRectF square(x, down ? y : y - 2 * radius, 2 * radius, 2 * radius);
    if (sweep < 0) {
      path.arcTo(square, 180, down ? -90 : 90);
    } else {
      path.arcTo(square, down ? 90 : 270, down ? 90 : -90);
    }
  };
  QPainterPath path(QPointF(kLeft, at.columnEnd));
  path.lineTo(kLeft, near + side * at.outer);
  turn(path, kLeft, near, at.outer, -1);
  path.lineTo(at.barEnd, near);
  path.lineTo(at.barEnd, far);
  path.lineTo(kInner + at.inner, far);
  turn(path, kInner, far, at.inner, 1);
  path.lineTo(kInner, at.columnEnd);
  path.closeSubpath();
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  painter.drawPath(path);
}

void DrawBlock(QPainter& painter, double left, double top, double right, double bottom,
               const QColor& colour) {
  painter.fillRect(QRectF(left, top, right - left, bottom - top), colour);
}

/// A bar that ends the frame on the right.
void DrawEnd(QPainter& painter, double left, double top, double bottom, const QColor& colour) {
  const double radius = (bottom - top) / 2;
  FillRounded(painter, {left, top, kRight - left, bottom - top}, {0, radius, radius, 0}, colour);
}

/// Around the buttons and the name.
void DrawUpper(QPainter& painter) {
  constexpr double kTop = 84;
  constexpr double kBottom = 90;
  DrawBlock(painter, kLeft, 0, kInner, 20, kBlue);
  DrawElbow(painter, {kTop, kBottom, 344, 20 + kGap, 26, 10}, kViolet);
  DrawBlock(painter, 344 + kGap, kTop, kNotchLeft, kBottom, kBlue);
  DrawEnd(painter, kNotchRight, kTop, kBottom, kViolet);
}

/// Around the title and the work screens.
void DrawLower(QPainter& painter) {
  constexpr double kTop = 94;
  constexpr double kBottom = 111;
  DrawElbow(painter, {kTop, kBottom, 344, 170, 26, 12}, kOrange);
  DrawBlock(painter, 344 + kGap, kTop, kNotchLeft, kBottom, kPeach);
  DrawEnd(painter, kNotchRight, kTop, kBottom, kOrange);
  DrawBlock(painter, kLeft, 170 + kGap, kInner, 264, kPeach);
  DrawBlock(painter, kLeft, 264 + kGap, kInner, 296, kOrange);
  DrawBlock(painter, kLeft, 296 + kGap, kInner, 386, kViolet);
  DrawElbow(painter, {460, 468, 420, 386 + kGap, 26, 10}, kBlue);
  DrawBlock(painter, 420 + kGap, 460, kWorkRight, 468, kViolet);
  DrawEnd(painter, kWorkRight + kGap, 460, 468, kOrange);
}

/// Between the numbers on the right.
void DrawMarks(QPainter& painter) {
  const QColor quiet = Mix(kViolet, Qt::black, 0.72);
  for (int mark = 0; mark < 8; ++mark) {
    const double top = 124 + 43 * mark;
    DrawBlock(painter, 556, top, 608, top + 2, quiet);
    DrawBlock(painter, 611, top, kRight, top + 2, Mix(kViolet, Qt::black, 0.35));
  }
}

}  // namespace

Drawing Heading(const QColor& accent, const QColor& ground) {
  return [=](QPainter& painter, const QRectF& area) {
    QRectF block = area;
    block.setWidth(4);
    FillRounded(painter, block, {4, 0, 0, 4}, accent);
    FillRounded(painter, area.adjusted(6, 0, 0, 0), {0, 6, 6, 0}, ground);
  };
}

/// Marks at both ends; black between them, like the ground of the buttons that stand there.
Drawing CommandRow(const QColor& colour) {
  return [=](QPainter& painter, const QRectF& area) {
    constexpr double kWidth = 3;
    constexpr double kRound = kWidth / 2;
    for (const double left : {area.left(), area.right() - kWidth}) {
      FillRounded(painter, {left, area.top() + 3, kWidth, area.height() - 6},
                  {kRound, kRound, kRound, kRound}, colour);
    }
  };
}

/// In the upper part: the rest is covered by what stands below the line.
Drawing TabLine(const QColor& colour, const QColor& end) {
  return [=](QPainter& painter, const QRectF& area) {
    const double height = area.height() - 2;
    const double radius = height / 2;
    const double cut = area.right() - 14;
    FillRounded(painter, {area.left(), area.top(), cut - 3, height}, {radius, 0, 0, radius},
                colour);
    FillRounded(painter, {cut, area.top(), 14, height}, {0, radius, radius, 0}, end);
  };
}

Drawing Bracket(Side side, const QColor& colour) {
  return [=](QPainter& painter, const QRectF& area) {
    painter.save();
    if (side == Side::Right) {
      painter.translate(area.right(), 0);
      painter.scale(-1, 1);
    }
    FillRounded(painter, area, {6, 0, 0, 6}, colour);
    FillRounded(painter, area.adjusted(3, 3, 0, -3), {3, 0, 0, 3}, Qt::black);
    painter.restore();
  };
}

Drawing MenuGround(int top) {
  return [=](QPainter& painter, const QRectF& area) {
    painter.save();
    painter.setClipRect(area);
    painter.translate(0, -top);
    DrawUpper(painter);
    DrawLower(painter);
    DrawMarks(painter);
    painter.restore();
  };
}

}  // namespace tarvo::art
