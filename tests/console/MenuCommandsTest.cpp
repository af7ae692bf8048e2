#include "console/ConsoleTesting.h"

namespace tarvo::test {
namespace {

class MenuCommands : public Console {
 protected:
  void SetUp() override {
    Console::SetUp();
    for (const char* kept : {"game/Scripts/ships/Hardpoints/_", "game/Scripts/Custom/Autoload/_",
                             "game/sfx/Weapons/_", "game/data/TGL/QuickBattle/_"}) {
      folder.Put(kept, "x");
    }
    folder.Put("game/Scripts/ships/Cube.py", "\"Name\": \"x\",");
    folder.Put("game/Scripts/Custom/Ships/Cube.py", "menuGroup = 'Borg Ships'\r\n");
  }

  /// The names that `menus` lists behind the built-in ones.
  std::string CustomMenus() {
    const std::string all = Do({"menus"}).results;
    const std::string last = "\nBases\n";
    return all.substr(all.find(last) + last.size());
  }
};

TEST_F(MenuCommands, ListsAddsAndDeletes) {
  options.Answer = u"Yes";
  const Outcome added = Do({"add-menu", "Borg"});
  EXPECT_EQ(added.results, "The QB Species Menu has been Updated!\n");
  EXPECT_EQ(added.words, "");
  EXPECT_EQ(added.status, 0);
  EXPECT_EQ(CustomMenus(), "Borg Ships\n");
  options.Json = true;
  EXPECT_TRUE(
      Do({"menus"}).results.ends_with(",{\"custom\":false,\"index\":7,\"name\":\"Bases\"},"
                                      "{\"custom\":true,\"index\":8,\"name\":\"Borg Ships\"}]\n"));
  const Outcome deleted = Do({"delete-menu", "Borg Ships"});
  EXPECT_EQ(deleted.results,
            "[\"The Selected QB Menu Items have been Removed from the Game!\","
            "\"All ships that were under that Menu have been moved to the \\\"Other Ships\\\" "
            "Menu!\"]\n");
  EXPECT_EQ(deleted.status, 0);
  EXPECT_NE(folder.Get("game/Scripts/Custom/Ships/Cube.py").find("'Other Ships'"),
            std::string::npos);
  options.Json = false;
  EXPECT_EQ(CustomMenus(), "");
}

TEST_F(MenuCommands, UnknownAndBuiltInMenusStayAndAreStatusOne) {
  Do({"add-menu", "Borg"});
  const std::string species = folder.Get("program/QBMenus/Species.TGL");
  for (const char* name : {"Borg", "borg ships", "Bases", ""}) {
    const Outcome run = Do({"delete-menu", name});
    EXPECT_EQ(run.status, 1) << name;
    EXPECT_EQ(run.results, "");
    EXPECT_NE(run.words, "");
  }
  EXPECT_EQ(folder.Get("program/QBMenus/Species.TGL"), species);
}

TEST_F(MenuCommands, DeleteReachesAMenuThatHasABuiltInOnesName) {
  Do({"add-menu", "Klingon"});
  options.Answer = u"Yes";
  EXPECT_EQ(Do({"delete-menu", "Klingon Ships"}).status, 0);
  EXPECT_EQ(CustomMenus(), "");
}

TEST_F(MenuCommands, StatusTellsWhetherDiskOrContentFailed) {
  Do({"add-menu", "Borg"});
  const std::string game = folder.Get("game/data/TGL/QuickBattle/QuickBattle.TGL");
  files.Fail(FileStep::Commit, 2, kDiskFull);  // The first one is that of the note.
  const Outcome full = Do({"add-menu", "Gorn"});
  EXPECT_EQ(full.status, 3);
  EXPECT_EQ(full.results, "");
  EXPECT_NE(full.words.find("QuickBattle.TGL: " + SystemWords(kDiskFull)), std::string::npos)
      << full.words;
  files.Heal();
  folder.Put("program/QBMenus/Species.TGL", "no database");
  EXPECT_EQ(Do({"menus"}).status, 1);
  EXPECT_EQ(Do({"add-menu", "Gorn"}).status, 1);
  files.Fail(FileStep::Open, 1, kAccessDenied, true);
  const Outcome closed = Do({"menus"});
  EXPECT_EQ(closed.status, 3);
  EXPECT_NE(closed.words.find("Error: " + SystemWords(kAccessDenied)), std::string::npos);
  files.Heal();
  EXPECT_EQ(folder.Get("program/QBMenus/Species.TGL"), "no database");
  EXPECT_EQ(folder.Get("game/data/TGL/QuickBattle/QuickBattle.TGL"), game);
}

}  // namespace
}  // namespace tarvo::test
