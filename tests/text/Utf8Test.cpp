#include <gtest/gtest.h>

#include <random>

#include "text/Utf8.h"

namespace tarvo {
namespace {

TEST(Utf8, ConvertsBothWays) {
  const struct {
    std::string Bytes;
    Text Units;
  } cases[] = {
      {"plain", u"plain"},
      {"\xC3\xA4\xE2\x82\xAC\xF0\x9F\x9A\x80", u"ä€\U0001F680"},
      {std::string("a\0b", 3), Text(u"a\0b", 3)},
      {"\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF", u"\x7F\x80\x7FF\x800\xFFFF"},
      {"\xF4\x8F\xBF\xBF", {0xDBFF, 0xDFFF}},
      // No UTF-8: overlong forms, surrogates, beyond the last character, cut short, stray.
      {"\xC0\xAF", {0xDCC0, 0xDCAF}},
      {"\xE0\x9F\xBF", {0xDCE0, 0xDC9F, 0xDCBF}},
      {"\xED\xA0\x80", {0xDCED, 0xDCA0, 0xDC80}},
      {"\xF4\x90\x80\x80", {0xDCF4, 0xDC90, 0xDC80, 0xDC80}},
      {"\xE2\x82", {0xDCE2, 0xDC82}},
      {"\xE2"
       "a",
       {0xDCE2, u'a'}},
      {"\xFF", {0xDCFF}},
  };
  for (const auto& [bytes, units] : cases) {
    EXPECT_EQ(TextFromUtf8(bytes), units) << testing::PrintToString(bytes);
    EXPECT_EQ(Utf8FromText(units), bytes) << testing::PrintToString(bytes);
  }
}

TEST(Utf8, ReplacesLoneSurrogatesThatAreNoBytes) {
  for (const char16_t unit : {0xD800, 0xDBFF, 0xDC00, 0xDC7F, 0xDD00, 0xDFFF}) {
    EXPECT_EQ(Utf8FromText(Text{u'a', unit, u'b'}),
              "a\xEF\xBF\xBD"
              "b");
  }
}

TEST(Utf8, GivesAnyBytesBack) {
  std::mt19937 random(7);
  // Bytes that lead, follow or mean nothing, close together.
  const std::string bytes = "a\x80\xBF\xC3\xE2\xED\xF0\xF4\x9F\xA0\xFF\xC0";
  for (int round = 0; round < 20000; ++round) {
    std::string sample;
    for (std::size_t length = random() % 9; length > 0; --length) {
      sample += round % 2 == 0 ? bytes[random() % bytes.size()] : static_cast<char>(random());
    }
    ASSERT_EQ(Utf8FromText(TextFromUtf8(sample)), sample) << testing::PrintToString(sample);
  }
}

}  // namespace
}  // namespace tarvo
