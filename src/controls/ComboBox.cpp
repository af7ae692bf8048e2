#include "controls/ComboBox.h"

#include <algorithm>
#include <utility>

namespace tarvo {

int ComboBox::RowOf(tarvo::TextView item) const {
  const auto found = std::ranges::find(items_, item);
  return found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
}

void ComboBox::Add(tarvo::Text item) {
  items_.push_back(std::move(item));
  Changed();
}

void ComboBox::RemoveAt(std::size_t row) {
  items_.at(row);
  items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(row));
  picked_ = -1;
  Changed();
}

void ComboBox::Clear() {
  items_.clear();
  SetText({});
  Changed();
}

void ComboBox::SetText(tarvo::Text text) {
  picked_ = -1;
  if (text == text_) return;
  text_ = std::move(text);
  Changed();
  Raise(OnChange);
}

void ComboBox::Pick(std::size_t row) {
  if (!Usable()) return;
  before_ = std::exchange(text_, items_.at(row));
  picked_ = static_cast<int>(row);
  Mark({});
  Changed();
  Raise(OnClick);
  before_.reset();
}

}  // namespace tarvo
