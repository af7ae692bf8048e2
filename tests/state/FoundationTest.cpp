#include <gtest/gtest.h>

#include "machine/TestMachine.h"
#include "platform/Sound.h"
#include "shell/frmMainMenu.h"
#include "shell/frmOptions.h"
#include "state/Foundation.h"
#include "state/StartUp.h"

namespace tarvo::test {
namespace {

using Names = std::vector<Text>;

const TestMachine::Box kLacking{u"The Newest Foundation System is not installed!!!",
                                BoxIcon::Critical};
const TestMachine::Box kInstalled{u"Foundation System has been installed!!!", BoxIcon::Information};
const TestMachine::Box kDeclined{
    u"OK Then, Please Select a Copy of BC that has Foundation Installed", BoxIcon::Information};

class FoundationTest : public testing::Test {
 protected:
  FoundationTest() { machine.hasFoundation = false; }

  void PutCopy() {
    machine.WriteFile(copy + u"\\loose.txt", "stays");
    machine.WriteFile(copy + u"\\scripts\\Foundation.py", "new");
    machine.WriteFile(copy + u"\\scripts\\AI\\FoundationAI.py", "new AI");
    machine.WriteFile(copy + u"\\scripts\\Custom\\FoundationConfig.py", "new config");
    machine.WriteFile(copy + u"\\scripts\\Custom\\more.py", "more");
  }

  /// A game with old scripts, in another letter case than the copy's.
  void PutOldScripts() {
    machine.WriteFile(game + u"\\Scripts\\foundation.PY", "old");
    machine.disk->SetAttributes(scripts + u"\\foundation.PY", kReadOnlyFile);
    machine.WriteFile(scripts + u"\\Foundation.pyc", "compiled");
    machine.WriteFile(scripts + u"\\ai\\mine.py", "mine");
  }

  const Text& Status() { return machine.Start().StatusBar.Panel1.Get(); }

