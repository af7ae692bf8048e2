#pragma once

#include "controls/Control.h"
#include "controls/PictureFit.h"

namespace tarvo {

/// A picture. It takes no mouse, what stands behind it does, unless a routine listens to its
/// OnMouseMove.
class Image : public Control {
 public:
  explicit Image(Control* parent) : Control(parent) {}
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  /// The game path of a file, or the name of a picture that is built into the program, such as
  /// ":/logo.png". Without one, or where there is none of that name, the control is empty and shows
  /// its back colour.
  Property<Text> Picture{*this, {}};
  Property<PictureFit> Fit{*this, PictureFit::Stretched};
};

}  // namespace tarvo
