#include "desktop/TimerView.h"

namespace tarvo {
namespace {

/// Short timers drive movement and have to be even; the others may be late in favour of a machine
/// that sleeps longer.
constexpr int kCoarseFrom = 100;

}  // namespace

TimerView::TimerView(Timer& model) : View(model, nullptr), model_(model) {
  QObject::connect(&clock_, &QTimer::timeout, &clock_, [this] {
    if (Live()) model_.Tick();
  });
}

void TimerView::Apply() {
  const int interval = model_.Interval;
  if (!model_.Enabled || interval <= 0) {
    clock_.stop();
    return;
  }
  if (clock_.isActive() && clock_.interval() == interval) return;
  clock_.setTimerType(interval < kCoarseFrom ? Qt::PreciseTimer : Qt::CoarseTimer);
  clock_.start(interval);
}

void TimerView::Detach() {
  View::Detach();
  clock_.stop();
}

}  // namespace tarvo
