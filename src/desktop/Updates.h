#pragma once

#include <QObject>
#include <chrono>
#include <functional>
#include <unordered_map>
#include <vector>

#include "controls/Control.h"

namespace tarvo {

class View;

/// Carries what changes in the models to their views.
///
/// Changes are collected and applied in one go before the event loop sleeps again. A control's
/// Refresh puts it on the screen before it returns, though not more often than an eye can follow:
/// what came too soon is painted with the next refresh of any control, or by the event loop.
class Updates : public QObject, private ControlObserver {
 public:
  /// Observes the view's control, and applies its state with the others.
  void Watch(View& view);

  /// Forgets the view and lets go of its control.
  void Forget(View& view);

  /// Applies what has changed so far.
  void ApplyAll();

  /// Forgets all views without touching their models, which may be gone.
  void Drop();

  /// Called when a control asks for the keyboard.
  std::function<void(View&)> OnFocus;

 protected:
  bool event(QEvent* event) override;

 private:
  using Moment = std::chrono::steady_clock::time_point;

  struct Entry {
    View* view;
    bool dirty = false;
    bool overdue = false;  ///< A refresh of it was put off.
    Moment painted{};
  };

  void ControlChanged(Control& control) override;
  void ControlRefreshed(Control& control) override;
  void ControlFocused(Control& control) override;

  void MarkDirty(Entry& entry);
  void Apply(Entry& entry);
  void ApplyTree(const Control& control);
  void PaintNow(Entry& entry);
  Entry* Find(const Control& control);

  std::unordered_map<const Control*, Entry> entries_;
  std::vector<const Control*> dirty_;
  std::vector<const Control*> overdue_;
  bool posted_ = false;
};

}  // namespace tarvo
