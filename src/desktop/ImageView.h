#pragma once

#include "controls/Image.h"
#include "desktop/View.h"

namespace tarvo {

/// A picture in the widget, or where there is none a ground.
class PictureFace : public QWidget {
 public:
  explicit PictureFace(QWidget* parent);

  /// The name as in Image::Picture; a transparent ground draws nothing.
  void SetPicture(const QString& name, PictureFit fit, const QColor& ground);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString name_;
  PictureFit fit_ = PictureFit::Stretched;
  QColor ground_;
};

class ImageView : public ViewOf<Image, PictureFace> {
 public:
  ImageView(Image& model, QWidget* parent);
  void Apply() override;
};

}  // namespace tarvo
