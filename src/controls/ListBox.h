#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>

#include "controls/Control.h"

namespace tarvo {

/// A list of rows. In a Toggle list a click toggles a row; a Single list has one chosen row.
class ListBox : public Control {
 public:
  enum class Selection { Single, Toggle };
  enum class Order { AsAdded, Sorted };

  /// A Sorted list puts each row where it belongs without regard to letter case, behind its equals.
  ListBox(Control* parent, Selection selection, Order order = Order::AsAdded)
      : Control(parent), selection_(selection), order_(order) {}
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  bool MultiSelect() const { return selection_ == Selection::Toggle; }

  std::size_t Count() const { return rows_.size(); }
  const Text& Item(std::size_t row) const { return rows_.at(row).Caption; }
  bool Selected(std::size_t row) const { return rows_.at(row).Selected; }

  /// The row that the keyboard stands on, the chosen one in a single list; -1 for none.
  int ListIndex() const { return listIndex_; }

  /// Another number than before whenever rows came or went; selecting leaves it alone.
  std::uint64_t RowsVersion() const { return rowsVersion_; }

  /// Gives the place of the new row.
  std::size_t Add(Text item);
  void RemoveAt(std::size_t row);
  void Clear();

  /// By program: raises no event.
  void SetSelected(std::size_t row, bool selected);

  /// By program: scrolls no more than it takes to show the row.
  void BringIntoSight(std::size_t row);

  /// For the view: the row that is still to be brought into sight.
  std::optional<std::size_t> TakeRowToShow() { return std::exchange(rowToShow_, std::nullopt); }

  /// The user clicks a row: it is toggled or chosen, and OnClick raised. Does nothing while the
  /// list is not usable.
  void Click(std::size_t row);

  std::function<void()> OnClick;

 protected:
  void SetItems(std::vector<Text> items);

 private:
  struct Row {
    Text Caption;
    bool Selected = false;
  };

  Selection selection_;
  Order order_;
  std::vector<Row> rows_;
  int listIndex_ = -1;
  std::uint64_t rowsVersion_ = 0;
  std::optional<std::size_t> rowToShow_;
};

}  // namespace tarvo
