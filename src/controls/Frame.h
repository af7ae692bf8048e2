#pragma once

#include "controls/Control.h"

namespace tarvo {

/// A panel that other controls stand on.
class Frame : public Control {
 public:
  explicit Frame(Control* parent) : Control(parent) {}
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
};

}  // namespace tarvo
