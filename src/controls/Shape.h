#pragma once

#include "controls/Control.h"

namespace tarvo {

/// A rounded rectangle: its outline in the fore colour on a ground of the back colour.
class Shape : public Control {
 public:
  explicit Shape(Control* parent) : Control(parent) {}
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  Property<int> Rounding{*this, 150};  ///< Radius of the corners in twips.
};

}  // namespace tarvo
