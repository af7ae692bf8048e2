#include "controls/ListBox.h"

#include <algorithm>

#include "text/LetterCase.h"

namespace tarvo {

std::size_t ListBox::Add(Text item) {
  auto place = rows_.end();
  if (order_ == Order::Sorted) {
    place = std::upper_bound(rows_.begin(), rows_.end(), item, [](const Text& a, const Row& b) {
      return LessIgnoringCase(a, b.Caption);
    });
  }
  place = rows_.insert(place, {std::move(item), false});
  const auto row = place - rows_.begin();
  if (listIndex_ >= row) ++listIndex_;
  ++rowsVersion_;
  Changed();
  return static_cast<std::size_t>(row);
}

void ListBox::RemoveAt(std::size_t row) {
  rows_.at(row);
  rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(row));
  const int index = static_cast<int>(row);
  if (listIndex_ == index) {
    listIndex_ = -1;
  } else if (listIndex_ > index) {
    --listIndex_;
  }
  ++rowsVersion_;
  Changed();
}

void ListBox::Clear() {
  SetItems({});
}

void ListBox::SetItems(std::vector<Text> items) {
  rows_.clear();
  rows_.reserve(items.size());
  for (Text& item : items) rows_.push_back({std::move(item), false});
  listIndex_ = -1;
  ++rowsVersion_;
  Changed();
}

void ListBox::SetSelected(std::size_t row, bool selected) {
  rows_.at(row);
  if (!MultiSelect() && selected) {
    for (Row& other : rows_) other.Selected = false;
    listIndex_ = static_cast<int>(row);
  }
  if (!MultiSelect() && !selected && listIndex_ == static_cast<int>(row)) listIndex_ = -1;
  rows_[row].Selected = selected;
  Changed();
}

void ListBox::BringIntoSight(std::size_t row) {
  rows_.at(row);
  rowToShow_ = row;
  Changed();
}

void ListBox::Click(std::size_t row) {
  if (!Usable()) return;
  SetSelected(row, MultiSelect() ? !Selected(row) : true);
  listIndex_ = static_cast<int>(row);
  Raise(OnClick);
}

}  // namespace tarvo
