#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <memory>

#include "ships/Golden.h"
#include "ships/ShipPlugin.h"
#include "shiptgl/PluginPatch.h"
#include "support/TemporaryFolder.h"
#include "text/CodePage.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

/// What the scripts do in a Python, with stand-ins for the modules of the game.
class ShipRun : public testing::Test {
 protected:
  /// The lines that run.py gives for the script; what Python complains of stands behind them.
  std::string Run(const std::string& kind, FileTextView script, const std::string& name) {
    folder.Put("script.py", script);
    const std::string command = "PYTHONDONTWRITEBYTECODE=1 PYTHONPATH=" TARVO_SOURCE
                                "/tests/support/python python3 " TARVO_SOURCE
                                "/tests/support/python/run.py " +
                                kind + " '" + folder.Host("script.py") + "' " + name + " 2>&1";
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    std::string all;
    std::array<char, 4096> block;
    while (const std::size_t got = fread(block.data(), 1, block.size(), pipe.get())) {
      all.append(block.data(), got);
    }
    return all;
  }

  TemporaryFolder folder;
};

TEST_F(ShipRun, EveryPluginRegistersWhatItSays) {
  struct Case {
    TextView menu;
    bool isCustom;
    std::string ship;
    std::string className;
    std::string inPlugin;
  };
  for (const Case& c :
       {Case{u"Federation Ships", false, "Nordlicht", "FedShipDef", "Fed Ships"},
        Case{u"Klingon Ships", false, "B_52", "KlingonShipDef", "Klingon Ships"},
        Case{u"Romulan Ships", false, "_1a", "RomulanShipDef", "Romulan Ships"},
        Case{u"Ferengi Ships", false, "a9", "FerengiShipDef", "Ferengi Ships"},
        Case{u"Cardassian Ships", false, "G2_", "CardShipDef", "Card Ships"},
        Case{u"Kessok Ships", false, "NX01_Refit_9", "KessokShipDef", "Kessok Ships"},
        Case{u"Other Ships", false, "X", "ShipDef", "Other Ships"},
        Case{u"Bases", false, "Deep_Space_9", "StarBaseDef", "Bases"},
        Case{u"\u00C4 & \"B\" Ships", true, "Cube", "ShipDef", "\u00C4 & \"B\" Ships"}}) {
    const Text ship = TextFromUtf8(c.ship);
    const ShipPlugin plugin{ship,  u"Icon \u00FC", MenuInPlugin(c.menu), u"Mod",
                            u"Me", u"1.0",         u"http://",           u"# no comment"};
    const std::string player =
        c.inPlugin == "Bases" ? std::string() : "player menu " + c.inPlugin + "\n";
    const FileText text =
        ShipPluginText(plugin, RaceWord(plugin.Menu, c.isCustom, {}), u"1/2/2003");
    const auto registered = [&](const std::string& description) {
      return c.className + "\n" + c.ship + " 101 [('iconName', 'Icon \u00FC'), ('name', '" +
             c.ship + "'), ('shipFile', '" + c.ship + "')]\nmenu " + c.inPlugin + "\n" + player +
             description + "\n['new', 'new', 'known'] ['new', 'new', 'known']\n" +
             "[('author', 'Me'), ('comments', '# no comment'), ('modName', 'Mod'), " +
             "('sources', ['http://']), ('version', '1.0')]\n";
    };
    EXPECT_EQ(Run("plugin", text, c.ship), registered("No Description Available"));
    const std::optional<FileText> patched = PatchForTGL(WholeText(text), FileTextFromText(ship));
    ASSERT_TRUE(patched);
    EXPECT_EQ(Run("plugin", *patched, c.ship), registered("texts of the game: 1 1"));
    EXPECT_EQ(ReadShipPlugin(*patched), ReadShipPlugin(text));
  }
}

TEST_F(ShipRun, ScriptMadeOfTheTemplateLoadsTheModelsOfItsShip) {
  const FileText script = ShipScriptText(WholeText(SourceFile("data/Backup/Galaxy.py")), u"U_2");
  EXPECT_EQ(
      Run("ship", script, "U_2"),
      "[('FilenameHigh', 'data/Models/Ships/U_2/U_2.nif'), "
      "('FilenameLow', 'data/Models/Ships/U_2/U_2Low.nif'), "
      "('FilenameMed', 'data/Models/Ships/U_2/U_2Med.nif'), ('HardpointFile', 'U_2'), "
      "('Name', 'U_2'), ('Species', 1)]\n"
      "U_2: ['level data/Models/Ships/U_2/U_2.nif', 'level data/Models/Ships/U_2/U_2Med.nif', "
      "'level data/Models/Ships/U_2/U_2Low.nif', 'load bit by bit']\nload\n");
}

}  // namespace
}  // namespace tarvo::test
