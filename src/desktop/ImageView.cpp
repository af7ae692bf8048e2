#include "desktop/ImageView.h"

#include <QPainter>

#include "desktop/Pictures.h"
#include "desktop/Skin.h"

namespace tarvo {

PictureFace::PictureFace(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

void PictureFace::SetPicture(const QString& name) {
  if (name == name_) return;
  name_ = name;
  update();
}

void PictureFace::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  DrawPicture(painter, rect(), name_);
}

ImageView::ImageView(Image& model, QWidget* parent) : ViewOf(model, new PictureFace(parent)) {}

void ImageView::Apply() {
  face_.SetPicture(ToQt(model_.Picture));
  ApplyCommon();
}

}  // namespace tarvo
