#pragma once

#include "controls/Control.h"

namespace tarvo {

/// A text that the user reads. It takes no mouse: what stands behind it does.
class Label : public Control {
 public:
  explicit Label(Control* parent) : Control(parent) {}
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  enum class Align { Left, Centre, Right };

  Property<Text> Caption{*this, {}};
  Property<Align> Alignment{*this, Align::Left};
  Property<bool> WordWrap{*this, false};
};

}  // namespace tarvo
