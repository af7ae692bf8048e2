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

  /// The first row of that text; -1 for none.
  int RowOf(tarvo::TextView item) const;

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

  /// The row that the line was picked from, until it is typed or set; -1 for none.
  int ListIndex() const { return picked_; }

  /// The user picks a row: its text comes into the line, unmarked, and OnClick, not OnChange, is
  /// raised.
  void Pick(std::size_t row);

  /// The user opens the list. Does nothing while it is not usable.
  void DropDown() {
    if (Usable()) Raise(OnDropDown);
  }

  std::function<void()> OnDropDown;
  std::function<void()> OnChange;
  std::function<void()> OnClick;

 private:
  std::vector<tarvo::Text> items_;
  tarvo::Text text_;
  int picked_ = -1;
  std::optional<tarvo::Text> before_;
};

}  // namespace tarvo
