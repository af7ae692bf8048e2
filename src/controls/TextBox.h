#pragma once

#include "controls/Control.h"

namespace tarvo {

/// A line that the user types in; or, with MultiLine, several, each but the last ended by CR LF.
class TextBox : public Control {
 public:
  explicit TextBox(Control* parent) : Control(parent) {}
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  // To be set before the control is first drawn.
  bool MultiLine = false;
  bool BreakAnywhere = false;  ///< Long lines break at any character, as suits paths.

  Property<bool> ReadOnly{*this, false};

  const tarvo::Text& Text() const { return text_; }

  /// Sets the text, by program or by the user. A text that differs raises OnChange.
  void SetText(tarvo::Text text) {
    if (text == text_) return;
    text_ = std::move(text);
    Changed();
    Raise(OnChange);
  }

  std::function<void()> OnChange;

 private:
  tarvo::Text text_;
};

}  // namespace tarvo
