#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <set>

#include "machine/TestMachine.h"
#include "state/StartUp.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

namespace fs = std::filesystem;

using Names = std::vector<Text>;

const TestMachine::Box kUpgraded{u"Tarvo BETA v4.0 has upgraded your files!", BoxIcon::Plain};

/// A game that stands already, and gets the old layout afterwards.
class OldGame {
 public:
  OldGame() {
    machine.Start();
    for (const char* folder : {"Ships", "AutoLoad"}) {
      fs::create_directories(machine.folder.Host("game/scripts/Custom/") + folder);
    }
  }

  void Put(const std::string& path, const std::string& bytes) {
    machine.folder.Put("game/scripts/" + path, bytes);
  }

  /// Something of each kind that the old folders may hold, each with bytes of its own.
  void PutEverything() {
    for (const char* path :
         {"plugins/Custom/Custom.py", "plugins/Custom/Akira.py", "plugins/Custom/Borg.PY",
          "plugins/Custom/Akira.pyc", "plugins/Custom/.hidden", "plugins/Custom/Sub/deep/x.py",
          "plugins/Effects.py", "plugins/Same.py", "plugins/notes.txt", "plugins/Other/y.py",
          "Custom/Ships/Borg.py", "Custom/Ships/Custom.py", "Custom/AutoLoad/Effects.py"}) {
      Put(path, path);
    }
    Put("Custom/AutoLoad/Same.py", "plugins/Same.py");
    fs::create_directories(machine.folder.Host("game/scripts/plugins/empty"));
    for (const char* path : {"plugins/Custom/Akira.py", "Custom/AutoLoad/Effects.py"}) {
      fs::permissions(machine.folder.Host("game/scripts/") + path, fs::perms::owner_read);
    }
  }

  void PutMany(int count) {
    Put("plugins/Custom/Custom.py", "marker");
    for (int i = 0; i < count; ++i) {
      const std::string name = "Ship" + std::to_string(i);
      Put("plugins/Custom/" + name + ".py", name);
      if (i % 5 == 0) Put("plugins/" + name + "_SoundPak.py", "sound of " + name);
      if (i % 7 == 0) Put("plugins/Custom/" + name + ".pyc", "compiled " + name);
      if (i % 50 == 0) Put("Custom/Ships/" + name + ".py", "newer " + name);
    }
  }

  void Run() { StartUpSequence(machine.app); }

  Text Status() { return machine.Start().StatusBar.Panel1.Get(); }

  Names Scripts() { return machine.FilesBelow(machine.GameFolder() + u"\\scripts"); }

  Names Kept() { return machine.disk->FolderExists(kept) ? machine.FilesBelow(kept) : Names(); }

  FileText KeptBytes(TextView path) { return machine.Bytes(kept + Text(path)); }

  bool HasOldFolders() { return machine.disk->FolderExists(machine.GameFolder() + kOld); }

  /// The bytes of all whole files in the game's scripts and among the kept ones.
  std::set<FileText> AllBytes() {
    std::set<FileText> all;
    for (const std::string& folder :
         {machine.folder.Host("game/scripts"), machine.folder.Host("program/Backup/Old layout")}) {
      if (!fs::exists(folder)) continue;
      for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        const bool isTemporary = entry.path().filename().string().starts_with(".tarvo-");
        if (!entry.is_regular_file() || isTemporary) continue;
        std::ifstream file(entry.path(), std::ios::binary);
        all.emplace(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
      }
    }
    return all;
  }

  TestMachine machine;
  const Text kept = machine.ProgramFolder() + u"\\Backup\\Old layout";
  const Text kOld = u"\\scripts\\Plugins";
};

