#include "OldGame.h"

// What a file system can hold that Windows never has, or not for every user.

namespace tarvo::test {
namespace {

TEST(OldLayout, NamesThatDifferInCaseAloneLoseNothing) {
  OldGame game;
  game.Put("Plugins/Custom/Custom.py", "marker");
  game.Put("Plugins/Custom/ship.py", "lower");
  game.Put("Plugins/Custom/Ship.py", "upper");
  game.Put("Plugins/notes", "lower notes");
  game.Put("Plugins/Notes", "upper notes");
  const std::set<FileText> before = game.AllBytes();
  game.Run();
  EXPECT_FALSE(game.HasOldFolders());
  EXPECT_EQ(game.AllBytes(), before);
}

TEST(OldLayout, LinkedFoldersAreNeverEmptied) {
  struct Case {
    const char* link;
    const char* target;
    bool upgrades;
  };
  for (const Case& c : {
           Case{"Plugins", "elsewhere", true},
           Case{"Plugins/Custom", "elsewhere/Custom", true},
           Case{"Plugins/linked", "elsewhere", true},
           Case{"Plugins/circle", "game/scripts", true},
           // The new places lie in the old ones: what moved there would go with them.
           Case{"Custom/Ships", "game/scripts/Plugins/Custom", false},
           Case{"Custom/AutoLoad", "game/scripts/Plugins", false},
           Case{"Custom/Ships/A.py", "game/scripts/Plugins/Custom/A.py", false},
       }) {
    SCOPED_TRACE(c.link);
    OldGame game;
    const TemporaryFolder& folder = game.machine.folder;
    const std::string link = folder.Host("game/scripts/") + c.link;
    const bool replacesFolder =
        std::string_view(c.link).ends_with("Custom") || std::string_view(c.link) == "Plugins";
    const std::string filled = replacesFolder ? "elsewhere/" : "game/scripts/Plugins/";
    for (const char* path : {"Custom/Custom.py", "Custom/A.py", "p.py"}) {
      folder.Put(filled + path, path);
    }
    if (replacesFolder) folder.Put("game/scripts/Plugins/q.py", "q");
    if (std::string_view(c.link) == "Plugins") fs::remove_all(link);
    folder.Put("elsewhere/kept.txt", "kept");
    if (fs::is_directory(link)) fs::remove(link);
    fs::create_symlink(folder.Host(c.target), link);
    const std::set<FileText> before = game.AllBytes();
    game.Run();
    EXPECT_EQ(game.HasOldFolders(), !c.upgrades);
    EXPECT_EQ(game.machine.boxes.size(), c.upgrades ? 1u : 0u);
    EXPECT_EQ(fs::is_symlink(link), !c.upgrades);
    EXPECT_EQ(folder.Get("elsewhere/kept.txt"), "kept");
    if (c.upgrades) {
      EXPECT_EQ(folder.Get("game/scripts/Custom/Ships/A.py"), "Custom/A.py");
    }
    if (replacesFolder) {
      EXPECT_EQ(folder.Get("elsewhere/Custom/A.py"), "Custom/A.py");
    }
    std::set<FileText> after = game.AllBytes();
    after.insert({"Custom/Custom.py", "kept"});
    for (const FileText& bytes : before) EXPECT_TRUE(after.contains(bytes)) << bytes;
  }
}

}  // namespace
}  // namespace tarvo::test
