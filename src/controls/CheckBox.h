#pragma once

#include "controls/Control.h"

namespace tarvo {

/// A box to tick, with its caption at its right.
class CheckBox : public Control {
 public:
  explicit CheckBox(Control* parent) : Control(parent) {}
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  Property<Text> Caption{*this, {}};

  /// Setting it by program raises no event.
  Property<bool> Checked{*this, false};

  std::function<void()> OnClick;

  /// The user ticks it, or takes the tick away. Does nothing while it is not usable.
  void Click() {
    if (!Usable()) return;
    Checked = !Checked.Get();
    Raise(OnClick);
  }
};

}  // namespace tarvo
