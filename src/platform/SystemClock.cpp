#include "platform/SystemClock.h"

#include <chrono>
#include <cstdint>
#include <fstream>
#include <string>
#include <thread>

#include "text/Utf8.h"

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

/// Linux gives each run an identifier of its own. Windows has none that outlives a changed clock.
Text SystemClock::RunOfComputer() {
  std::string identifier;
  std::ifstream("/proc/sys/kernel/random/boot_id") >> identifier;
  return TextFromUtf8(identifier);
}

void SystemClock::Pause(int milliseconds) {
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

}  // namespace tarvo