TEST(OldLayout, PlugInsMoveAndTheRestIsKept) {
  OldGame game;
  game.PutEverything();
  game.Run();
  EXPECT_EQ(game.machine.boxes, std::vector{kUpgraded});
  EXPECT_EQ(game.Status(), u"Standing By...");
  EXPECT_EQ(game.Scripts(), (Names{u"\\Custom\\AutoLoad\\Effects.py",
                                   u"\\Custom\\AutoLoad\\Same.py", u"\\Custom\\FoundationConfig.py",
                                   u"\\Custom\\Ships\\Akira.py", u"\\Custom\\Ships\\Borg.py"}));
  EXPECT_FALSE(game.HasOldFolders());
  const Text custom = game.machine.GameFolder() + u"\\scripts\\Custom";
  EXPECT_EQ(game.machine.Bytes(custom + u"\\Ships\\Akira.py"), "plugins/Custom/Akira.py");
  EXPECT_EQ(game.machine.Bytes(custom + u"\\Ships\\Borg.py"), "plugins/Custom/Borg.PY");
  EXPECT_EQ(game.machine.Bytes(custom + u"\\AutoLoad\\Effects.py"), "plugins/Effects.py");
  EXPECT_EQ(
      game.Kept(),
      (Names{u"\\scripts\\Custom\\AutoLoad\\Effects.py", u"\\scripts\\Custom\\Ships\\Borg.PY",
             u"\\scripts\\Custom\\Ships\\Custom.py", u"\\scripts\\Plugins\\Custom\\.hidden",
             u"\\scripts\\Plugins\\Custom\\Akira.pyc", u"\\scripts\\Plugins\\Custom\\Custom.py",
             u"\\scripts\\Plugins\\Custom\\Sub\\deep\\x.py", u"\\scripts\\Plugins\\Other\\y.py",
             u"\\scripts\\Plugins\\notes.txt"}));
  EXPECT_EQ(game.KeptBytes(u"\\scripts\\Custom\\AutoLoad\\Effects.py"),
            "Custom/AutoLoad/Effects.py");
  EXPECT_TRUE(game.machine.disk->FolderExists(game.kept + u"\\scripts\\Plugins\\empty"));
  game.Run();
  EXPECT_EQ(game.machine.boxes.size(), 1u);
}

TEST(OldLayout, KeptFilesAreNumberedAndNeverOverwritten) {
  OldGame game;
  for (const char* bytes : {"first", "second", "first", "third"}) {
    game.Put("Plugins/Custom/Custom.py", bytes);
    game.Put("Plugins/notes", bytes);
    game.Run();
  }
  const Text plugins = u"\\scripts\\Plugins\\";
  EXPECT_EQ(game.Kept(),
            (Names{plugins + u"Custom\\Custom (2).py", plugins + u"Custom\\Custom (3).py",
                   plugins + u"Custom\\Custom.py", plugins + u"notes", plugins + u"notes (2)",
                   plugins + u"notes (3)"}));
  EXPECT_EQ(game.KeptBytes(plugins + u"notes (3)"), "third");
  EXPECT_EQ(game.machine.boxes.size(), 4u);
}

TEST(OldLayout, NeedsOnlyTheFoldersThatSomethingMovesTo) {
  struct Case {
    const char* missing;
    bool hasPlugins;
    bool upgrades;
  };
  for (const Case& c : {Case{"Ships", false, false}, Case{"AutoLoad", true, false},
                        Case{"AutoLoad", false, true}}) {
    SCOPED_TRACE(c.missing);
    OldGame game;
    game.Put("Plugins/Custom/Custom.py", "marker");
    game.Put("Plugins/Custom/A.py", "a");
    if (c.hasPlugins) game.Put("Plugins/p.py", "p");
    const std::string folder = game.machine.folder.Host("game/scripts/Custom/") + c.missing;
    fs::remove(folder);
    game.Run();
    EXPECT_EQ(game.HasOldFolders(), !c.upgrades);
    EXPECT_EQ(game.machine.boxes.size(), c.upgrades ? 1u : 0u);
    if (c.upgrades) continue;
    EXPECT_NE(game.Status().find(TextFromUtf8(c.missing)), Text::npos);
    EXPECT_EQ(game.machine.folder.Get("game/scripts/Plugins/Custom/A.py"), "a");
    fs::create_directory(folder);
    game.Run();
    EXPECT_FALSE(game.HasOldFolders());
    EXPECT_EQ(game.machine.boxes, std::vector{kUpgraded});
  }
}

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

