#include "desktop/MessageIcons.h"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <numbers>

#include "controls/Palette.h"
#include "desktop/Skin.h"

namespace tarvo {
namespace {

// All shapes stand in a square of 32 by 32.
constexpr qreal kSquare = 32;
constexpr QPointF kMiddle(kSquare / 2, kSquare / 2);

QPainterPath Disc() {
  QPainterPath path;
  path.addEllipse(kMiddle, 14, 14);
  return path;
}

/// A regular shape, its first corner straight above the middle but for `turned` of one side.
QPainterPath Polygon(int corners, qreal radius, qreal turned, QPointF middle) {
  QPolygonF shape;
  for (int i = 0; i < corners; ++i) {
    const qreal angle = (i + turned) * 2 * std::numbers::pi / corners;
    shape << middle + QPointF(radius * std::sin(angle), -radius * std::cos(angle));
  }
  QPainterPath path;
  path.addPolygon(shape);
  path.closeSubpath();
  return path;
}

/// The upright mark of i and !, `top` to `bottom`, its dot at `dot`.
void DrawUpright(QPainter& painter, qreal top, qreal bottom, qreal dot) {
  painter.drawLine(QPointF(16, top), QPointF(16, bottom));
  painter.drawPoint(QPointF(16, dot));
}

void DrawQuestionMark(QPainter& painter) {
  QPainterPath hook;
  hook.moveTo(11.8, 12.4);
  hook.cubicTo(11.8, 6.8, 20.4, 7, 20.4, 12.2);
  hook.cubicTo(20.4, 15.6, 16, 15.4, 16, 19);
  painter.drawPath(hook);
  painter.drawPoint(QPointF(16, 23.6));
}

void DrawCross(QPainter& painter) {
  painter.drawLine(QPointF(11.4, 11.4), QPointF(20.6, 20.6));
  painter.drawLine(QPointF(20.6, 11.4), QPointF(11.4, 20.6));
}

/// `shape` with rounded corners.
void Fill(QPainter& painter, const QPainterPath& shape, const QColor& colour) {
  painter.setBrush(colour);
  painter.setPen(QPen(colour, 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPath(shape);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(Qt::black, 3.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void Draw(QPainter& painter, MessageSign sign) {
  switch (sign) {
    case MessageSign::Information:
      Fill(painter, Disc(), ToQt(palette::kBlue));
      DrawUpright(painter, 15, 23, 9.4);
      break;
    case MessageSign::Question:
      Fill(painter, Disc(), ToQt(palette::kViolet));
      DrawQuestionMark(painter);
      break;
    case MessageSign::Exclamation:
      Fill(painter, Polygon(3, 16, 0, {16, 19}), ToQt(palette::kOrange));
      DrawUpright(painter, 10.6, 18, 23.4);
      break;
    case MessageSign::Critical:
      Fill(painter, Polygon(8, 14, 0.5, kMiddle), QColor(255, 102, 102));
      DrawCross(painter);
      break;
  }
}

class SignEngine : public QIconEngine {
 public:
  explicit SignEngine(MessageSign sign) : sign_(sign) {}

  void paint(QPainter* painter, const QRect& area, QIcon::Mode, QIcon::State) override {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(area.topLeft());
    painter->scale(area.width() / kSquare, area.height() / kSquare);
    Draw(*painter, sign_);
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap image(size);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return image;
  }

  QIconEngine* clone() const override { return new SignEngine(*this); }

 private:
  MessageSign sign_;
};

}  // namespace

QIcon MessageIcon(MessageSign sign) {
  return QIcon(new SignEngine(sign));
}

}  // namespace tarvo
