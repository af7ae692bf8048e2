#pragma once

#include "controls/Control.h"

namespace tarvo {

/// A line of one panel along the bottom of a window.
class StatusBar : public Control {
 public:
  explicit StatusBar(Control* parent) : Control(parent) {}
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  Property<Text> Panel1{*this, {}};
};

}  // namespace tarvo