TEST(OldLayout, NameThatReadsAsAWildcardStopsItBeforeAnythingGoes) {
  OldGame game;
  game.PutEverything();
  game.Put("plugins/*", "star");
  const std::set<FileText> before = game.AllBytes();
  game.Run();
  EXPECT_TRUE(game.machine.boxes.empty());
  EXPECT_NE(game.Status().find(u"Plugins\\*"), Text::npos);
  for (const FileText& bytes : before) EXPECT_TRUE(game.AllBytes().contains(bytes)) << bytes;
  EXPECT_EQ(game.machine.files.Steps(FileStep::Remove), 0);
}

/// One file of each way that a file can go.
void PutSome(OldGame& game) {
  for (const char* path :
       {"Plugins/Custom/Custom.py", "Plugins/Custom/A.py", "Plugins/Custom/B.py",
        "Plugins/Custom/A.pyc", "Plugins/p.py", "Plugins/Sub/x", "Custom/Ships/B.py"}) {
    game.Put(path, path);
  }
  fs::permissions(game.machine.folder.Host("game/scripts/Plugins/Custom/A.py"),
                  fs::perms::owner_read);
}

/// Cuts an upgrade in front of a step, by a failure or a kill, and lets the next start go on.
void CutAndGoOn(int step, bool kill, const std::function<void(OldGame&)>& put) {
  OldGame game;
  put(game);
  const std::set<FileText> before = game.AllBytes();
  if (kill) {
    game.machine.files.KillAt(step);
  } else {
    game.machine.files.FailAny(step, EIO);
  }
  bool killed = false;
  try {
    game.Run();
  } catch (const Killed&) {
    killed = true;
  }
  game.machine.files.Heal();
  ASSERT_EQ(killed, kill);
  const std::set<FileText> cut = game.AllBytes();
  for (const FileText& bytes : before) ASSERT_TRUE(cut.contains(bytes)) << "lost: " << bytes;
  const bool failed = !game.machine.app.Failures.empty();
  EXPECT_EQ(game.machine.boxes.size(), killed || failed ? 0u : 1u);

  game.Run();
  EXPECT_FALSE(game.HasOldFolders());
  EXPECT_EQ(game.machine.boxes, std::vector{kUpgraded});
  EXPECT_FALSE(game.machine.disk->FileExists(game.kept + u"\\Unfinished.txt"));
  const std::set<FileText> after = game.AllBytes();
  for (const FileText& bytes : before) ASSERT_TRUE(after.contains(bytes)) << "lost: " << bytes;
}

int StepsOf(const std::function<void(OldGame&)>& put) {
  OldGame game;
  put(game);
  const int before = game.machine.files.AllSteps();
  game.Run();
  return game.machine.files.AllSteps() - before;
}

TEST(OldLayout, CutAnywhereItLosesNothingAndTheNextStartGoesOn) {
  const int steps = StepsOf(PutSome);
  ASSERT_GT(steps, 100);
  for (int step = 1; step <= steps; ++step) {
    for (const bool kill : {false, true}) {
      SCOPED_TRACE(testing::Message() << (kill ? "killed" : "failed") << " at step " << step);
      ASSERT_NO_FATAL_FAILURE(CutAndGoOn(step, kill, PutSome));
      if (testing::Test::HasFailure()) return;
    }
  }
}

TEST(OldLayout, FiveHundredPlugInsSurviveACutAtAnyOfSomePoints) {
  const auto many = [](OldGame& game) { game.PutMany(500); };
  const int steps = StepsOf(many);
  std::minstd_rand chance(14);
  const char* wanted = std::getenv("TARVO_KILLS");
  const int runs = wanted ? std::atoi(wanted) : 4;
  for (int run = 0; run < runs; ++run) {
    const int step = 1 + static_cast<int>(chance() % static_cast<unsigned>(steps));
    SCOPED_TRACE(testing::Message() << "step " << step << " of " << steps);
    ASSERT_NO_FATAL_FAILURE(CutAndGoOn(step, run % 2 == 0, many));
  }
}

}  // namespace
}  // namespace tarvo::test
