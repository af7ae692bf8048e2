#include <gtest/gtest.h>

#include "platform/Files.h"

namespace tarvo {
namespace {

TEST(Patterns, Match) {
  const struct {
    TextView Name;
    TextView Pattern;
    bool Matches;
  } cases[] = {
      {u"Galaxy.Tarvo", u"*.tarvo", true},
      {u"Galaxy.Tarvo2", u"*.tarvo", false},
      {u"Galaxy.Tarvo.Tarvo", u"*.tarvo", true},
      {u"noending", u"*.*", true},
      {u"noending", u"*.", false},
      {u"a.b", u"*.*b", true},
      {u"", u"*", true},
      {u"", u"?", false},
      {u"", u"", true},
      {u"ab", u"a?", true},
      {u"a", u"a?", false},
      {u"abcabd", u"*ab?", true},
      {u"aaab", u"a*a*ab", true},
      {u"aab", u"a*a*ab", false},
      {u"ÄRGER.py", u"ä*.PY", true},
      {u"a[1].py", u"a[1].py", true},
      {u"a", u"a**", true},
      // Many stars must not take forever.
      {u"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa", u"*a*a*a*a*a*a*a*a*a*a*a*ab", false},
  };
  for (const auto& [name, pattern, matches] : cases) {
    EXPECT_EQ(MatchesPattern(name, pattern), matches)
        << testing::PrintToString(name) << testing::PrintToString(pattern);
  }
}

}  // namespace
}  // namespace tarvo
