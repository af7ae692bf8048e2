#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

#include "platform/posix/PosixLocale.h"

namespace tarvo {
namespace {

/// Today as locale "C" writes it.
Text PlainDate() {
  const std::time_t now = std::time(nullptr);
  char date[16];
  std::strftime(date, sizeof date, "%m/%d/%y", std::localtime(&now));
  const std::string_view bytes = date;
  return Text(bytes.begin(), bytes.end());
}

TEST(PosixLocale, FallsBackToPlainForAnUnknownLocale) {
  const char* const before = std::getenv("LC_ALL");
  const std::string kept = before ? before : "";
  setenv("LC_ALL", "xx_NOWHERE.UTF-8", 1);
  PosixLocale locale;
  EXPECT_EQ(locale.DecimalMark(), u'.');
  const Text early = PlainDate();
  const Text date = locale.ShortDate();
  EXPECT_TRUE(date == early || date == PlainDate()) << testing::PrintToString(date);
  before ? setenv("LC_ALL", kept.c_str(), 1) : unsetenv("LC_ALL");
}

}  // namespace
}  // namespace tarvo
