#include <gtest/gtest.h>

#include <sstream>

#include "console/PackageCommands.h"
#include "packages/PackageFormat.h"
#include "platform/HostMachine.h"
#include "support/FailingFiles.h"
#include "support/Fakes.h"
#include "support/TemporaryFolder.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

/// What one run of the tool gave.
struct Outcome {
  int status;
  std::string results;
  std::string words;
};

class Console : public testing::Test {
 protected:
  void SetUp() override {
    folder.Put("game/stbc.exe", "game");
    folder.Put("game/Scripts/ships/A.py", "a");
    folder.Put("game/scripts2/B b.py", "bb");
    folder.Put("program/ShipTGLs/A.TGL", "tgl");
    options.Game = folder.Game(u"game");
    options.ProgramFolder = folder.Game(u"program");
  }

  Outcome Do(const std::function<int(Session&)>& command) {
    std::ostringstream results;
    std::ostringstream words;
    Session session({files, settings, registry, locale, clock}, options, results, words,
                    [this]() -> std::optional<std::string> {
                      if (typed.empty()) return {};
                      std::string line = typed.front();
                      typed.pop_front();
                      return line;
                    });
    const int status = command(session);
    return {status, results.str(), words.str()};
  }

  Outcome Pack(const std::vector<Text>& entries) {
    return Do([&](Session& session) { return RunPack(session, u"x", entries); });
  }
  Outcome Install() {
    return Do([](Session& session) { return RunInstall(session, u"x"); });
  }
  Outcome Verify() {
    return Do([](Session& session) { return RunVerify(session, u"x"); });
  }
  Outcome List() {
    return Do([](Session& session) { return RunList(session, u"x"); });
  }

  TemporaryFolder folder;
  std::unique_ptr<Files> disk = OpenFiles(folder.Host("journal"));
  FailingFiles files{*disk};
  MemorySettings settings;
  MemoryRegistry registry;
  FixedLocale locale;
  ScriptedClock clock;
  SessionOptions options;
  std::deque<std::string> typed;
};

TEST_F(Console, TellsWhereTheGameIs) {
  EXPECT_EQ(Do(RunGame).results, Utf8FromText(options.Game) + "\noption\n");
  settings.Write(u"Tarvo Packager", u"Settings", u"GamePath", options.Game);
  options.Game.clear();
  EXPECT_EQ(Do(RunGame).results, Utf8FromText(folder.Game(u"game")) + "\nsettings\n");
  options.Json = true;
  settings.Write(u"Tarvo Packager", u"Settings", u"GamePath", u"");
  registry.SetText(u"SOFTWARE\\Activision\\Star Trek: Bridge Commander\\V1.1", u"INSTALLPATH",
                   u"Z:\\bc");
  EXPECT_EQ(Do(RunGame).results, "{\"folder\":\"Z:\\\\bc\",\"source\":\"registry\"}\n");
  registry = {};
  EXPECT_EQ(Do(RunGame).status, 1);
  options.Game = folder.Game(u"missing");
  EXPECT_EQ(Do(RunGame).status, 3);
}

TEST_F(Console, PacksListsVerifiesAndInstalls) {
  const Outcome packed = Pack({u"scripts", u"/scripts2/B b.py", u"ShipTGLs"});
  EXPECT_EQ(packed.results, "\"x.Tarvo\" has been Created!\n");
  EXPECT_EQ(packed.words, "");
  EXPECT_EQ(packed.status, 0);
  EXPECT_EQ(List().results, "\\scripts\\ships\\A.py\n\\scripts2\\B b.py\n\\ShipTGLs\\A.TGL\n");
  options.Json = true;
  EXPECT_EQ(
      List().results,
      "[\"\\\\scripts\\\\ships\\\\A.py\",\"\\\\scripts2\\\\B b.py\",\"\\\\ShipTGLs\\\\A.TGL\"]\n");
  EXPECT_EQ(Verify().results, "{\"bytes\":6,\"entries\":3,\"findings\":[]}\n");
  options.Json = false;
  options.Game = folder.Game(u"second");
  folder.Put("second/stbc.exe", "game");
  EXPECT_EQ(Install().results, "Tarvo \"x\" has been installed into your Game!\n");
  EXPECT_EQ(folder.Get("second/scripts2/B b.py"), "bb");
}

TEST_F(Console, QuestionsAreAnsweredByOptionTerminalOrNo) {
  Pack({u"scripts2"});
  struct Case {
    TextView option;
    std::deque<std::string> typed;
    const char* expected;
  };
  for (const Case& c : {Case{u"Yes", {}, "bb"}, Case{u"No", {}, "old"}, Case{u"All", {}, "bb"},
                        Case{u"", {}, "old"}, Case{u"", {"what?", " y "}, "bb"},
                        Case{u"", {"ALL"}, "bb"}, Case{u"", {"n", "y"}, "old"}}) {
    folder.Put("game/scripts2/B b.py", "old");
    options.Answer = c.option;
    typed = c.typed;
    EXPECT_EQ(Install().status, 0);
    EXPECT_EQ(folder.Get("game/scripts2/B b.py"), c.expected);
  }
}

TEST_F(Console, StatusTellsWhatWentWrong) {
  EXPECT_EQ(Install().status, 1);
  EXPECT_EQ(Install().words, "Critical: That is not a Valid Tarvo File Name!!!\n");
  const Outcome missing = Pack({u"scripts\\missing.py"});
  EXPECT_EQ(missing.status, 3);
  EXPECT_NE(missing.words.find("missing.py: No such file or directory"), std::string::npos);
  folder.Put("game/s/a;b.py", "x");
  EXPECT_EQ(Pack({u"s"}).status, 1);
  files.Fail(FileStep::Write, 1, ENOSPC);
  const Outcome full = Pack({u"scripts"});
  EXPECT_EQ(full.status, 3);
  EXPECT_NE(full.words.find("x.Tarvo: No space left on device"), std::string::npos);
  Pack({u"scripts2"});
  options.Answer = u"All";
  files.Fail(FileStep::Commit, 1, EACCES);
  const Outcome denied = Install();
  EXPECT_EQ(denied.status, 3);
  EXPECT_NE(denied.words.find("Critical: Can't write to File "), std::string::npos);
}

TEST_F(Console, PackagesThatAreNotInOrderAreStatusOneWithTheReason) {
  folder.Put("program/Tarvos/x.Tarvo",
             PackageHead(u"\\..\\a\r\n", u"") + "body" + BodyEnd() + "more");
  EXPECT_EQ(Verify().status, 1);
  EXPECT_EQ(Verify().results,
            "\\..\\a: it leads out of its folder\n4 bytes stand behind the last file\n");
  const Outcome refused = Install();
  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(refused.words,
            "Critical: An Error Occured while trying to extract!\n"
            "\\..\\a: it leads out of its folder\n");
  folder.Put("program/Tarvos/x.Tarvo", "nonsense");
  EXPECT_EQ(List().status, 1);
  EXPECT_EQ(List().results, "");
}

TEST_F(Console, FolderGivesOnlyFilesThatLeadBackToItsRoot) {
  folder.Put("game/data/Ships.TGL", "game's own");
  folder.Put("game/data/model.nif", "nif");
  const Outcome run = Pack({u"data"});
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.words.find("\\data\\Ships.TGL: left out"), std::string::npos);
  EXPECT_EQ(List().results, "\\data\\model.nif\n");
}

}  // namespace
}  // namespace tarvo::test
