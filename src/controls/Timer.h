#pragma once

#include "controls/Control.h"

namespace tarvo {

/// Ticks while it is enabled and its form is loaded.
class Timer : public Control {
 public:
  Timer(Control* parent, int interval) : Control(parent), Interval{*this, interval} {}
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  Property<int> Interval;  ///< Milliseconds.

  std::function<void()> OnTimer;

  /// One tick. Does nothing while the timer is stopped.
  void Tick() {
    if (Enabled) Raise(OnTimer);
  }
};

}  // namespace tarvo
