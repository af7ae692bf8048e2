#pragma once

#include "text/Text.h"

namespace tarvo {

class Clock {
 public:
  virtual ~Clock() = default;

  /// Seeds the random numbers from the time of day.
  virtual void Randomize() = 0;

  /// A random number from 0 up to, but not including, 1.
  virtual double Random() = 0;

  /// Names the present run of the computer, until it is started anew; empty where that can't be told.
  virtual Text RunOfComputer() = 0;

  /// Lets so many milliseconds pass.
  virtual void Pause(int milliseconds) = 0;
};

}  // namespace tarvo
