#pragma once

#include "controls/Control.h"
#include "controls/PictureFit.h"

namespace tarvo {

/// Something to press. "&" in the caption marks the key that presses it together with Alt.
class Button : public Control {
 public:
  enum class Arrow { None, Up, Down, Left, Right };

  explicit Button(Control* parent) : Control(parent) {}
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  Property<Text> Caption{*this, {}};
  Property<Arrow> Glyph{*this, Arrow::None};  ///< Drawn in place of the caption.

  /// As Image::Picture; drawn in place of the bar, and the arrow with it.
  Property<Text> Picture{*this, {}};
  Property<PictureFit> Fit{*this, PictureFit::Stretched};

  /// What stands in for picture and fore colour as long as the keyboard is on the button.
  Property<Text> FocusPicture{*this, {}};
  Property<Colour> FocusColour{*this, kTransparent};

  /// Radius in twips of the corners of the mark that shows the keyboard; 0 for round ends.
  Property<int> Rounding{*this, 0};

  /// The caption stands alone, on what lies behind the button.
  Property<bool> Flat{*this, false};

  /// Drawn as a link: its caption underlined; the pointer over it is an arrow with a question mark.
  Property<bool> Link{*this, false};

  std::function<void()> OnClick;
  std::function<void()> OnPress;    ///< It goes down.
  std::function<void()> OnRelease;  ///< It has gone down and comes up again, whatever the reason.

  /// The user presses it. Does nothing while it is not usable.
  void Press() {
    if (Usable()) Raise(OnClick);
  }

  /// The user holds it down. Does nothing while it is not usable.
  void Hold() {
    if (held_ || !Usable()) return;
    held_ = true;
    Raise(OnPress);
  }

  /// The user lets go of it, or it was taken from him.
  void LetGo() {
    if (!held_) return;
    held_ = false;
    Raise(OnRelease);
  }

 private:
  bool held_ = false;
};

}  // namespace tarvo
