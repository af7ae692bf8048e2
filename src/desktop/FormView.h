#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <functional>

#include "controls/Form.h"
#include "desktop/View.h"

namespace tarvo {

/// The widget of a form: a ground that carries the controls, in a window or on another form.
/// Switching a form off switches off its ground, so that dialogs over its window stay usable.
class FormWidget : public QWidget {
 public:
  FormWidget(QWidget* parent, Qt::WindowFlags flags);

  QWidget* Ground() const { return ground_; }
  void SetColour(const QColor& colour);

  std::function<void()> OnCloseBox;
  std::function<void()> OnMoved;
  std::function<bool(int)> OnKey;  ///< Gives true for a key that it took.

 protected:
  void closeEvent(QCloseEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QWidget* ground_;
  QColor colour_;
};

class FormView : public ViewOf<Form, FormWidget> {
 public:
  /// `owner` is the widget of the form that this one stands on; nothing for a Window.
  FormView(Form& model, FormWidget* owner);
  void Apply() override;

  QWidget* Ground() const { return face_.Ground(); }

  /// Makes the window keep the user's input from its owner's window.
  void BecomeModal();

  /// Gives the keyboard to `widget` now, or as soon as the form can have it.
  void Focus(QWidget* widget);

  /// Gives the keyboard to whatever had it on this form, else to the first control that takes it.
  void FocusAnything();

  /// The close box of the window was pressed and no button of the form answers for it.
  std::function<void()> OnCloseBox;

 private:
  bool IsWindow() const { return model_.Kind() != Form::Style::Child; }
  bool Key(int key);
  void CloseBox();
  void Moved();
  void ApplyPlace();
  void ApplyWindowPlace(const QRect& wanted);
  void ApplyUse();
  void ApplyShown();

  QPointer<QWidget> focus_;  ///< What has, or is to have, the keyboard on this form.
  QPoint placed_;            ///< Where the window was last put, by program or by the user.
  bool everPlaced_ = false;
  QElapsedTimer resized_;  ///< Since the program last gave the window another size.
  QTimer moved_;           ///< Runs out when the window has come to rest at a place.
};

}  // namespace tarvo
