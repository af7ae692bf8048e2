#include "controls/Screens.h"

#include <algorithm>

namespace tarvo {

void Screens::RunModal(Form& form) {
  form.Visible = true;
  host_.RunModal(form);
}

void Screens::Close(Form& form) {
  const auto found = std::find_if(open_.begin(), open_.end(),
                                  [&](const auto& entry) { return entry.second.get() == &form; });
  if (found == open_.end()) return;
  form.Unload();
  closed_.push_back(std::move(found->second));
  open_.erase(found);
  host_.Closed(form);
}

bool Screens::IsOpen(const Form& form) const {
  return std::any_of(open_.begin(), open_.end(),
                     [&](const auto& entry) { return entry.second.get() == &form; });
}

}  // namespace tarvo