  TestMachine machine;
  Text game = machine.GameFolder();
  Text scripts = game + u"\\scripts";
  Text copy = machine.ProgramFolder() + u"\\Foundation";
};

TEST_F(FoundationTest, OffersToInstallItAndGoesOnWithAnyAnswer) {
  PutCopy();
  struct Case {
    TextView answer;
    bool sound;
    bool installs;
  };
  for (const Case& c : {Case{u"No", true, false}, Case{u"", true, false}, Case{u"No", false, false},
                        Case{u"Yes", false, true}}) {
    machine.settings.Write(u"Tarvo Packager", u"Settings", u"SoundFX", c.sound ? u"1" : u"0");
    machine.Start();
    machine.boxes.clear();
    machine.questions.clear();
    machine.sound.Orders.clear();
    machine.answers = {Text(c.answer)};
    StartUpSequence(machine.app);
    EXPECT_EQ(machine.questions, Names{u"Install Foundation Now?"});
    EXPECT_EQ(machine.boxes, (std::vector{kLacking, c.installs ? kInstalled : kDeclined}));
    EXPECT_EQ(machine.disk->FolderExists(scripts), c.installs);
    EXPECT_EQ(machine.sound.Orders.empty(), !c.sound);
    if (!c.sound) continue;
    ASSERT_GE(machine.sound.Orders.size(), 3u);
    const Text effects = machine.ProgramFolder() + u"\\Sfx\\";
    EXPECT_EQ(machine.sound.Orders[1],
              (RecordingSound::Order{effects + u"CriticalError.wav", kPlayToEnd, true}));
    EXPECT_EQ(machine.sound.Orders[2],
              (RecordingSound::Order{effects + u"Question.wav", kPlay, true}));
  }
  machine.boxes.clear();
  StartUpSequence(machine.app);
  EXPECT_TRUE(machine.boxes.empty());
}

TEST_F(FoundationTest, LaysItsFoldersOverThoseOfTheGame) {
  PutCopy();
  PutOldScripts();
  machine.answers = {u"Yes"};
  machine.Start();
  const Names expected{u"\\Scripts\\Custom\\FoundationConfig.py",
                       u"\\Scripts\\Custom\\more.py",
                       u"\\Scripts\\ai\\FoundationAI.py",
                       u"\\Scripts\\ai\\mine.py",
                       u"\\Scripts\\foundation.PY",
                       u"\\stbc.exe"};
  for (int run = 0; run < 2; ++run) {
    EXPECT_EQ(machine.FilesBelow(game), expected);
    EXPECT_EQ(machine.Bytes(scripts + u"\\Foundation.py"), "new");
    EXPECT_EQ(machine.disk->Attributes(scripts + u"\\Foundation.py") & kReadOnlyFile, 0u);
    EXPECT_EQ(Status(), u"Standing By...");
    InstallFoundation(machine.app);
  }
}

TEST_F(FoundationTest, ChangesNothingWithoutFoldersToCopyAndSaysSo) {
  PutOldScripts();
  struct Case {
    const char* what;
    std::function<void()> prepare;
  };
  for (const Case& c : {
           Case{"no folder Foundation", [] {}},
           Case{"a file alone", [&] { machine.WriteFile(copy + u"\\Read Me.txt", "x"); }},
           Case{"a folder that can't be listed",
                [&] { machine.files.Fail(FileStep::List, 1, kAccessDenied); }},
       }) {
    SCOPED_TRACE(c.what);
    machine.Start();
    c.prepare();
    machine.answers = {u"Yes"};
    StartUpSequence(machine.app);
    EXPECT_NE(Status().find(copy), Text::npos);
    EXPECT_EQ(machine.boxes.back(), kInstalled);
    EXPECT_NE(machine.boxes[machine.boxes.size() - 2].Message.find(Status()), Text::npos);
    EXPECT_EQ(machine.Bytes(scripts + u"\\Foundation.pyc"), "compiled");
    EXPECT_EQ(machine.disk->Attributes(scripts + u"\\Foundation.py") & kReadOnlyFile,
              kReadOnlyFile);
  }
}

TEST_F(FoundationTest, CompiledScriptGoesWhereAScriptStandsOrComes) {
  PutCopy();
  struct Case {
    TextView script;
    bool stands;
    bool comes;
    bool isOurs;
  };
  const Case cases[] = {{u"\\LoadBridge", true, false, true},
                        {u"\\Registry", false, true, true},
                        {u"\\Icons\\ShipIcons", true, true, true},
                        {u"\\StaticDefs", false, false, true},
                        {u"\\Custom\\more", true, true, false}};
  for (const Case& c : cases) {
    const Text name(c.script);
    machine.WriteFile(scripts + name + u".pyc", "compiled");
    if (c.stands) machine.WriteFile(scripts + name + u".py", "old");
    if (c.comes) machine.WriteFile(copy + u"\\scripts" + name + u".py", "new");
  }
  machine.answers = {u"Yes"};
  machine.Start();
  for (const Case& c : cases) {
    const bool stays = !c.isOurs || (!c.stands && !c.comes);
    EXPECT_EQ(machine.disk->FileExists(scripts + Text(c.script) + u".pyc"), stays)
        << testing::PrintToString(c.script);
  }
}

TEST_F(FoundationTest, FileThatCantBeWrittenIsNotedAndOfferedAgain) {
  PutCopy();
  machine.WriteFile(scripts + u"\\AI\\FoundationAI.py\\in the way", "mine");
  machine.answers = {u"Yes", u"Yes"};
  machine.Start();
  EXPECT_EQ(machine.boxes.back(), kInstalled);
  EXPECT_NE(Status().find(scripts + u"\\AI\\FoundationAI.py"), Text::npos);
  EXPECT_EQ(machine.Bytes(scripts + u"\\Custom\\more.py"), "more");
  EXPECT_EQ(machine.Bytes(scripts + u"\\Custom\\FoundationConfig.py"), "(missing)");

  machine.disk->Remove(scripts + u"\\AI\\FoundationAI.py\\in the way");
  machine.disk->RemoveFolder(scripts + u"\\AI\\FoundationAI.py");
  StartUpSequence(machine.app);
  EXPECT_EQ(machine.questions.size(), 2u);
  EXPECT_EQ(machine.Bytes(scripts + u"\\AI\\FoundationAI.py"), "new AI");
  EXPECT_EQ(machine.Bytes(scripts + u"\\Custom\\FoundationConfig.py"), "new config");
  EXPECT_EQ(Status(), u"Standing By...");
}

TEST_F(FoundationTest, WithNoGameItSaysThatAndOpensTheOptionsAfterAnyAnswer) {
  PutCopy();
  machine.disk->Remove(game + u"\\stbc.exe");
  for (const bool installs : {true, false}) {
    machine.boxes.clear();
    machine.answers = {installs ? u"Yes" : u"No"};
    if (!machine.app.MainForm)
      machine.Start();
    else
      StartUpSequence(machine.app);
    EXPECT_EQ(machine.app.State.GamePath, u"");
    ASSERT_EQ(machine.boxes.size(), installs ? 4u : 3u);
    EXPECT_TRUE(machine.boxes[0].Message.starts_with(u"No Game is known yet!!!"));
    EXPECT_EQ(machine.boxes[1], kLacking);
    EXPECT_EQ(machine.boxes.back(), installs ? kInstalled : kDeclined);
    EXPECT_EQ(machine.boxes[2].Message.ends_with(u"no game is known"), installs);
    auto* options = machine.app.screens.Find<frmOptions>();
    ASSERT_TRUE(options && options->Visible);
    EXPECT_FALSE(machine.app.screens.Find<frmMainMenu>()->Enabled);
    options->lblExit.Press();
    machine.Turn();
  }
  EXPECT_EQ(machine.files.Steps(FileStep::Replace), 0);
}

}  // namespace
}  // namespace tarvo::test
