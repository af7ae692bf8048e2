#include <QPainter>
#include <QPainterPath>
#include <cmath>

#include "Canvas.h"
#include "SkinParts.h"

namespace tarvo::art {
namespace {

constexpr double kRim = 2;

/// A hint of light from above.
QLinearGradient Lit(const QColor& colour, const QRectF& area) {
  QLinearGradient light(area.topLeft(), area.bottomLeft());
  light.setColorAt(0, Mix(colour, Qt::white, 0.1));
  light.setColorAt(0.5, colour);
  light.setColorAt(1, Mix(colour, Qt::black, 0.06));
  return light;
}

/// The same for what joins a line at its foot.
QLinearGradient LitFromTop(const QColor& colour, const QRectF& area) {
  QLinearGradient light = Lit(colour, area);
  light.setColorAt(1, colour);
  return light;
}

Roundings Ends(const QRectF& area) {
  const double radius = area.height() / 2;
  return {radius, radius, radius, radius};
}

/// Round at the top; the foot is straight.
Roundings Tops(double radius) {
  return {radius, radius, 0, 0};
}

constexpr double kTabRadius = 9;

int DegreesFromUp(Button::Arrow arrow) {
  switch (arrow) {
    case Button::Arrow::Right:
      return 90;
    case Button::Arrow::Down:
      return 180;
    case Button::Arrow::Left:
      return 270;
    default:
      return 0;
  }
}

void DrawArrow(QPainter& painter, Button::Arrow arrow, const QPointF& middle, const QColor& sign) {
  painter.save();
  painter.translate(middle);
  painter.rotate(DegreesFromUp(arrow));
  painter.setBrush(sign);
  painter.setPen(QPen(sign, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolygon(QPolygonF{{{-5, 3}, {0, -4}, {5, 3}}});
  painter.restore();
}

void DrawSign(QPainter& painter, Sign sign, const QPointF& middle, const QColor& ink) {
  painter.save();
  painter.translate(middle);
  if (sign == Sign::Dot) {
    painter.setBrush(ink);
    painter.drawEllipse(QPointF(0, 0), 2, 2);
  } else {
    if (sign == Sign::Open) painter.rotate(90);
    QPainterPath angle(QPointF(-1.75, -3.5));
    angle.lineTo(1.75, 0);
    angle.lineTo(-1.75, 3.5);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(ink, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(angle);
  }
  painter.restore();
}

QPointF SignPlace(const QRectF& area) {
  return {area.left() + 12, area.center().y()};
}

}  // namespace

void FillRounded(QPainter& painter, const QRectF& area, const Roundings& roundings,
                 const QBrush& brush) {
  const auto corner = [&](double x, double y, double radius, double right, double down) {
    return QRectF(x - (right > 0 ? 0 : 2 * radius), y - (down > 0 ? 0 : 2 * radius), 2 * radius,
                  2 * radius);
  };
  QPainterPath path(QPointF(area.left(), area.top() + roundings.upperLeft));
  const auto turn = [&](const QRectF& square, const QPointF& point, double start) {
    if (square.isEmpty()) {
      path.lineTo(point);
    } else {
      path.arcTo(square, start, -90);
    }
  };
  turn(corner(area.left(), area.top(), roundings.upperLeft, 1, 1), area.topLeft(), 180);
  turn(corner(area.right(), area.top(), roundings.upperRight, -1, 1), area.topRight(), 90);
  turn(corner(area.right(), area.bottom(), roundings.lowerRight, -1, -1), area.bottomRight(), 0);
  turn(corner(area.left(), area.bottom(), roundings.lowerLeft, 1, -1), area.bottomLeft(), 270);
  path.closeSubpath();
  painter.setPen(Qt::NoPen);
  painter.setBrush(brush);
  painter.drawPath(path);
}

Drawing Pill(const QColor& colour) {
  return [=](QPainter& painter, const QRectF& area) {
    FillRounded(painter, area, Ends(area), Lit(colour, area));
  };
}

Drawing LitPill(const QColor& colour, const QColor& rim) {
  return [=](QPainter& painter, const QRectF& area) {
    FillRounded(painter, area, Ends(area), rim);
    const QRectF inside = area.adjusted(kRim, kRim, -kRim, -kRim);
    FillRounded(painter, inside, Ends(inside), colour);
  };
}

Drawing Tab(const QColor& colour) {
  return [=](QPainter& painter, const QRectF& area) {
    FillRounded(painter, area, Tops(kTabRadius), LitFromTop(colour, area));
  };
}

Drawing ChosenTab(const QColor& colour) {
  return [colour](QPainter& painter, const QRectF& area) {
    FillRounded(painter, area, Tops(kTabRadius), colour);
  };
}

Drawing LitTab(const QColor& colour, const QColor& rim) {
  return [=](QPainter& painter, const QRectF& area) {
    FillRounded(painter, area, Tops(kTabRadius), rim);
    FillRounded(painter, area.adjusted(kRim, kRim, -kRim, 0), Tops(kTabRadius - kRim), colour);
  };
}

Drawing Arrow(Button::Arrow arrow, const QColor& disc, const QColor& sign) {
  return [=](QPainter& painter, const QRectF& area) {
    FillRounded(painter, area, Ends(area), Lit(disc, area));
    DrawArrow(painter, arrow, area.center(), sign);
  };
}

Drawing LitArrow(Button::Arrow arrow, const QColor& disc, const QColor& rim, const QColor& sign) {
  return [=](QPainter& painter, const QRectF& area) {
    LitPill(disc, rim)(painter, area);
    DrawArrow(painter, arrow, area.center(), sign);
  };
}

Drawing Row(const QColor& colour, Sign sign, const QColor& ink) {
  return [=](QPainter& painter, const QRectF& area) {
    FillRounded(painter, area, Ends(area), Lit(colour, area));
    DrawSign(painter, sign, SignPlace(area), ink);
  };
}

Drawing LitRow(const QColor& colour, const QColor& rim) {
  return [=](QPainter& painter, const QRectF& area) {
    FillRounded(painter, area, Ends(area), rim);
    const QRectF inside = area.adjusted(kRim, kRim, -kRim, -kRim);
    FillRounded(painter, inside, Ends(inside), colour);
    DrawSign(painter, Sign::Dot, SignPlace(area), Qt::white);
  };
}

}  // namespace tarvo::art
