#pragma once

#include <QAbstractButton>

#include "controls/Button.h"
#include "desktop/View.h"

namespace tarvo {

/// A bar with round ends and a caption on it; with a transparent ground the caption alone.
class PillButton : public QAbstractButton {
 public:
  explicit PillButton(QWidget* parent);

  void SetColours(const QColor& ground, const QColor& caption);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool event(QEvent* event) override;

 private:
  QRect CaptionArea() const;
  QString Elided() const;

  QColor ground_;
  QColor caption_;
};

class ButtonView : public ViewOf<Button, PillButton> {
 public:
  ButtonView(Button& model, QWidget* parent);
  void Apply() override;
};

}  // namespace tarvo
