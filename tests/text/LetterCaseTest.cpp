#include <gtest/gtest.h>

#include "text/LetterCase.h"

namespace tarvo {
namespace {

TEST(LetterCase, FoldsCapitalsOfTheScriptsThatItKnows) {
  const struct {
    TextView Capital;
    TextView Small;
  } cases[] = {
      {u"AZ@[", u"az@["},     {u"ÀÖØÞ", u"àöøþ"}, {u"×÷ß", u"×÷ß"}, {u"ĀĶŊŶ", u"āķŋŷ"},
      {u"ĹŇŹŽŠŒ", u"ĺňźžšœ"}, {u"Ÿ", u"ÿ"},       {u"İı", u"İı"},   {u"ΑΡΣΫ", u"αρσϋ"},
      {u"АЯЀЏЁ", u"аяѐџё"},   {u"ŉĸſ", u"ŉĸſ"},   {u"", u""},
  };
  for (const auto& [capital, small] : cases) {
    EXPECT_EQ(FoldCase(capital), small);
    EXPECT_EQ(FoldCase(small), small);
    EXPECT_TRUE(EqualIgnoringCase(capital, small));
  }
}

TEST(LetterCase, OrdersByFoldedUnits) {
  EXPECT_TRUE(LessIgnoringCase(u"Beta", u"alphb") == false);
  EXPECT_TRUE(LessIgnoringCase(u"ALPHA", u"beta"));
  EXPECT_TRUE(LessIgnoringCase(u"ab", u"ABC"));
  EXPECT_FALSE(LessIgnoringCase(u"abc", u"ABC"));
  // "_" lies between the capitals and the small letters.
  EXPECT_TRUE(LessIgnoringCase(u"_", u"A"));
  EXPECT_FALSE(EqualIgnoringCase(u"ab", u"abc"));
}

}  // namespace
}  // namespace tarvo
