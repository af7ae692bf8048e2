#include <gtest/gtest.h>

#include <set>

#include "text/CodePage.h"

namespace tarvo {
namespace {

TEST(CodePage, MapsAllBytesOneToOne) {
  FileText all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  const Text text = TextFromFileText(all);
  EXPECT_EQ(std::set<char16_t>(text.begin(), text.end()).size(), 256u);
  EXPECT_TRUE(FitsCodePage(text));
  EXPECT_EQ(FileTextFromText(text), all);
}

TEST(CodePage, KnowsItsLetters) {
  EXPECT_EQ(TextFromFileText("\x80 \x8A\x9C \xDF\xE4 \x97 \x99"), u"€ Šœ ßä — ™");
  EXPECT_EQ(TextFromFileText("\x81\x8D\x8F\x90\x9D"), u"\x81\x8D\x8F\x90\x9D");
}

TEST(CodePage, GivesAQuestionMarkForEachUnitThatItLacks) {
  EXPECT_EQ(FileTextFromText(u"aЖb\x80\U0001F680"), "a?b???");
  for (const TextView lacking : {u"Ж", u"\x80", u"a\U0001F680"})
    EXPECT_FALSE(FitsCodePage(lacking));
}

}  // namespace
}  // namespace tarvo
