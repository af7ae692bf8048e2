#include "console/ConsoleTesting.h"
#include "shiptgl/ShipDefinition.h"
#include "text/Utf8.h"
#include "tgl/TGLFile.h"

namespace tarvo::test {
namespace {

class TGLCommands : public Console {
 protected:
  void SetUp() override {
    Console::SetUp();
    for (const TextView path :
         {u"game\\data\\TGL\\Ships.TGL", u"game\\data\\TGL\\QuickBattle\\QuickBattle.TGL"}) {
      folder.Put(Utf8FromText(Slashes(path)), "");
      TGLFile file(*disk);
      file.Strings().Add(u"Galaxy", u"Galaxy\tClass\r\n\\", u"g.wav");
      file.Update(folder.Game(path), true);
    }
  }

  static Text Slashes(TextView path) {
    Text slashes(path);
    std::replace(slashes.begin(), slashes.end(), u'\\', u'/');
    return slashes;
  }

  Outcome Show(const std::string& name) { return Do({"tgl", "show", folder.Host(name)}); }

  static constexpr const char* kShips = "game/data/TGL/Ships.TGL";
  static constexpr const char* kQuickBattle = "game/data/TGL/QuickBattle/QuickBattle.TGL";
};

TEST_F(TGLCommands, DefineAndMergeBringAShipIntoTheGame) {
  const Outcome defined = Do({"define", "Nord", "--long-name", "USS \u00DCber", "--hull", "1"});
  EXPECT_EQ(defined.results, "Ship TGL Definition has been Saved!\n");
  EXPECT_EQ(defined.status, 0);
  EXPECT_EQ(Do({"merge", "Nord"}).status, 0);
  EXPECT_NE(Show(kQuickBattle).results.find("Nord\tsfx/QuickBattle/Nord.mp3\tUSS \u00DCber\n"),
            std::string::npos);
  EXPECT_NE(Show(kShips).results.find("Nord Description\tNordDescription.wav\tDescription: \\r\\n"
                                      "Weapons: N/A\\r\\nShield Rating: N/A\\r\\nHull Rating: "
                                      "1\\r\\nTactics: \n"),
            std::string::npos);
  const std::string once = folder.Get(kShips) + folder.Get(kQuickBattle);
  EXPECT_EQ(Do({"merge", "--all"}).status, 1) << "A.TGL of the program folder is no database.";
  EXPECT_EQ(folder.Get(kShips) + folder.Get(kQuickBattle), once);
}

TEST_F(TGLCommands, MergeTellsWhatItCouldNotDo) {
  Do({"define", "Nord", "--long-name", "N"});
  const Outcome unknown = Do({"merge", "Unknown"});
  EXPECT_EQ(unknown.status, 1);
  EXPECT_EQ(unknown.words, "There is no ship definition \"Unknown\".\n");

  folder.Put(kQuickBattle, "no database");
  const Outcome damaged = Do({"merge", "Nord"});
  EXPECT_EQ(damaged.status, 1);
  EXPECT_NE(damaged.words.find("QuickBattle.TGL: An error occurred"), std::string::npos);

  disk->Remove(folder.Game(u"game\\data\\TGL\\Ships.TGL"));
  const Outcome missing = Do({"merge", "Nord"});
  EXPECT_EQ(missing.status, 3);
  EXPECT_NE(missing.words.find("Critical: Your Nord.TGL file is not Valid with BETA v4.0"),
            std::string::npos);
  EXPECT_NE(missing.words.find("Ships.TGL"), std::string::npos);
  EXPECT_NE(missing.words.find(SystemWords(kNoSuchFile)), std::string::npos);
}

TEST_F(TGLCommands, MergeClearsTheReadOnlyMark) {
  Do({"define", "Nord", "--long-name", "N"});
  disk->SetAttributes(folder.Game(u"game\\data\\TGL\\Ships.TGL"), kReadOnlyFile);
  EXPECT_EQ(Do({"merge", "Nord"}).status, 0);
}

TEST_F(TGLCommands, ShowEscapesAndRewriteKeeps) {
  EXPECT_EQ(Show(kShips).results, "Galaxy\tg.wav\tGalaxy\\tClass\\r\\n\\\\\n");
  EXPECT_EQ(Do({"tgl", "rewrite", folder.Host(kShips), folder.Host("copy.TGL")}).status, 0);
  EXPECT_EQ(folder.Get("copy.TGL"), folder.Get(kShips));
  EXPECT_EQ(Show("missing.TGL").status, 3);
  EXPECT_EQ(Show("program/ShipTGLs/A.TGL").status, 1);
  EXPECT_EQ(Do({"tgl", "hash", "Yes"}).results.size(), 9u);
}

TEST_F(TGLCommands, RepairDropsWhatTheLoaderRefuses) {
  // Three strings: a blank name, and two names that differ only in case.
  std::string damaged = folder.Get(kShips).substr(0, 12);
  damaged += std::string("\3\0\0\0", 4) + std::string(36, '\0');
  damaged += std::string("\6\0\0\0\0a\0A\0", 9) + std::string("\0\0\0\0", 4);
  damaged += std::string("x\0\0\0y\0\0\0z\0\0\0", 12) + std::string("\0\0\0\0", 4);
  damaged += std::string("1\0002\0003\0", 6);
  folder.Put("bad.TGL", damaged);
  EXPECT_EQ(Do({"tgl", "rewrite", folder.Host("bad.TGL"), folder.Host("out.TGL")}).status, 1);
  const Outcome shown = Show("bad.TGL");
  EXPECT_EQ(shown.results, "\t1\tx\na\t2\ty\nA\t3\tz\n");
  EXPECT_EQ(shown.status, 0);
  const Outcome repaired = Do({"tgl", "repair", folder.Host("bad.TGL"), folder.Host("out.TGL")});
  EXPECT_EQ(repaired.status, 0);
  EXPECT_EQ(std::count(repaired.results.begin(), repaired.results.end(), '\n'), 2);
  EXPECT_EQ(Show("out.TGL").results, "a\t2\ty\n");
  options.Json = true;
  EXPECT_EQ(Show("out.TGL").results, "[{\"data\":\"y\",\"media\":\"2\",\"name\":\"a\"}]\n");
}

}  // namespace
}  // namespace tarvo::test
