#pragma once

#include <QTimer>

#include "controls/Timer.h"
#include "desktop/View.h"

namespace tarvo {

/// Lets a timer tick, whether its form is visible or not.
class TimerView : public View {
 public:
  explicit TimerView(Timer& model);
  void Apply() override;
  void Detach() override;

 private:
  Timer& model_;
  QTimer clock_;
};

}  // namespace tarvo
