#pragma once

#include <QLabel>

#include "controls/Label.h"
#include "desktop/View.h"

namespace tarvo {

/// A text that wraps or ends in "…" where it is too long, and lets the mouse through.
class LabelFace : public QLabel {
 public:
  explicit LabelFace(QWidget* parent);

  void SetColours(const QColor& ground, const QColor& text);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor ground_;
  QColor text_;
};

/// The height in pixels that the label's caption takes at the label's width.
int LabelPixels(const Label& label);

class LabelView : public ViewOf<Label, LabelFace> {
 public:
  LabelView(Label& model, QWidget* parent);
  void Apply() override;
};

}  // namespace tarvo
