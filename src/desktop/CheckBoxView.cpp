#include "desktop/CheckBoxView.h"

#include <QKeyEvent>
#include <QPainter>

#include "desktop/Skin.h"

namespace tarvo {

TickButton::TickButton(QWidget* parent) : QAbstractButton(parent) {
  setCheckable(true);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
}

void TickButton::SetColour(const QColor& colour) {
  if (colour == colour_) return;
  colour_ = colour;
  update();
}

void TickButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  if (!isEnabled()) painter.setOpacity(0.4);
  const qreal side = std::min(17, height());
  const QRectF square = QRectF(0, (height() - side) / 2, side, side).adjusted(1, 1, -1, -1);
  const QColor shown = underMouse() ? Mix(colour_, Qt::white, 0.35) : colour_;
  painter.setPen(QPen(shown, hasFocus() ? 2 : 1.2));
  painter.setBrush(isChecked() ? QBrush(shown) : QBrush(Qt::NoBrush));
  painter.drawRoundedRect(square, 3, 3);
  if (isChecked()) {
    painter.setPen(QPen(Qt::black, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const auto at = [&](qreal x, qreal y) {
      return square.topLeft() + QPointF(square.width() * x, square.height() * y);
    };
    painter.drawPolyline(QPolygonF{{at(0.24, 0.53), at(0.43, 0.72), at(0.77, 0.3)}});
  }
  const QRectF caption = QRectF(rect()).adjusted(side + 8, 0, 0, 0);
  painter.setPen(shown);
  painter.drawText(caption, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, text());
  if (!hasFocus()) return;
  // Around the caption, or around the square where there is none.
  const QRectF ring = text().isEmpty()
                          ? QRectF(0, (height() - side) / 2, side, side)
                          : painter.boundingRect(caption, Qt::AlignLeft | Qt::AlignVCenter, text())
                                .adjusted(-4, -2, 4, 2);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(shown, 1));
  painter.drawRoundedRect(ring, 3, 3);
}

void TickButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape || event->key() == Qt::Key_Return ||
      event->key() == Qt::Key_Enter) {
    event->ignore();  // The form's buttons have them.
  } else {
    QAbstractButton::keyPressEvent(event);
  }
}

CheckBoxView::CheckBoxView(CheckBox& model, QWidget* parent)
    : ViewOf(model, new TickButton(parent)) {
  QObject::connect(&face_, &QAbstractButton::clicked, &face_, [this] {
    if (Live()) model_.Click();
  });
}

void CheckBoxView::Apply() {
  const QString caption = ToQt(model_.Caption);
  if (face_.text() != caption) face_.setText(caption);
  face_.setChecked(model_.Checked);
  face_.SetColour(ToQt(model_.ForeColour));
  ApplyCommon();
}

}  // namespace tarvo
