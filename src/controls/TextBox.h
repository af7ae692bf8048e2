#pragma once

#include "controls/Control.h"

namespace tarvo {

/// A line that the user types in.
class TextBox : public Control {
 public:
  explicit TextBox(Control* parent) : Control(parent) {}
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  Property<bool> MultiLine{*this, false};  ///< The view breaks lines, and Enter makes a new one.

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
