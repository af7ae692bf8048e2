#pragma once

#include <QAbstractButton>
#include <QBasicTimer>

#include "controls/Button.h"
#include "desktop/View.h"

namespace tarvo {

/// A bar with round ends or a picture, and a caption on it; with neither the caption alone.
class PillButton : public QAbstractButton {
 public:
  explicit PillButton(QWidget* parent);

  /// What the button shows at rest, or while the user stands on it with the keyboard.
  struct Look {
    QColor caption;
    QString picture;  ///< As in Image::Picture.
  };

  void SetLooks(const Look& atRest, const Look& focused);

  /// The colour of the bar, which shows where there is no picture; transparent for no bar.
  void SetGround(const QColor& ground, PictureFit fit, bool flat);

  /// Radius of the corners of the mark of the focus; 0 for round ends.
  void SetRounding(int rounding) { rounding_ = rounding; }

  /// An arrow stands in place of the caption, and Enter holds the button down as Space does.
  void SetGlyph(Button::Arrow glyph) { glyph_ = glyph; }

  /// The model changes what the button shows under the pointer: it sheds no light of its own.
  void SetLitByModel(bool lit) { litByModel_ = lit; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  bool event(QEvent* event) override;

 private:
  enum class Ground { None, Bar, Picture };

  const Look& Shown() const;
  Ground DrawGround(QPainter& painter, const QColor& light) const;
  QColor CaptionColour(const QPainter& painter, Ground ground, const QColor& light) const;
  bool HasCaption() const { return glyph_ == Button::Arrow::None && !text().isEmpty(); }
  QRect CaptionArea() const;
  QString Elided() const;
  void DrawCaption(QPainter& painter) const;
  void DrawRing(QPainter& painter, Ground ground) const;
  QColor Light() const;
  bool IsHeldBy(const QKeyEvent& event) const;

  Look atRest_;
  Look focused_;
  QColor ground_;
  PictureFit fit_ = PictureFit::Stretched;
  bool flat_ = false;
  int rounding_ = 0;
  Button::Arrow glyph_ = Button::Arrow::None;
  bool litByModel_ = false;
  QBasicTimer letGo_;
};

class ButtonView : public ViewOf<Button, PillButton> {
 public:
  ButtonView(Button& model, QWidget* parent);
  void Apply() override;
};

}  // namespace tarvo
