#include "platform/SystemClock.h"

#include <chrono>
#include <cstdint>
#include <thread>

namespace tarvo {

void SystemClock::Randomize() {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  const auto ticks =
      static_cast<std::uint64_t>(std::chrono::duration_cast<std::chrono::nanoseconds>(now).count());
  std::seed_seq seed{static_cast<std::uint32_t>(ticks), static_cast<std::uint32_t>(ticks >> 32)};
  random_.seed(seed);
}

double SystemClock::Random() {
  constexpr double kNumbers = 4294967296.0;
  return random_() / kNumbers;
}

void SystemClock::Pause(int milliseconds) {
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

}  // namespace tarvo
