#include "desktop/ImageView.h"

#include <QPainter>

#include "desktop/Pictures.h"
#include "desktop/Skin.h"

namespace tarvo {
namespace {

constexpr qreal kRounding = 6;  ///< Of the ground that shows where there is no picture.

}  // namespace

PictureFace::PictureFace(QWidget* parent) : QWidget(parent) {}

void PictureFace::SetPicture(const QString& name, PictureFit fit, const QColor& ground) {
  name_ = name;
  fit_ = fit;
  ground_ = ground;
}

void PictureFace::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (DrawPicture(painter, rect(), name_, fit_) || ground_.alpha() == 0) return;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ground_);
  painter.drawRoundedRect(rect(), kRounding, kRounding);
}

ImageView::ImageView(Image& model, QWidget* parent) : ViewOf(model, new PictureFace(parent)) {
  face_.setAttribute(Qt::WA_TransparentForMouseEvents, !model.OnMouseMove);
}

void ImageView::Apply() {
  face_.SetPicture(ToQt(model_.Picture), model_.Fit, ToQt(model_.BackColour));
  ApplyCommon();
}

}  // namespace tarvo
