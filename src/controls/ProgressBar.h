#pragma once

#include "controls/Control.h"

namespace tarvo {

/// A bar between Min and Max. Values are plain counts; they start as 0 to 100 at 0.
class ProgressBar : public Control {
 public:
  explicit ProgressBar(Control* parent) : Control(parent) {}
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  std::int64_t Min() const { return min_; }
  std::int64_t Max() const { return max_; }
  std::int64_t Value() const { return value_; }

  /// Sets the ends and the value in one step. Raises an error, and changes nothing, when `max` is
  /// 0 or not above `min`, or `value` lies outside of them.
  void SetRange(std::int64_t min, std::int64_t max, std::int64_t value);

  /// Raises an error, and keeps the old value, when `value` lies outside Min to Max.
  void SetValue(std::int64_t value);

 private:
  std::int64_t min_ = 0;
  std::int64_t max_ = 100;
  std::int64_t value_ = 0;
};

}  // namespace tarvo
