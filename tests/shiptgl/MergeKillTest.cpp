#include <chrono>
#include <random>
#include <thread>

#include "TGLToolsTesting.h"
#include "shiptgl/UpdateGameTGL.h"
#include "support/Child.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

/// Starts, merges and ends, as a program does it.
const KnownChildPart kMerge("Merge", [](const std::string& folder) {
  TestMachine machine(TemporaryFolder::OfOther{folder});
  machine.app.State.GamePath = machine.GameFolder();
  machine.app.State.AppVersion = u"BETA v4.0";
  SayReady();
  return UpdateGameTGL(machine.app, u"Nord") ? 0 : 1;
});

TEST(MergeKill, KilledMergeLeavesEachDatabaseOldOrNew) {
  TGLMachine game;
  std::vector<TGLString> many;
  for (int i = 0; i < 2000; ++i) {
    const Text number = TextFromUtf8(std::to_string(i));
    many.push_back({u"Ship " + number, Text(40, u'x') + number, u""});
  }
  for (const Text& path : {game.ships, game.quickBattle}) game.Write(path, many);
  const auto texts = [](bool second) {
    return ShipTexts{.LongName = second ? u"Second" : u"First", .Tactics = Text(500, u't')};
  };
  std::vector<std::pair<FileText, FileText>> states;
  for (const bool second : {false, true}) {
    game.Define(u"Nord", texts(second));
    ASSERT_TRUE(UpdateGameTGL(game.machine.app, u"Nord"));
    states.emplace_back(game.machine.Bytes(game.ships), game.machine.Bytes(game.quickBattle));
  }
  ASSERT_NE(states[0], states[1]);

  using Time = std::chrono::microseconds;
  std::minstd_rand chance(20);
  Time whole{0};
  int killed = 0;
  const int runs = Kills(300);
  for (int run = 0; run <= runs; ++run) {
    game.Define(u"Nord", texts(run % 2 == 0));
    Child child("Merge", game.machine.folder.Host());
    ASSERT_TRUE(child.WaitUntilReady());
    if (run == 0) {
      // The first one may end, and tells how long they take.
      const auto start = std::chrono::steady_clock::now();
      ASSERT_EQ(child.Wait(), 0);
      whole = std::chrono::duration_cast<Time>(std::chrono::steady_clock::now() - start);
      continue;
    }
    std::this_thread::sleep_for(Time(chance() % static_cast<unsigned>(whole.count())));
    child.Kill();
    const int status = child.Wait();
    ASSERT_TRUE(status == -1 || status == 0) << status;
    killed += status == -1;
    const FileText ships = game.machine.Bytes(game.ships);
    const FileText quickBattle = game.machine.Bytes(game.quickBattle);
    ASSERT_TRUE(ships == states[0].first || ships == states[1].first) << "run " << run;
    ASSERT_TRUE(quickBattle == states[0].second || quickBattle == states[1].second)
        << "run " << run;
  }
  EXPECT_GT(killed, runs / 10);
  RecordProperty("killed", killed);
  game.machine.disk->RemoveAbandoned();
  EXPECT_EQ(game.machine.FilesBelow(game.machine.GameFolder()).size(), 3u);
}

}  // namespace
}  // namespace tarvo::test
