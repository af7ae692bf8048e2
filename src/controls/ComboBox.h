#pragma once

#include <cstddef>
#include <optional>

#include "controls/Control.h"

namespace tarvo {

/// An editable line with a list to pick from.
class ComboBox : public Control {
 public:
  explicit ComboBox(Control* parent) : Control(parent) {}
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  std::size_t Count() const { return items_.size(); }
  const tarvo::Text& Item(std::size_t row) const { return items_.at(row); }

  void Add(tarvo::Text item);

  /// The line stays as it is.
  void RemoveAt(std::size_t row);

  /// Empties the list and the line.
  void Clear();

  const tarvo::Text& Text() const { return text_; }

  /// While OnClick runs what stood in the line before the pick, else the line.
  const tarvo::Text& TextBefore() const { return before_ ? *before_ : text_; }

  /// Sets the line, by program or by the user's typing. A text that differs raises OnChange.
  void SetText(tarvo::Text text);

  /// The user picks a row: its text comes into the line, and OnClick, not OnChange, is raised.
  void Pick(std::size_t row);

  std::function<void()> OnChange;
  std::function<void()> OnClick;

 private:
  std::vector<tarvo::Text> items_;
  tarvo::Text text_;
  std::optional<tarvo::Text> before_;
};

}  // namespace tarvo
