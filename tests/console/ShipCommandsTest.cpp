#include <algorithm>

#include "console/ConsoleTesting.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

class ShipCommands : public Console {
 protected:
  void SetUp() override {
    Console::SetUp();
    folder.Put("game/scripts/ships/Hardpoints/hull.py", "h");
    folder.Put("game/scripts/ships/Good.py", kGood);
    folder.Put("game/scripts/ships/Bad.py", "\"Name\": \"x\",\"HardpointFile\": \"hull\",");
    folder.Put("game/scripts/ships/empty.py", "");
    folder.Put("game/scripts/Custom/Ships/Good.py", "menuGroup = 'Fed Ships'");
    folder.Put("game/scripts/Custom/Ships/Bad.py", "menuGroup = \"none\"");
    folder.Put("game/scripts/Custom/Ships/Off.Disabled", "menuGroup = 'Bases'");
    folder.Put("game/sfx/Weapons/a.wav", "w");
    folder.Put("program/Backup/Galaxy.py", kGood);
  }

  /// The names in the folder of the plug-ins.
  std::string Plugins() {
    std::string names;
    for (const Text& name : disk->FileNames(folder.Game(u"game\\scripts\\Custom\\Ships"))) {
      names += Utf8FromText(name) + " ";
    }
    return names;
  }

  static constexpr const char* kGood = "\"Name\": \"Good\",\"HardpointFile\": \"hull\",";
};

TEST_F(ShipCommands, LookingCommandsTellTheStateAndChangeNothing) {
  const std::string before = Plugins();
  struct Case {
    std::vector<std::string> words;
    int status;
    std::string json;
  };
  const std::string goodReport =
      R"({"errors":0,"references":[{"found":true,"label":"Name:","path":"\\scripts\\ships\\Good.py","pyc":null},)"
      R"({"found":true,"label":"HardpointFile:","path":"\\scripts\\ships\\Hardpoints\\hull.py","pyc":null}],"ship":"Good"})";
  options.Json = true;
  for (
      const Case& c :
      {Case{
           {"ships"},
           0,
           R"({"disabled":["Off"],"enabled":[{"menu":"","name":"Bad"},{"menu":"Federation Ships","name":"Good"}]})"},
       Case{{"check", "Good"}, 0, "[" + goodReport + "]"},
       Case{{"check", "Nobody", "Good"}, 1, "[" + goodReport + "]"},
       Case{{"check", "good"}, 1, "[]"},
       Case{
           {"read-plugin", "Good"},
           0,
           R"({"author":"","comments":"","icon":"","menu":"Federation Ships","modName":"","sources":"","version":""})"},
       Case{{"read-plugin", "Off"}, 1, ""}}) {
    const Outcome run = Do(c.words);
    EXPECT_EQ(run.status, c.status) << run.words;
    EXPECT_EQ(run.results, c.json.empty() ? "" : c.json + "\n");
    EXPECT_EQ(run.words.empty(), c.status == 0);
  }
  options.Json = false;
  EXPECT_EQ(Do({"ships"}).results, "enabled Bad\nenabled Good Federation Ships\ndisabled Off\n");
  EXPECT_EQ(Plugins(), before);
  EXPECT_EQ(folder.Get("game/scripts/ships/empty.py"), "");
}

TEST_F(ShipCommands, CheckShowsBothBoxesAndFindsFault) {
  const Outcome bad = Do({"check", "Bad"});
  EXPECT_EQ(bad.status, 1);
  EXPECT_EQ(bad.results.find("Checking File Structures...\n\n==="), 0u);
  EXPECT_NE(bad.results.find("List of Possible Problems...\n\n1 Critical Error(s):"),
            std::string::npos);
  files.Fail(FileStep::Open, 1, kAccessDenied);
  const Outcome unreadable = Do({"check", "Good"});
  EXPECT_EQ(unreadable.status, 3);
  EXPECT_NE(unreadable.words.find("Good.py: " + SystemWords(kAccessDenied)), std::string::npos);
}

TEST_F(ShipCommands, StatesChangeForTheShipsThatAreNamed) {
  struct Case {
    std::vector<std::string> words;
    TextView answer;
    int status;
    std::string plugins;
  };
  for (const Case& c :
       {Case{{"disable", "Good"}, u"", 0, "Bad.py Good.Disabled Off.Disabled "},
        Case{{"disable", "Good", "Off"}, u"", 0, "Bad.py Good.Disabled Off.Disabled "},
        Case{{"disable", "Nobody", "Bad"}, u"", 1, "Bad.Disabled Good.Disabled Off.Disabled "},
        Case{{"enable", "good"}, u"", 1, "Bad.Disabled Good.Disabled Off.Disabled "},
        Case{{"enable", "Good"}, u"", 0, "Bad.Disabled Good.py Off.Disabled "},
        Case{{"enable", "Bad"}, u"", 1, "Bad.Disabled Good.py Off.Disabled "},
        Case{{"delete", "Good"}, u"", 0, "Bad.Disabled Good.py Off.Disabled "},
        Case{{"delete", "Good"}, u"No", 0, "Bad.Disabled Good.py Off.Disabled "},
        Case{{"delete", "Nobody"}, u"Yes", 1, "Bad.Disabled Good.py Off.Disabled "},
        Case{{"delete", "Good", "Off"}, u"Yes", 0, "Bad.Disabled "},
        Case{{"delete", "Bad"}, u"All", 0, ""}}) {
    options.Answer = c.answer;
    EXPECT_EQ(Do(c.words).status, c.status) << c.words[0] << ' ' << c.words[1];
    EXPECT_EQ(Plugins(), c.plugins) << c.words[0] << ' ' << c.words[1];
  }
}

TEST_F(ShipCommands, PluginsAreMadeAndReadBack) {
  const Outcome made = Do({"ship-plugin", "Good", "--menu", "Bases", "--icon", "I", "--author",
                           "\u00C4", "--version", "2", "--sources", "s", "--comments", "c d"});
  EXPECT_EQ(made.status, 0) << made.words;
  EXPECT_EQ(made.results, "Your Ship has been added to the Game!!!\n");
  EXPECT_EQ(Do({"read-plugin", "Good"}).results,
            "icon: I\nmenu: Bases\nmodName: Good\nauthor: \u00C4\nversion: 2\nsources: s\n"
            "comments: c d\n");
  files.Fail(FileStep::Replace, 1, kAccessDenied);
  const Outcome denied = Do({"ship-plugin", "Good", "--menu", "Bases"});
  EXPECT_EQ(denied.status, 3);
  EXPECT_EQ(denied.results, "");
  EXPECT_NE(denied.words.find("Good.py: " + SystemWords(kAccessDenied)), std::string::npos);
}

}  // namespace
}  // namespace tarvo::test
