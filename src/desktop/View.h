#pragma once

#include <QLineEdit>
#include <QPointer>
#include <QWidget>

#include "controls/Control.h"

namespace tarvo {

/// Draws one control: brings the model's state to a widget and the user's doings to the model.
///
/// The widget is owned by its parent widget. A handler of the model may close the form it stands
/// on; the view is then detached at once and destroyed only after the handler's end, so a view has
/// to look at Live() before it touches its model again.
class View {
 public:
  /// `widget` may be nothing, for a control that isn't seen.
  View(Control& control, QWidget* widget) : control_(&control), widget_(widget) {}
  View(const View&) = delete;
  View& operator=(const View&) = delete;
  virtual ~View() = default;

  Control& Shown() const { return *control_; }
  QWidget* Widget() const { return widget_; }

  /// Brings the widget up to the present state of the model. Runs no handler of the model.
  virtual void Apply() = 0;

  /// The model has just changed in some way; Apply follows later.
  virtual void Noticed() {}

  /// True for what has to be on the screen as soon as it changes, even during long work.
  virtual bool PaintsAtOnce() const { return false; }

  /// The model goes: it is never touched again.
  virtual void Detach() { live_ = false; }
  bool Live() const { return live_; }

 protected:
  /// Place, visibility, use, font, accessible name and hint.
  void ApplyCommon();

  /// The mark of a field, at the end of its line.
  void ApplyMark(QLineEdit& line);

  /// Tells the model of the pointer over `widget`, where the model listens.
  void WatchPointer(QWidget& widget);

  /// The palette of fields and lists: ground and text, and a highlight made of the text's colour.
  void ApplyFieldColours();

 private:
  void ApplyNameAndHint();

  Control* control_;
  QPointer<QWidget> widget_;
  QAction* mark_ = nullptr;
  QString hint_;
  bool live_ = true;
  bool watched_ = false;
};

/// A view that knows what it shows, and with what.
template <class Model, class Face>
class ViewOf : public View {
 protected:
  ViewOf(Model& model, Face* face) : View(model, face), model_(model), face_(*face) {}

  Model& model_;
  Face& face_;
};

}  // namespace tarvo
