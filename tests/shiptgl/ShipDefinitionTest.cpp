#include <gtest/gtest.h>

#include "shiptgl/PluginPatch.h"
#include "shiptgl/ShipDefinition.h"
#include "text/RaisedError.h"

namespace tarvo {
namespace {

ShipTexts Saved(const Text& ship, const ShipTexts& texts) {
  TGLStrings strings;
  AddDefinition(strings, ship, texts);
  return TextsOfDefinition(strings, ship);
}

TEST(ShipDefinition, HoldsThreeStringsThatTheGameFinds) {
  TGLStrings strings;
  AddDefinition(strings, u"Nord", {.LongName = u"USS Nord", .Description = u"Old"});
  EXPECT_EQ(*strings.Item(1), (TGLString{u"Nord", u"USS Nord", u"Nord.wav"}));
  EXPECT_EQ(*strings.Item(2), (TGLString{u"Nord Description",
                                         u"Description: Old\r\nWeapons: N/A\r\nShield Rating: "
                                         u"N/A\r\nHull Rating: N/A\r\nTactics: ",
                                         u"NordDescription.wav"}));
  EXPECT_EQ(*strings.Item(3), (TGLString{u"QBNord", u"USS Nord", u"sfx/QuickBattle/Nord.mp3"}));
}

TEST(ShipDefinition, ComesBackAsItWasSaved) {
  const ShipTexts filled{u"Übung – \u4E2D", u"Line 1\r\nLine 2", u"12 : 3", u"x\r\n\r\n", u"",
                         u"tactics"};
  for (const ShipTexts& texts : {ShipTexts{.LongName = u"A"}, filled}) {
    EXPECT_EQ(Saved(u"N\u00F6rd's 2", texts), texts);
  }
  EXPECT_EQ(Saved(u"A", {}).LongName, u" ") << "A string without text holds one blank.";
}

TEST(ShipDefinition, FieldWithALabelIsCutThere) {
  const ShipTexts texts = Saved(u"A", {.LongName = u"A", .Description = u"big weapons: many"});
  EXPECT_EQ(texts.Description, u"bi");
  EXPECT_EQ(texts.Weapons, u"many\r\nWeapons: N/A");
}

TEST(ShipDefinition, TextsOutOfFormAreRefused) {
  for (const TextView data :
       {u"", u"free text", u"Weapons: 1\r\nShield Rating: 2\r\nHull Rating: 3\r\nTactics: 4",
        u"Description: a\r\nWeapons: b\r\nHull Rating: c\r\nShield Rating: d\r\nTactics: e",
        u"Description: a\r\nWeapons: b\r\nShield Rating: c\r\nHull Rating: d",
        u"Description: a\r\nWeapons:Shield Rating:Hull Rating:Tactics:"}) {
    TGLStrings strings;
    strings.Add(u"A Description", Text(data), u"");
    EXPECT_THROW(TextsOfDefinition(strings, u"A"), RaisedError);
  }
}

TEST(ShipDefinition, NameThatFitsNoFileIsRefused) {
  for (const TextView ship :
       {u"", u" ", u"..\\x", u"a/b", u"a:b", u"a*", u"a\n", u"a..b", u"\u0416"}) {
    TGLStrings strings;
    EXPECT_THROW(AddDefinition(strings, Text(ship), {}), RaisedError);
    EXPECT_EQ(strings.Count(), 0);
  }
}

TEST(PluginPatch, TurnsCommentsIntoCodeAndStaysAfterThat) {
  const FileText blanks(52, ' ');
  const FileText plugin = "head\r\n# Uncomment these if you have TGL" + blanks +
                          "#\r\n# old\r\nFoundation.ShipDef.A.desc = 'Nothing'\r\ntail\r\n";
  const auto patched = PatchForTGL(WholeText(plugin), "A");
  EXPECT_EQ(patched,
            "head\r\n# Uncomment these if you have TGL  \r\n"
            "Foundation.ShipDef.A.hasTGLName = 1\r\n"
            "Foundation.ShipDef.A.hasTGLDesc = 1\r\n\r\n"
            "# Otherwise, uncomment this and type something in:\r\n"
            "# Foundation.ShipDef.A.desc = 'Nothing'\r\ntail\r\n");
  EXPECT_EQ(PatchForTGL(WholeText(*patched), "A"), patched);
}

TEST(PluginPatch, PluginsOfOthersKeepTheirRows) {
  struct Case {
    const char* Plugin;
    std::optional<FileText> Head;  ///< Of the patched text, up to the first new row.
  };
  const std::vector<Case> cases = {
      {"", {}},
      {"# Uncomment these if you have TGL", {}},
      {"x.desc = 'a'", {}},
      {"x.desc = 'a'\n# Uncomment these if you have TGL\n", {}},
      {"# Uncomment these if you have TGL\nx.desc = 'a'\n", "# Uncomment these if you have TGL  "},
      {"# Uncomment these if you have TGL:\r\nx.desc = 'a'", "# Uncomment these if you have TGL: "},
      {"# Uncomment these if you have TGL\r\nx.desc = 'a'",
       "# Uncomment these if you have TGL\r\n"},
  };
  for (const Case& c : cases) {
    const auto patched = PatchForTGL(WholeText(FileText(c.Plugin)), "A");
    ASSERT_EQ(patched.has_value(), c.Head.has_value()) << c.Plugin;
    if (!patched) continue;
    EXPECT_EQ(patched->substr(0, patched->find("\r\nFoundation")), c.Head);
    EXPECT_EQ(PatchForTGL(WholeText(*patched), "A"), patched);
  }
}

}  // namespace
}  // namespace tarvo
