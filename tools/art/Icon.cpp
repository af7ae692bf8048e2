#include "Icon.h"

#include <QPainter>
#include <QPainterPath>

#include "Canvas.h"
#include "controls/Palette.h"

namespace tarvo::art {
namespace {

/// Places of the parts, in pixels of the icon. Ship and crate stand in its middle.
struct Layout {
  double size;
  double nose, span;           ///< Tip of the ship, and half of its width.
  double lipTop, lipBottom;    ///< The upper bar of the crate.
  double bodyTop, bodyBottom;  ///< The blocks below it.
  double lipLeft, bodyLeft;
  double split;  ///< Where the left block ends.
  double gap;    ///< Between bars.

  double Unit() const { return size / 100; }
  double Middle() const { return size / 2; }
  double HullHeight() const { return lipTop - gap - nose; }
};

Layout LayoutOf(int size) {
  switch (size) {
    case 16:
      return {16, 1, 5, 9, 11, 12, 14, 2, 3, 9, 1};
    case 22:
      return {22, 2, 7, 13, 15, 16, 20, 3, 4, 12, 1};
    case 24:
      return {24, 2, 8, 14, 17, 18, 22, 3, 4, 14, 1};
    default:
      break;
  }
  const auto at = [size](double percent) {
    return static_cast<double>(qRound(percent * size / 100));
  };
  return {static_cast<double>(size),
          at(7),
          at(30),
          at(58),
          at(67),
          at(70),
          at(90),
          at(12),
          at(16),
          at(58),
          std::max(1.0, at(3))};
}

void DrawTile(QPainter& painter, const Layout& at) {
  const double rim = at.size < 32 ? 1 : at.size * 0.022;
  const QRectF area = QRectF(0, 0, at.size, at.size).adjusted(rim / 2, rim / 2, -rim / 2, -rim / 2);
  QLinearGradient ground(0, 0, 0, at.size);
  ground.setColorAt(0, QColor(30, 26, 48));
  ground.setColorAt(0.6, QColor(8, 7, 14));
  ground.setColorAt(1, Qt::black);
  painter.setBrush(ground);
  painter.setPen(QPen(Mix(ToQt(palette::kPanel), ToQt(palette::kViolet), 0.42), rim));
  painter.drawRoundedRect(area, at.size * 0.19, at.size * 0.19);
  painter.setPen(Qt::NoPen);
}

void DrawStars(QPainter& painter, const Layout& at) {
  struct Star {
    double x, y, radius;
  };
  painter.setBrush(WithAlpha(ToQt(palette::kPeach), 0.85));
  for (const Star& star : {Star{19, 22, 1.3},
                           {31, 13, 0.9},
                           {13, 40, 0.8},
                           {82, 18, 0.9},
                           {72, 28, 1.2},
                           {87, 38, 1.0},
                           {27, 33, 0.7}}) {
    const double u = at.Unit();
    painter.drawEllipse(QPointF(star.x, star.y) * u, star.radius * u, star.radius * u);
  }
}

/// The light that the engines throw out of the crate.
void DrawGlow(QPainter& painter, const Layout& at) {
  QRadialGradient glow(QPointF(at.Middle(), at.lipTop), at.size * 0.42);
  const QColor blue = ToQt(palette::kBlue);
  glow.setColorAt(0, WithAlpha(blue, 0.75));
  glow.setColorAt(0.45, WithAlpha(blue, 0.22));
  glow.setColorAt(1, WithAlpha(blue, 0));
  painter.setBrush(glow);
  const double rim = at.size * 0.03;
  painter.drawRect(QRectF(rim, at.nose, at.size - 2 * rim, at.lipTop - at.nose));
}

/// The outline of one half of the ship; side is -1 for the left half.
QPainterPath HalfHull(const Layout& at, double side) {
  const auto place = [&](double out, double down) {
    return QPointF(at.Middle() + side * at.span * out, at.nose + at.HullHeight() * down);
  };
  QPainterPath hull(place(0, 0));
  hull.cubicTo(place(0.18, 0.10), place(0.30, 0.26), place(0.31, 0.52));
  hull.lineTo(place(0.92, 0.80));
  hull.quadTo(place(1, 0.84), place(1, 1));
  hull.lineTo(place(0, 1));
  hull.closeSubpath();
  return hull;
}

/// The pod that stands on the middle of a wing.
void DrawPod(QPainter& painter, const Layout& at, double side) {
  const double half = at.span * 0.09;
  const double x = at.Middle() + side * at.span * 0.63;
  const double top = at.nose + at.HullHeight() * 0.54;
  const double bottom = at.nose + at.HullHeight();
  QPainterPath pod(QPointF(x - half, bottom));
  pod.lineTo(x - half, top + 2 * half);
  pod.quadTo(x - half * 0.7, top, x, top - half);
  pod.quadTo(x + half * 0.7, top, x + half, top + 2 * half);
  pod.lineTo(x + half, bottom);
  pod.closeSubpath();
  painter.setBrush(side < 0 ? ToQt(palette::kViolet) : Mix(ToQt(palette::kViolet), Qt::black, 0.3));
  painter.drawPath(pod);
}

void DrawCanopy(QPainter& painter, const Layout& at) {
  const double half = at.span * 0.13;
  const auto place = [&](double out, double down) {
    return QPointF(at.Middle() + half * out, at.nose + at.HullHeight() * down);
  };
  QPainterPath canopy(place(0, 0.24));
  canopy.quadTo(place(1, 0.36), place(0.9, 0.50));
  canopy.quadTo(place(0, 0.58), place(-0.9, 0.50));
  canopy.quadTo(place(-1, 0.36), place(0, 0.24));
  painter.setBrush(Mix(ToQt(palette::kBlue), QColor(40, 40, 110), 0.6));
  painter.drawPath(canopy);
}

void DrawShip(QPainter& painter, const Layout& at) {
  painter.setBrush(Mix(ToQt(palette::kPeach), Qt::white, 0.6));
  painter.drawPath(HalfHull(at, -1));
  painter.setBrush(Mix(ToQt(palette::kPeach), QColor(150, 80, 70), 0.42));
  painter.drawPath(HalfHull(at, 1));
  if (at.size >= 32) DrawCanopy(painter, at);
  if (at.size < 48) return;
  DrawPod(painter, at, -1);
  DrawPod(painter, at, 1);
  painter.setPen(QPen(QColor(70, 40, 50, 130), at.size * 0.01, Qt::SolidLine, Qt::FlatCap));
  for (const double side : {-1.0, 1.0}) {
    const double x = at.Middle() + side * at.span * 0.31;
    painter.drawLine(QPointF(x, at.nose + at.HullHeight() * 0.54),
                     QPointF(x, at.nose + at.HullHeight()));
  }
  painter.setPen(Qt::NoPen);
}

/// A block with one rounded lower corner, that of the crate.
void DrawBlock(QPainter& painter, const QRectF& area, double radius, bool left) {
  QPainterPath block(area.topLeft());
  block.lineTo(area.topRight());
  if (left) {
    block.lineTo(area.bottomRight());
    block.lineTo(area.left() + radius, area.bottom());
    block.quadTo(area.bottomLeft(), QPointF(area.left(), area.bottom() - radius));
  } else {
    block.lineTo(area.right(), area.bottom() - radius);
    block.quadTo(area.bottomRight(), QPointF(area.right() - radius, area.bottom()));
    block.lineTo(area.bottomLeft());
  }
  block.closeSubpath();
  painter.drawPath(block);
}

void DrawCrate(QPainter& painter, const Layout& at) {
  const double height = at.lipBottom - at.lipTop;
  painter.setBrush(ToQt(palette::kOrange));
  painter.drawRoundedRect(QRectF(at.lipLeft, at.lipTop, at.size - 2 * at.lipLeft, height),
                          height / 2, height / 2);
  const double bodyHeight = at.bodyBottom - at.bodyTop;
  const double radius = at.size < 32 ? 1.5 : at.size * 0.07;
  const double right = at.split + at.gap;
  painter.setBrush(ToQt(palette::kViolet));
  DrawBlock(painter, {at.bodyLeft, at.bodyTop, at.split - at.bodyLeft, bodyHeight}, radius, true);
  painter.setBrush(ToQt(palette::kBlue));
  DrawBlock(painter, {right, at.bodyTop, at.size - at.bodyLeft - right, bodyHeight}, radius, false);
  if (at.size < 32) return;
  const double u = at.Unit();
  painter.setBrush(QColor(60, 30, 70));
  const double line = std::max(2.0, std::round(4 * u));
  const double top = std::round(at.bodyTop + bodyHeight / 2 - line / 2);
  const double left = std::round(at.bodyLeft + 8 * u);
  painter.drawRoundedRect(QRectF(left, top, std::round(20 * u), line), line / 2, line / 2);
}

/// A sheet with a folded corner, on the tile's ground.
void DrawSheet(QPainter& painter, int size) {
  const double rim = size < 32 ? 1 : size * 0.022;
  const double left = std::round(size * 0.13) + rim / 2;
  const double right = size - left;
  const double top = std::round(size * 0.03) + rim / 2;
  const double bottom = size - top;
  const double fold = std::round(size * 0.22);
  const double radius = size * 0.07;
  QPainterPath sheet(QPointF(left + radius, top));
  sheet.lineTo(right - fold, top);
  sheet.lineTo(right, top + fold);
  sheet.lineTo(right, bottom - radius);
  sheet.quadTo(right, bottom, right - radius, bottom);
  sheet.lineTo(left + radius, bottom);
  sheet.quadTo(left, bottom, left, bottom - radius);
  sheet.lineTo(left, top + radius);
  sheet.quadTo(left, top, left + radius, top);
  const QColor violet = ToQt(palette::kViolet);
  painter.setPen(QPen(Mix(ToQt(palette::kPanel), violet, 0.6), rim, Qt::SolidLine, Qt::RoundCap,
                      Qt::RoundJoin));
  painter.setBrush(QColor(16, 14, 26));
  painter.drawPath(sheet);
  painter.setBrush(Mix(ToQt(palette::kPanel), violet, 0.75));
  painter.drawPolygon(
      QPolygonF{{{right - fold, top}, {right - fold, top + fold}, {right, top + fold}}});
  painter.setPen(Qt::NoPen);
}

}  // namespace

QImage PackageIcon(int size) {
  const int side = 2 * qRound(size * 0.32);
  const Layout at = LayoutOf(side);
  return Drawn(size, size, [&](QPainter& painter) {
    painter.setPen(Qt::NoPen);
    DrawSheet(painter, size);
    painter.translate((size - side) / 2, qRound(size * 0.29));
    DrawShip(painter, at);
    DrawCrate(painter, at);
  });
}

QImage ProgramIcon(int size) {
  const Layout at = LayoutOf(size);
  return Drawn(size, size, [&](QPainter& painter) {
    painter.setPen(Qt::NoPen);
    DrawTile(painter, at);
    if (size >= 64) DrawStars(painter, at);
    if (size >= 32) DrawGlow(painter, at);
    DrawShip(painter, at);
    DrawCrate(painter, at);
  });
}

}  // namespace tarvo::art
