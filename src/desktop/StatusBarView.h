#pragma once

#include <QLabel>

#include "controls/StatusBar.h"
#include "desktop/View.h"

namespace tarvo {

/// A line that loses its middle where it is too long, as paths tell most at their ends; the
/// tooltip has it whole.
class StatusFace : public QLabel {
 public:
  explicit StatusFace(QWidget* parent);

  void SetColours(const QColor& ground, const QColor& text);

  /// Along the bottom of the parent, whatever its size.
  void Dock();
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool docked = false;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor ground_;
  QColor text_;
};

/// Stands where the model says; a model without a width or height stands along the bottom.
class StatusBarView : public ViewOf<StatusBar, StatusFace> {
 public:
  StatusBarView(StatusBar& model, QWidget* parent);
  void Apply() override;
};

}  // namespace tarvo
