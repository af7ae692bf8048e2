#include "Badges.h"

#include <QPainter>
#include <QPainterPath>

#include "Canvas.h"
#include "controls/Palette.h"

namespace tarvo::art {
namespace {

constexpr int kSize = 41;
constexpr double kMargin = 1.25;  ///< For the mark of the focus.
constexpr QPointF kMiddle(20, 18.5);

const QColor kInk(34, 16, 48);

QColor ColourOf(Title title) {
  switch (title) {
    case Title::Information:
      return ToQt(palette::kBlue);
    case Title::Question:
      return ToQt(palette::kViolet);
    case Title::Warning:
      return ToQt(palette::kOrange);
    case Title::Critical:
      break;
  }
  return {255, 96, 80};
}

void DrawBubble(QPainter& painter, const QColor& colour) {
  QPainterPath round;
  round.addEllipse(kMiddle, 17, 16.5);
  QPainterPath tail(QPointF(7, 25));
  tail.quadTo(8, 35, 2.5, 39);
  tail.quadTo(14, 39, 19, 33);
  tail.closeSubpath();
  QLinearGradient shine(0, 2, 0, 36);
  shine.setColorAt(0, Mix(colour, Qt::white, 0.5));
  shine.setColorAt(0.5, colour);
  shine.setColorAt(1, Mix(colour, kInk, 0.22));
  painter.setBrush(shine);
  painter.setPen(QPen(kInk, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPath(round.united(tail));
}

void DrawDot(QPainter& painter, double x, double y) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(kInk);
  painter.drawEllipse(QPointF(x, y), 2.5, 2.5);
}

/// The signs are shapes, not letters, so that they come out the same with any fonts.
QPainterPath SignOf(Title title) {
  const double x = kMiddle.x();
  const double y = kMiddle.y();
  QPainterPath sign;
  switch (title) {
    case Title::Information:
      sign.moveTo(x - 2.5, y - 2);
      sign.lineTo(x, y - 2);
      sign.lineTo(x, y + 8);
      break;
    case Title::Question:
      sign.moveTo(x - 4.8, y - 4.6);
      sign.cubicTo(x - 4.8, y - 10.8, x + 5.2, y - 10.8, x + 5.2, y - 4.8);
      sign.cubicTo(x + 5.2, y - 1, x, y - 1, x, y + 3);
      break;
    case Title::Warning:
      sign.moveTo(x, y - 8.5);
      sign.lineTo(x, y + 2.2);
      break;
    case Title::Critical:
      sign.moveTo(x - 6, y - 6);
      sign.lineTo(x + 6, y + 6);
      sign.moveTo(x + 6, y - 6);
      sign.lineTo(x - 6, y + 6);
      break;
  }
  return sign;
}

void DrawSign(QPainter& painter, Title title) {
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(kInk, 4.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPath(SignOf(title));
  if (title == Title::Critical) return;
  const bool above = title == Title::Information;
  DrawDot(painter, kMiddle.x(), kMiddle.y() + (above ? -8 : 8.3));
}

void DrawStop(QPainter& painter) {
  const QPointF middle(32.5, 32.5);
  painter.setPen(QPen(ToQt(palette::kPeach), 1.4));
  painter.setBrush(kInk);
  painter.drawEllipse(middle, 7.3, 7.3);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ToQt(palette::kPeach));
  painter.drawRoundedRect(QRectF(middle.x() - 2.5, middle.y() - 2.5, 5, 5), 0.8, 0.8);
}

}  // namespace

QImage TitlePicture(Title title, int density) {
  return Drawn(kSize * density, kSize * density, [&](QPainter& painter) {
    painter.scale(density, density);
    painter.translate(kMargin, kMargin);
    painter.scale(1 - 2 * kMargin / kSize, 1 - 2 * kMargin / kSize);
    DrawBubble(painter, ColourOf(title));
    DrawSign(painter, title);
    DrawStop(painter);
  });
}

}  // namespace tarvo::art
