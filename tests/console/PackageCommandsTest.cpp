#include "console/ConsoleTesting.h"
#include "packages/PackageFormat.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

class PackageCommands : public Console {
 protected:
  Outcome Pack(std::vector<std::string> entries) {
    entries.insert(entries.begin(), {"pack", "x"});
    return Do(entries);
  }
  Outcome Install() { return Do({"install", "x"}); }
  Outcome Verify() { return Do({"verify", "x"}); }
  Outcome List() { return Do({"list", "x"}); }
};

TEST_F(PackageCommands, TellsWhereTheGameIs) {
  EXPECT_EQ(Do({"game"}).results, Utf8FromText(options.Game) + "\noption\n");
  settings.Write(u"Tarvo Packager", u"Settings", u"GamePath", options.Game);
  options.Game.clear();
  EXPECT_EQ(Do({"game"}).results, Utf8FromText(folder.Game(u"game")) + "\nsettings\n");
  options.Json = true;
  settings.Write(u"Tarvo Packager", u"Settings", u"GamePath", u"");
  registry.SetText(u"SOFTWARE\\Activision\\Star Trek: Bridge Commander\\V1.1", u"INSTALLPATH",
                   u"Z:\\bc");
  EXPECT_EQ(Do({"game"}).results, "{\"folder\":\"Z:\\\\bc\",\"source\":\"registry\"}\n");
  registry = {};
  EXPECT_EQ(Do({"game"}).status, 1);
  options.Game = folder.Game(u"missing");
  EXPECT_EQ(Do({"game"}).status, 3);
}

TEST_F(PackageCommands, PacksListsVerifiesAndInstalls) {
  const Outcome packed = Pack({"scripts", "/scripts2/B b.py", "ShipTGLs"});
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

TEST_F(PackageCommands, QuestionsAreAnsweredByOptionTerminalOrNo) {
  Pack({"scripts2"});
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

TEST_F(PackageCommands, StatusTellsWhatWentWrong) {
  EXPECT_EQ(Install().status, 1);
  EXPECT_EQ(Install().words, "Critical: That is not a Valid Tarvo File Name!!!\n");
  const Outcome missing = Pack({"scripts\\missing.py"});
  EXPECT_EQ(missing.status, 3);
  EXPECT_NE(missing.words.find("missing.py: " + SystemWords(kNoSuchFile)), std::string::npos);
  folder.Put("game/s/a;b.py", "x");
  EXPECT_EQ(Pack({"s"}).status, 1);
  files.Fail(FileStep::Write, 2, kDiskFull);  // The first one is that of the note.
  const Outcome full = Pack({"scripts"});
  EXPECT_EQ(full.status, 3);
  EXPECT_NE(full.words.find("x.Tarvo: " + SystemWords(kDiskFull)), std::string::npos);
  Pack({"scripts2"});
  options.Answer = u"All";
  files.Fail(FileStep::Commit, 2, kAccessDenied);  // The first one is that of the note.
  const Outcome denied = Install();
  EXPECT_EQ(denied.status, 3);
  EXPECT_NE(denied.words.find("Critical: Can't write to File "), std::string::npos);
}

/// A folder that can't be listed, a source that can't be read, one that ends early.
TEST_F(PackageCommands, NoPackageLacksAFileAndTheOldOneStands) {
  Pack({"scripts2"});
  const std::string old = folder.Get("program/Tarvos/x.Tarvo");
  for (const FileStep step : {FileStep::List, FileStep::Open, FileStep::Read}) {
    files.Fail(step, 1, kReadFault);
    const Outcome failed = Pack({"scripts"});
    EXPECT_EQ(failed.status, 3);
    EXPECT_NE(failed.words.find(SystemWords(kReadFault)), std::string::npos);
    EXPECT_EQ(folder.Get("program/Tarvos/x.Tarvo"), old);
    files.Heal();
  }
  EXPECT_EQ(Pack({"scripts", "scripts2/mistyped.py"}).status, 3);
  EXPECT_EQ(folder.Get("program/Tarvos/x.Tarvo"), old);
}

TEST_F(PackageCommands, AListThatNoReaderTakesIsNotWritten) {
  const std::string part(200, 'n');
  const std::string name = part + "/" + part + "/" + part + "/" + part;
  folder.Put("game/" + name, "");
  std::vector<std::string> entries(kLongestHead / name.size() + 1, name);
  EXPECT_EQ(Pack(entries).status, 1);
  EXPECT_EQ(disk->FileNames(folder.Game(u"program\\Tarvos")).size(), 0u);
  entries.resize(kLongestHead / (name.size() + 3) - 10);
  EXPECT_EQ(Pack(entries).status, 0);
  EXPECT_EQ(Verify().status, 0);
}

TEST_F(PackageCommands, ACommandThatChangesTheGameIsRefusedWhileAnotherOneDoes) {
  Pack({"scripts2"});
  const LockAttempt other = disk->TryLock(options.Game, u"tarvo merge Nord");
  for (const std::vector<std::string>& words :
       std::vector<std::vector<std::string>>{{"install", "x"},
                                             {"enable", "A"},
                                             {"add-menu", "A"},
                                             {"merge", "A"},
                                             {"ship-plugin", "A", "--menu", "Bases"},
                                             {"sound-plugin", "A", "--sound", "a,b,10"}}) {
    const Outcome refused = Do(words);
    EXPECT_EQ(refused.status, 3) << words[0];
    EXPECT_NE(refused.words.find("tarvo merge Nord"), std::string::npos) << words[0];
  }
  EXPECT_EQ(Do({"ships"}).status, 0);
  EXPECT_EQ(folder.Entries("game"), 4u) << "the lock is all that is new";
}

TEST_F(PackageCommands, PackagesThatAreNotInOrderAreStatusOneWithTheReason) {
  folder.Put("program/Tarvos/x.Tarvo",
             PackageHead(u"\\..\\a\r\n", u"") + "body" + BodyEnd() + "more");
  EXPECT_EQ(Verify().status, 1);
  EXPECT_EQ(Verify().results,
            "\\..\\a: it leads out of its folder\n4 bytes stand behind the last file\n");
  const Outcome refused = Install();
  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(refused.words,
            "Critical: An Error Occured while trying to extract!\n"
            "x.Tarvo: \\..\\a: it leads out of its folder\n");
  folder.Put("program/Tarvos/x.Tarvo", "nonsense");
  EXPECT_EQ(List().status, 1);
  EXPECT_EQ(List().results, "");
}

TEST_F(PackageCommands, FolderGivesOnlyFilesThatLeadBackToItsRoot) {
  folder.Put("game/data/Ships.TGL", "game's own");
  folder.Put("game/data/model.nif", "nif");
  const Outcome run = Pack({"data"});
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.words.find("\\data\\Ships.TGL: left out"), std::string::npos);
  EXPECT_EQ(List().results, "\\data\\model.nif\n");
}

}  // namespace
}  // namespace tarvo::test
