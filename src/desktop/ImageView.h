#pragma once

#include "controls/Image.h"
#include "desktop/View.h"

namespace tarvo {

/// A picture drawn over the whole widget.
class PictureFace : public QWidget {
 public:
  explicit PictureFace(QWidget* parent);

  /// The name as in Image::Picture.
  void SetPicture(const QString& name);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString name_;
};

class ImageView : public ViewOf<Image, PictureFace> {
 public:
  ImageView(Image& model, QWidget* parent);
  void Apply() override;
};

}  // namespace tarvo
