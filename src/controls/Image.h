#pragma once

#include "controls/Control.h"

namespace tarvo {

/// A picture that fills its control. It takes no mouse: what stands behind it does.
class Image : public Control {
 public:
  explicit Image(Control* parent) : Control(parent) {}
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  /// The name of a picture that is built into the program, such as ":/logo.png". Without one, or
  /// where there is none of that name, the control is empty.
  Property<Text> Picture{*this, {}};
};

}  // namespace tarvo
