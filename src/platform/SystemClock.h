#pragma once

#include <random>

#include "platform/Clock.h"

namespace tarvo {

/// Random numbers by the system's time. Without Randomize they are the same in each process.
class SystemClock : public Clock {
 public:
  void Randomize() override;
  double Random() override;
  Text RunOfComputer() override;
  void Pause(int milliseconds) override;

 private:
  std::mt19937 random_;
};

}  // namespace tarvo
