#include "controls/ProgressBar.h"

#include "controls/ControlErrors.h"

namespace tarvo {

void ProgressBar::SetRange(std::int64_t min, std::int64_t max, std::int64_t value) {
  if (max == 0 || max <= min || value < min || value > max) {
    throw InvalidProperty(u"ProgressBar");
  }
  min_ = min;
  max_ = max;
  value_ = value;
  Changed();
}

void ProgressBar::SetValue(std::int64_t value) {
  if (value < min_ || value > max_) throw InvalidProperty(u"ProgressBar");
  if (value == value_) return;
  value_ = value;
  Changed();
}

}  // namespace tarvo
