#pragma once

#include <QAbstractButton>
#include <QBasicTimer>

#include "controls/Button.h"
#include "desktop/View.h"

namespace tarvo {

/// A bar with round ends and a caption on it; with a transparent ground the caption alone.
class PillButton : public QAbstractButton {
 public:
  explicit PillButton(QWidget* parent);

  void SetColours(const QColor& ground, const QColor& caption);

  /// An arrow stands in place of the caption, and Enter holds the button down as Space does.
  void SetGlyph(Button::Arrow glyph) { glyph_ = glyph; }

  /// Stands in place of the bar and fills it; empty for none.
  void SetPicture(const QString& name) { picture_ = name; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  bool event(QEvent* event) override;

 private:
  QRect CaptionArea() const;
  QString Elided() const;
  void DrawCaption(QPainter& painter) const;
  void DrawRing(QPainter& painter) const;
  QColor Light() const;
  bool IsHeldBy(const QKeyEvent& event) const;

  QColor ground_;
  QColor caption_;
  Button::Arrow glyph_ = Button::Arrow::None;
  QString picture_;
  QBasicTimer letGo_;
};

class ButtonView : public ViewOf<Button, PillButton> {
 public:
  ButtonView(Button& model, QWidget* parent);
  void Apply() override;
};

}  // namespace tarvo
