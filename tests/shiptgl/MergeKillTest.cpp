#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <random>

#include "TGLToolsTesting.h"
#include "platform/HostMachine.h"
#include "shiptgl/UpdateGameTGL.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

/// How often the test kills: TARVO_KILLS, by default 300.
int Kills() {
  const char* asked = std::getenv("TARVO_KILLS");
  return asked ? std::atoi(asked) : 300;
}

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

  const std::string journal = game.machine.folder.Host("journal");
  std::minstd_rand chance(20);
  int killed = 0;
  for (int run = 0; run < Kills(); ++run) {
    game.Define(u"Nord", texts(run % 2 == 0));
    const pid_t child = fork();
    if (child == 0) {
      // As a program does it that starts, merges and ends.
      const auto disk = OpenFiles(journal);
      FailingFiles files(*disk);
      TestMachine& machine = game.machine;
      PacDialogue dialogue(machine.app);
      Application app({files, machine.settings, machine.registry, machine.sound, machine.video,
                       machine.locale, machine.clock, machine},
                      machine, dialogue, machine.ProgramFolder());
      app.State = machine.app.State;
      _exit(UpdateGameTGL(app, u"Nord") ? 0 : 1);
    }
    usleep(chance() % 4000);
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    killed += WIFSIGNALED(status);
    ASSERT_TRUE(WIFSIGNALED(status) || WEXITSTATUS(status) == 0);
    const FileText ships = game.machine.Bytes(game.ships);
    const FileText quickBattle = game.machine.Bytes(game.quickBattle);
    ASSERT_TRUE(ships == states[0].first || ships == states[1].first) << "run " << run;
    ASSERT_TRUE(quickBattle == states[0].second || quickBattle == states[1].second)
        << "run " << run;
  }
  EXPECT_GT(killed, Kills() / 10);
  RecordProperty("killed", killed);
  OpenFiles(journal)->RemoveAbandoned();
  EXPECT_EQ(game.machine.FilesBelow(game.machine.GameFolder()).size(), 3u);
}

}  // namespace
}  // namespace tarvo::test
