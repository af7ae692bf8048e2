#include <gtest/gtest.h>

#include "ships/Golden.h"
#include "ships/ShipPlugin.h"
#include "text/CodePage.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

using namespace std::string_literals;

const ShipPlugin kFederation{u"U_2",     u"Icon 9", u"Fed Ships", u"Mod \u00E4\u20AC",
                             u"A \"B\"", u"2.1b",   u"http://x",  u"none"};

TEST(ShipPlugin, TextsAreThoseOfTheGoldenFiles) {
  EXPECT_EQ(ShipPluginText(kFederation, u"Fed", u"1/2/2003"), Golden("federation.py"));
  const ShipPlugin base{u"Deep_Space_9", u"Deep_Space_9", u"Bases", u"", u"",
                        u"1.0",          u"http://",      u""};
  EXPECT_EQ(ShipPluginText(base, u"StarBase", u"02.01.2003"), Golden("base.py"));
  const ShipPlugin custom{u"Cube", u"c", u"Borg Ships", u"Cubes", u"x", u"1.0", u"http://", u"y"};
  EXPECT_EQ(ShipPluginText(custom, u"", u"1/2/2003"), Golden("custom.py"));
}

TEST(ShipPlugin, RaceWordFollowsTheMenu) {
  struct Case {
    TextView menu;
    bool isCustom;
    TextView word;
  };
  const std::vector<Text> customMenus = {u"Borg Ships", u"Odd"};
  for (const Case& c : {Case{u"Fed Ships", false, u"Fed"}, Case{u"Kessok Ships", false, u"Kessok"},
                        Case{u"Other Ships", false, u""}, Case{u"Bases", false, u"StarBase"},
                        Case{u"Borg Ships", true, u""}, Case{u"Klingon Ships", true, u""},
                        Case{u"Borg Ships", false, u"Borg"}, Case{u"Odd", false, u""},
                        Case{u"odd", false, u"odd"}, Case{u" ships", false, u"StarBase"},
                        Case{u"", false, u"StarBase"}, Case{u"A SHIPS b Ships", false, u"A b"},
                        Case{u"Other shipS", false, u""}, Case{u"Ships", false, u"Ships"}}) {
    EXPECT_EQ(RaceWord(c.menu, c.isCustom, customMenus), c.word) << Utf8FromText(c.menu);
  }
}

TEST(ShipPlugin, MadeAnewFromWhatWasReadItIsTheSameText) {
  for (const TextView menu :
       {u"Federation Ships", u"Cardassian Ships", u"Bases", u"Fed", u"Odd\""}) {
    ShipPlugin plugin = kFederation;
    plugin.Menu = MenuInPlugin(menu);
    plugin.Comments = u"\u00BFone, two; # \\ {} = (3)?";
    const FileText text = ShipPluginText(plugin, u"", u"1/2/2003");
    ShipPlugin read = ReadShipPlugin(text);
    EXPECT_EQ(MenuOnScreen(read.Menu), menu);
    read.Ship = plugin.Ship;
    EXPECT_EQ(ShipPluginText(read, u"", u"1/2/2003"), text);
  }
}

TEST(ShipPlugin, ReadingPutsUpWithPluginsWrittenByHand) {
  struct Case {
    FileTextView text;
    Text icon;
    Text menu;
  };
  for (const Case& c : {
           Case{"", u"", u""},
           Case{"iconName = \"Icon\"\nmenuGroup = \"Fed Ships\"\n", u"", u""},
           Case{"iconName = 'Icon", u"", u""},
           Case{"iconName = '", u"", u""},
           Case{"menuGroup = 'A'\niconName='b'\niconName = 'c'", u"c", u"A"},
           Case{"playerMenuGroup = 'No'\nmenuGroup = 'Yes'", u"", u"Yes"},
           Case{"iconName = 'a\tb\r\nc\x7F\x81'", u"a b  c  ", u""},
           Case{"iconName = 'first'\niconName = 'second'", u"first", u""},
           Case{"iconName = 'it\\'s'", u"it\\", u""},
       }) {
    const ShipPlugin read = ReadShipPlugin(c.text);
    EXPECT_EQ(read.Icon, c.icon) << c.text;
    EXPECT_EQ(read.Menu, c.menu) << c.text;
  }
}

TEST(ShipScript, HasTheNewNameInEveryPlaceOfTheOld) {
  EXPECT_EQ(ShipScriptText(WholeText("Galaxy, galaxy GALAXY\r\n\tGalaxyGalaxy"), u"U_2"),
            "U_2, galaxy GALAXY\r\n\tU_2U_2");
  EXPECT_EQ(ShipScriptText(WholeText("Galaxy"), u"My Galaxy"), "My Galaxy");
  EXPECT_EQ(ShipScriptText(WholeText("Gal\0axy"s), u"x"), "Gal\0axy"s);
}

}  // namespace
}  // namespace tarvo::test
