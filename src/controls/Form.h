#pragma once

#include "controls/Control.h"

namespace tarvo {

class Button;

/// A screen. Screens derive from it, with their controls as members under their own names. A form
/// comes into being unseen; setting Visible shows it.
class Form : public Control {
 public:
  enum class Style {
    Window,  ///< A window of its own of fixed size; Left and Top are places on the screen.
    Dialog,  ///< The same over its owner's window, and never without that.
    Child,   ///< A part of its owner's client area; Left and Top are places in that.
  };

  /// `owner` is the form that this one stands on; nothing for a Window.
  Form(Style style, Form* owner) : Control(nullptr), style_(style), owner_(owner) {
    Visible = false;
    BackColour = kBlack;
  }
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  Property<Text> Caption{*this, {}};

  /// The buttons that the keys Enter and Escape press; the close box of the window presses the
  /// Escape button too. Without one a key does nothing and the close box closes the form.
  Property<Button*> DefaultButton{*this, nullptr};
  Property<Button*> CancelButton{*this, nullptr};

  /// The Escape key was hit. Gives true when it is not to press CancelButton this time.
  std::function<bool()> OnEscape;

  /// Ctrl+Z was hit. `typed`: the field that has the keyboard can take back what was typed in it.
  /// Gives true when the form took the key.
  std::function<bool(bool typed)> OnUndo;

  /// The user hits the Escape key. Gives false when nothing answers to it.
  bool PressEscape();

  /// The manual's page on the form, such as "options.html"; empty for none of its own.
  Property<Text> HelpPage{*this, {}};

  /// A Window that leaves the keyboard where it is when it is shown. To be set before that.
  bool LeavesKeyboard = false;

  Style Kind() const { return style_; }
  Form* Owner() const { return owner_; }

  /// The load step: run once, when the form comes into being.
  virtual void Load() {}

  /// The closing step: run once, before the form goes.
  virtual void Unload() {}

 private:
  Style style_;
  Form* owner_;
};

}  // namespace tarvo
