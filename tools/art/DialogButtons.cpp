#include "DialogButtons.h"

#include <QPainter>

#include "Canvas.h"
#include "SkinParts.h"

namespace tarvo::art {
namespace {

constexpr int kWidth = 89;
constexpr int kHeight = 25;
constexpr double kEnd = kHeight / 2.0;

/// Flat, and of the colour of the button that has no picture and stands beside them.
const QColor kBar(128, 128, 255);

/// Small, since the narrowest button leaves its caption little room beside the sign.
void DrawSign(QPainter& painter, Reply reply) {
  painter.translate(reply == Reply::Agree ? 8.5 : 7.5, kEnd);
  painter.setPen(QPen(Qt::black, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  if (reply == Reply::Agree) {
    painter.drawPolyline(QPolygonF{{{-2.25, 0.25}, {-0.75, 1.75}, {2.25, -1.75}}});
  } else {
    painter.drawLine(QPointF(-1.75, -1.75), QPointF(1.75, 1.75));
    painter.drawLine(QPointF(-1.75, 1.75), QPointF(1.75, -1.75));
  }
}

}  // namespace

QImage ReplyPicture(Reply reply, int density) {
  return Drawn(kWidth * density, kHeight * density, [=](QPainter& painter) {
    painter.scale(density, density);
    FillRounded(painter, QRectF(0, 0, kWidth, kHeight), {kEnd, kEnd, kEnd, kEnd}, kBar);
    DrawSign(painter, reply);
  });
}

}  // namespace tarvo::art
