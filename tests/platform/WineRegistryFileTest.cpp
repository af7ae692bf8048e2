#include <gtest/gtest.h>

#include <random>

#include "platform/posix/WineRegistryFile.h"

namespace tarvo {
namespace {

const std::string kHead =
    "WINE REGISTRY Version 2\n;; All keys relative to REGISTRY\\\\Machine\n\n#arch=win64\n\n";

/// The one value of a file with the line `line` in its one key.
std::optional<RegistryValue> ValueOf(const std::string& line) {
  const auto values =
      ReadWineKey(kHead + "[Key] 1795379174\n#time=1dd7abfb892170c\n" + line, u"key");
  if (!values || values->empty()) return std::nullopt;
  EXPECT_EQ(values->size(), 1u);
  return values->begin()->second;
}

TEST(WineRegistryFile, ReadsStrings) {
  const struct {
    std::string Line;
    Text Value;
  } cases[] = {
      {R"("n"="C:\\Games\\BC")", u"C:\\Games\\BC"},
      {R"("n"="")", u""},
      {R"("n"="say \"hi\"; #1")", u"say \"hi\"; #1"},
      {R"("n"="\x00e9a\xe9g\x20ac")", u"éaég€"},
      {R"("n"="\xd83d\xde80")", u"\U0001F680"},
      {R"("n"="\a\b\t\n\v\f\r\e")", u"\a\b\t\n\v\f\r\x1b"},
      {R"("n"="\0017\29\1")",
       u"\1"
       u"7"
       u"\2"
       u"9\1"},
      {R"("n"="aa\0bb")", Text(u"aa\0bb", 5)},
      {"\"n\"=\"\x7F\"\r", u"\x7F"},
      {"\"n\"=hex(1):61,00,e4,00,00,00", u"aä"},
      {"\"n\"=hex(1):61,62,63", u"\x6261"},
      {"\"n\"=hex(1):", u""},
      {R"("n"=str(1):"text")", u"text"},
  };
  for (const auto& [line, text] : cases) {
    const auto value = ValueOf(line + '\n');
    ASSERT_TRUE(value) << line;
    EXPECT_EQ(value->Type, kRegistryString) << line;
    EXPECT_EQ(value->String, text) << line;
  }
}

TEST(WineRegistryFile, ReadsOtherTypesAsBytes) {
  using namespace std::string_literals;
  const struct {
    std::string Line;
    std::uint32_t Type;
    std::string Data;
    Text String;
  } cases[] = {
      {"\"n\"=dword:deadbeef", 4, "\xEF\xBE\xAD\xDE", u""},
      {"\"n\"=hex:00,11,fF", 3, "\x00\x11\xFF"s, u""},
      {"\"n\"=hex:", 3, "", u""},
      {"\"n\"=hex:00,11,\\\n  22,33,\\\r\n  44", 3, "\x00\x11\x22\x33\x44"s, u""},
      {"\"n\"=hex(b):88,77", 0xB, "\x88\x77", u""},
      {"\"n\"=hex(4):ef,be", 4, "\xEF\xBE", u""},
      {"\"n\"=hex(0):", 0, "", u""},
      {"\"n\"=str(2):\"%A%\"", 2, "%\0A\0%\0\0\0"s, u"%A%"},
      {"\"n\"=str(7):\"a\\0\"", 7, "a\0\0\0\0\0"s, u""},
  };
  for (const auto& [line, type, data, text] : cases) {
    const auto value = ValueOf(line + '\n');
    ASSERT_TRUE(value) << line;
    EXPECT_EQ(value->Type, type) << line;
    EXPECT_EQ(value->Data, data) << line;
    EXPECT_EQ(value->String, text) << line;
  }
}

TEST(WineRegistryFile, PassesOverBrokenLines) {
  for (const char* line :
       {"\"n\"=\"never ends", "\"n\"=\"ends in a backslash\\", "\"n\"=dword:xyz",
        "\"n\"=dword:", "\"n\"=dword:123456789", "\"n\"=hex:0,zz", "\"n\"=hex:00;11",
        "\"n\"=hex(:00", "\"n\"=hex(zz):", "\"n\"=what", "\"n\"", "n=\"x\"", "\"n=\"", "=", "@",
        "#\"n\"=\"x\"", ";\"n\"=\"x\"", ""}) {
    EXPECT_FALSE(ValueOf(line)) << line;
    // The next line stands.
    const auto value = ValueOf(std::string(line) + "\n\"m\"=\"x\"\n");
    ASSERT_TRUE(value) << line;
    EXPECT_EQ(value->String, u"x");
  }
}

TEST(WineRegistryFile, FindsKeysAndNamesWithoutRegardToCase) {
  const std::string file = kHead + R"([Software\\A] 1
"x"="wrong"

[Software\\A\\\[b\] "c" \x00e9] 1795379174
#class="[Software\\Z]"
#link
@="default"
"X \"y\"\\"="1"
"Last"="2"

[Software\\A\\Later]
"z"="3"
)";
  const auto values = ReadWineKey(file, u"SOFTWARE\\a\\[B] \"C\" É");
  ASSERT_TRUE(values);
  EXPECT_EQ(values->size(), 3u);
  EXPECT_EQ(values->at(u"").String, u"default");
  EXPECT_EQ(values->at(u"x \"y\"\\").String, u"1");
  EXPECT_EQ(values->at(u"last").String, u"2");
  EXPECT_EQ(ReadWineKey(file, u"software\\a\\later")->at(u"z").String, u"3");
  for (const TextView missing :
       {u"Software", u"Software\\", u"Software\\Z", u"Software\\A\\Late", u""}) {
    EXPECT_FALSE(ReadWineKey(file, missing));
  }
  EXPECT_FALSE(ReadWineKey("[Key]\n\"n\"=\"x\"\n", u"Key"));
}

TEST(WineRegistryFile, SurvivesGarbage) {
  const std::string whole =
      kHead + "[Key] 1\n\"a\"=\"\\x00e9\\\\\"\n\"b\"=hex(7):00,11,\\\n  22\n@=dword:1\n";
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    ReadWineKey(whole.substr(0, length), u"Key");
  }
  std::mt19937 random(3);
  const std::string bytes = "[]\\\"=@#;hexstr()dword:,0129afx\n\r \xFF";
  int found = 0;
  for (int round = 0; round < 20000; ++round) {
    std::string file = whole;
    for (int i = 0; i < 3; ++i) {
      file[kHead.size() + random() % (whole.size() - kHead.size())] =
          bytes[random() % bytes.size()];
    }
    found += ReadWineKey(file, u"Key").has_value();
  }
  EXPECT_GT(found, 1000);
}

}  // namespace
}  // namespace tarvo
