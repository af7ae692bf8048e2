#pragma once

#include "controls/Control.h"

namespace tarvo {

/// The outline of a rounded rectangle, in the fore colour.
class Shape : public Control {
 public:
  explicit Shape(Control* parent) : Control(parent) {}
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }
};

}  // namespace tarvo
