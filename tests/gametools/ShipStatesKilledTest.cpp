#include <chrono>
#include <optional>
#include <random>
#include <thread>

#include "gametools/ShipTesting.h"
#include "support/Child.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

constexpr int kShips = 120;

using Operation = void (frmGameTools::*)();

constexpr Operation kOperations[] = {&frmGameTools::DisableShips, &frmGameTools::EnableShips,
                                     &frmGameTools::DeleteShips};

/// Runs the operation whose number stands in front of the folder's name on all ships.
const KnownChildPart kOperate("Operate", [](const std::string& argument) {
  TestMachine machine(TemporaryFolder::OfOther{argument.substr(1)});
  machine.Start();
  frmGameTools& screen = machine.app.Screen<frmGameTools>();
  screen.Visible = true;
  screen.ListShips();
  for (ListBox* list : {&screen.lstEnabled, &screen.lstDisabled}) {
    for (std::size_t row = 0; row < list->Count(); ++row) list->SetSelected(row, true);
  }
  machine.answers = {u"Yes"};
  SayReady();
  (screen.*kOperations[argument[0] - '0'])();
  return 0;
});

class KilledShipStates : public ShipScreen {
 protected:
  void SetUp() override {
    ShipScreen::SetUp();
    for (int ship = 0; ship < kShips; ++ship) AddShip(Name(ship));
  }

  static Text Name(int ship) { return TextFromUtf8("Ship" + std::to_string(ship)); }

  void PutShips(TextView ending) {
    for (const Text& file : PluginFiles()) machine.disk->Remove(Plugin(file));
    for (int ship = 0; ship < kShips; ++ship) {
      const std::string path = "game/Scripts/custom/ships/" + Utf8FromText(Name(ship));
      machine.folder.Put(path + Utf8FromText(ending), PluginBytes(Name(ship), "Fed Ships"));
      machine.folder.Put(path + ".pyc", "compiled");
    }
  }

  using Time = std::chrono::microseconds;

  /// Runs the operation on all ships in a process that is killed a while after it began, or ends
  /// by itself when `lifetime` is nothing. Gives how long it ran.
  Time RunAndKill(int operation, std::optional<Time> lifetime) {
    Child child("Operate", std::to_string(operation) + machine.folder.Host());
    EXPECT_TRUE(child.WaitUntilReady());
    const auto start = std::chrono::steady_clock::now();
    if (lifetime) {
      std::this_thread::sleep_for(*lifetime);
      child.Kill();
    }
    child.Wait();
    return std::chrono::duration_cast<Time>(std::chrono::steady_clock::now() - start);
  }

  /// How many plug-ins have that ending. One that was changed, or a second one of its ship, fails
  /// the test.
  int Count(TextView ending, TextView other) {
    int count = 0;
    for (int ship = 0; ship < kShips; ++ship) {
      const FileText bytes = machine.Bytes(Plugin(Name(ship) + Text(ending)));
      if (bytes == "(missing)") continue;
      ++count;
      EXPECT_EQ(bytes, PluginBytes(Name(ship), "Fed Ships"));
      EXPECT_FALSE(machine.disk->FileExists(Plugin(Name(ship) + Text(other))));
    }
    return count;
  }
};

TEST_F(KilledShipStates, EveryShipStandsInOneOfThem) {
  struct Case {
    int operation;
    TextView ending;
    bool deletes;
  };
  std::mt19937 random(3);
  int between = 0;
  const int runs = Kills(12);
  for (const Case& c :
       {Case{0, u".py", false}, Case{1, u".Disabled", false}, Case{2, u".py", true}}) {
    PutShips(c.ending);
    const Time whole = RunAndKill(c.operation, {});
    for (int run = 0; run < runs; ++run) {
      PutShips(c.ending);
      RunAndKill(c.operation, Time(random() % static_cast<unsigned>(whole.count())));
      const int enabled = Count(u".py", u".Disabled");
      const int disabled = Count(u".Disabled", u".py");
      EXPECT_EQ(c.deletes ? disabled : enabled + disabled, c.deletes ? 0 : kShips);
      between += enabled > 0 && enabled < kShips;
    }
  }
  EXPECT_GT(between, 0) << "no run was cut short in the middle";
}

}  // namespace
}  // namespace tarvo::test
