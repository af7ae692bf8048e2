#pragma once

#include <QAbstractButton>

#include "controls/CheckBox.h"
#include "desktop/View.h"

namespace tarvo {

/// A square with a tick, and the caption at its right.
class TickButton : public QAbstractButton {
 public:
  explicit TickButton(QWidget* parent);

  /// The square's and tick's colour.
  void SetColour(const QColor& colour);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QColor colour_;
};

class CheckBoxView : public ViewOf<CheckBox, TickButton> {
 public:
  CheckBoxView(CheckBox& model, QWidget* parent);
  void Apply() override;
};

}  // namespace tarvo
