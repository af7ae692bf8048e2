#include "desktop/PanelViews.h"

#include <QPainter>

#include "desktop/Skin.h"

namespace tarvo {

Panel::Panel(QWidget* parent, qreal radius) : QWidget(parent), radius_(radius) {}

void Panel::SetColours(const QColor& ground, const QColor& outline) {
  ground_ = ground;
  outline_ = outline;
}

void Panel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(outline_.alpha() ? QPen(outline_, 1) : QPen(Qt::NoPen));
  painter.setBrush(ground_);
  const qreal inset = outline_.alpha() ? 0.5 : 0;
  painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), radius_, radius_);
}

FrameView::FrameView(Frame& model, QWidget* parent) : ViewOf(model, new Panel(parent, 6)) {}

void FrameView::Apply() {
  QColor outline = ToQt(model_.ForeColour);
  if (model_.ForeColour == kBlack) outline.setAlpha(0);
  face_.SetColours(ToQt(model_.BackColour), outline);
  ApplyCommon();
}

ShapeView::ShapeView(Shape& model, QWidget* parent) : ViewOf(model, new Panel(parent, 0)) {
  face_.setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ShapeView::Apply() {
  face_.SetColours(ToQt(model_.BackColour), ToQt(model_.ForeColour));
  face_.SetRadius(ToPixels(model_.Rounding));
  ApplyCommon();
}

}  // namespace tarvo
