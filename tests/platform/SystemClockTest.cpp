#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "platform/SystemClock.h"

namespace tarvo {
namespace {

TEST(SystemClock, GivesNumbersFromZeroToBelowOne) {
  SystemClock clock;
  clock.Randomize();
  std::vector<int> tenths(10);
  for (int i = 0; i < 10000; ++i) {
    const double number = clock.Random();
    ASSERT_GE(number, 0);
    ASSERT_LT(number, 1);
    ++tenths[static_cast<std::size_t>(number * 10)];
  }
  EXPECT_GT(*std::min_element(tenths.begin(), tenths.end()), 800);
}

TEST(SystemClock, IsSeededByTheTime) {
  SystemClock clock;
  clock.Randomize();
  const double first = clock.Random();
  clock.Randomize();
  EXPECT_NE(clock.Random(), first);
}

}  // namespace
}  // namespace tarvo
