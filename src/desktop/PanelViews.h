#pragma once

#include "controls/Frame.h"
#include "controls/Shape.h"
#include "desktop/View.h"

namespace tarvo {

/// A ground and an outline, each of which may be missing.
class Panel : public QWidget {
 public:
  Panel(QWidget* parent, qreal radius);

  /// A transparent colour draws nothing.
  void SetColours(const QColor& ground, const QColor& outline);
  void SetRadius(qreal radius) { radius_ = radius; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  qreal radius_;
  QColor ground_;
  QColor outline_;
};

/// A panel; a fore colour other than black outlines it.
class FrameView : public ViewOf<Frame, Panel> {
 public:
  FrameView(Frame& model, QWidget* parent);
  void Apply() override;
};

/// A ground and an outline that let the mouse through.
class ShapeView : public ViewOf<Shape, Panel> {
 public:
  ShapeView(Shape& model, QWidget* parent);
  void Apply() override;
};

}  // namespace tarvo
