#pragma once

#include "controls/Control.h"

namespace tarvo {

/// Something to press. "&" in the caption marks the key that presses it together with Alt.
class Button : public Control {
 public:
  explicit Button(Control* parent) : Control(parent) {}
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  Property<Text> Caption{*this, {}};

  std::function<void()> OnClick;

  /// The user presses it. Does nothing while it is not usable.
  void Press() {
    if (Usable()) Raise(OnClick);
  }
};

}  // namespace tarvo
