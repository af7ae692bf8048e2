#include <random>

#include "OldGame.h"

namespace tarvo::test {
namespace {

TEST(OldLayout, PlugInsMoveAndTheRestIsKept) {
  OldGame game;
  game.PutEverything();
  game.Run();
  EXPECT_EQ(game.machine.boxes, std::vector{kUpgraded});
  EXPECT_EQ(game.Status(), u"9 files of the old layout are kept in " + game.kept);
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

/// Lets a step of an upgrade fail, and the next start go on.
void FailAndGoOn(int step, const std::function<void(OldGame&)>& put) {
  OldGame game;
  put(game);
  const std::set<FileText> before = game.AllBytes();
  game.machine.files.FailAny(step, kReadFault);
  game.Run();
  game.machine.files.Heal();
  const std::set<FileText> cut = game.AllBytes();
  for (const FileText& bytes : before) ASSERT_TRUE(cut.contains(bytes)) << "lost: " << bytes;
  const bool finished =
      !game.HasOldFolders() && !game.machine.disk->FileExists(game.kept + u"\\Unfinished.txt");
  const auto told = [&] {
    return std::count(game.machine.boxes.begin(), game.machine.boxes.end(), kUpgraded);
  };
  EXPECT_EQ(told(), finished ? 1 : 0);

  game.Run();
  EXPECT_FALSE(game.HasOldFolders());
  EXPECT_EQ(told(), 1);
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

TEST(OldLayout, FailingAnywhereItLosesNothingAndTheNextStartGoesOn) {
  const int steps = StepsOf(PutSome);
  ASSERT_GT(steps, 100);
  for (int step = 1; step <= steps; ++step) {
    SCOPED_TRACE(step);
    ASSERT_NO_FATAL_FAILURE(FailAndGoOn(step, PutSome));
    if (testing::Test::HasFailure()) return;
  }
}

TEST(OldLayout, FiveHundredPlugInsSurviveAFailureAtAnyOfSomePoints) {
  const auto many = [](OldGame& game) { game.PutMany(500); };
  const int steps = StepsOf(many);
  std::minstd_rand chance(14);
  for (int run = 0; run < 4; ++run) {
    const int step = 1 + static_cast<int>(chance() % static_cast<unsigned>(steps));
    SCOPED_TRACE(testing::Message() << "step " << step << " of " << steps);
    ASSERT_NO_FATAL_FAILURE(FailAndGoOn(step, many));
  }
}

}  // namespace
}  // namespace tarvo::test
