#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>

#include "sounds/SoundPlugin.h"

namespace tarvo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

FileText GoldenPlugin() {
  std::ifstream file(TARVO_GOLDEN_PLUGIN, std::ios::binary);
  std::ostringstream bytes;
  bytes << file.rdbuf();
  return bytes.str();
}

std::vector<Text> GoldenEntries() {
  return {SoundEntry(u"phaser1.wav", u"Galaxy Phaser Start", 100, u'.'),
          SoundEntry(u"phaser2.wav", u"Galaxy Phaser Loop", 100, u'.'),
          SoundEntry(u"torp.wav", u"Klingon Torpedo", 80, u'.')};
}

TEST(SoundPlugin, VolumeIsAFractionWithNoZerosBehind) {
  struct Case {
    int percent;
    char16_t mark;
    TextView expected;
  };
  for (const Case& c : {Case{10, u'.', u"0.1"}, Case{80, u',', u"0,8"}, Case{85, u'.', u"0.85"},
                        Case{5, u'.', u"0.05"}, Case{100, u',', u"1"}}) {
    EXPECT_EQ(VolumeText(c.percent, c.mark), c.expected) << c.percent;
  }
}

TEST(SoundPlugin, TextIsThatOfTheGoldenFileAndReadsBack) {
  EXPECT_EQ(SoundPluginText(GoldenEntries(), u"1/2/2003"), GoldenPlugin());
  EXPECT_EQ(SoundPluginEntries(GoldenPlugin()), GoldenEntries());
  EXPECT_EQ(GoldenEntries()[2], u"torp.wav\", \"Klingon Torpedo\", 0.8");
  const FileText empty = SoundPluginText({}, u"");
  EXPECT_EQ(std::count(empty.begin(), empty.end(), '\n'), 13);
  EXPECT_THAT(SoundPluginEntries(empty), IsEmpty());
  const std::vector<Text> western = {u"\u00DCber.wav\", \"Caf\u00E9 \u20AC\", 1"};
  EXPECT_EQ(SoundPluginEntries(SoundPluginText(western, u"")), western);
}

TEST(SoundPlugin, ReadsHandMadeLinesAsFarAsTheyHaveTheForm) {
  const FileText line = "Foundation.SoundDef(\"sfx/Weapons/a.wav\", \"A\", 1)";
  const Text entry = u"a.wav\", \"A\", 1";
  struct Case {
    FileText text;
    std::vector<Text> expected;
  };
  for (const Case& c :
       {Case{"x\r\n" + line + "\r\n", {entry}}, Case{line + "\n" + line + "\r\n", {entry, entry}},
        Case{line + "\n" + line, {entry}}, Case{line, {}}, Case{"    " + line + " \t\r\n", {entry}},
        Case{"Foundation.SoundDef('sfx/Weapons/a.wav', 'A', 1)\r\n", {}},
        Case{"Foundation.SoundDef(\"sfx/Weapons/a.wav\",\t\"A\", 1)\r\n", {entry}},
        Case{"Foundation.SoundDef(\"sfx/Weapons/\r\n" + line + "\r\n", {entry}},
        Case{"Foundation.SoundDef(\"sfx/Weapons/)\n" + line + "\n", {entry}}, Case{"", {}}}) {
    EXPECT_EQ(SoundPluginEntries(c.text), c.expected) << c.text;
  }
}

}  // namespace
}  // namespace tarvo
