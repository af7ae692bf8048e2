#include <gtest/gtest.h>

#include "machine/TestMachine.h"
#include "packages/frmPackager.h"
#include "platform/Sound.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

/// The Packager opened on a game with one ship's files.
class PackagerScreen : public testing::Test {
 protected:
  void SetUp() override {
    machine.WriteFile(game + u"\\scripts\\ships\\Ship A.py", "ship");
    machine.WriteFile(game + u"\\scripts\\ships\\b.py", "b");
    machine.WriteFile(game + u"\\data\\models\\SHIPS\\It's \u00FC\\hull.nif", "nif");
    machine.WriteFile(program + u"\\ShipTGLs\\A.TGL", "tgl");
    machine.Start();
  }

  frmPackager& Open() {
    frmPackager& screen = machine.app.Screen<frmPackager>();
    screen.Visible = true;
    return screen;
  }

  void ChooseFolder(frmPackager& screen, TextView below) {
    screen.lstDir.SetPath(game + Text(below));
  }

  TestMachine machine;
  Text game = machine.GameFolder();
  Text program = machine.ProgramFolder();
};

TEST_F(PackagerScreen, OpensOnTheGameWithThePackagesThatStand) {
  machine.WriteFile(program + u"\\Tarvos\\One.Tarvo", "x");
  machine.WriteFile(program + u"\\Tarvos\\two.tarvo", "x");
  machine.WriteFile(program + u"\\Tarvos\\note.txt", "x");
  frmPackager& screen = Open();
  EXPECT_EQ(screen.lstDir.Path(), game);
  EXPECT_EQ(screen.lstFileSelect.Item(0), u"stbc.exe");
  ASSERT_EQ(screen.cboFileName.Count(), 2u);
  EXPECT_EQ(screen.cboFileName.Item(0), u"One");
  EXPECT_EQ(screen.cboFileName.Item(1), u"two");
  EXPECT_EQ(machine.app.State.CurrentScreen, u"Packager");
  EXPECT_EQ(machine.Start().StatusBar.Panel1.Get(), u"Create your Ship Mod Package here...");
}

TEST_F(PackagerScreen, UnrollsInStepsToItsHeight) {
  frmPackager& screen = Open();
  int ticks = 0;
  for (; screen.Load_Timer.Enabled && ticks < 100; ++ticks) screen.Load_Timer.Tick();
  EXPECT_EQ(screen.Height.Get(), 5065);
  EXPECT_EQ(ticks, 35);
}

TEST_F(PackagerScreen, ShortcutsLeadToTheFoldersThatMatter) {
  frmPackager& screen = Open();
  screen.lblScripts.Press();
  EXPECT_EQ(screen.lstFileSelect.Count(), 2u);
  screen.lblModels.Press();
  EXPECT_EQ(screen.lstDir.Rows().back().Name, u"It's \u00FC");
  screen.lblTGL.Press();
  EXPECT_EQ(screen.lstFileSelect.Item(0), u"A.TGL");
  // This game has no plug-ins yet: the lists stay, and the user learns why.
  screen.lblPlugins.Press();
  EXPECT_EQ(screen.lstFileSelect.Item(0), u"A.TGL");
  EXPECT_EQ(machine.Start().StatusBar.Panel1.Get(),
            u"There is no Folder " + game + u"\\scripts\\Custom\\Ships");
}

TEST_F(PackagerScreen, EntriesHaveOneLeadingBackslashHoweverTheGameIsStored) {
  for (const Text& tail : {Text(), Text(u"\\"), Text(u"\\\\")}) {
    machine.app.State.GamePath = game + tail;
    frmPackager& screen = Open();
    ChooseFolder(screen, u"");
    screen.lblAddAll.Press();
    ChooseFolder(screen, u"\\scripts\\ships\\");
    screen.lstFileSelect.Click(0);
    screen.lblAdd.Press();
    screen.lblTGL.Press();
    screen.lblAddAll.Press();
    EXPECT_EQ(screen.PackageList, u"\\stbc.exe\r\n\\scripts\\ships\\b.py\r\n\\ShipTGLs\\A.TGL\r\n");
    EXPECT_EQ(screen.lstFile.Count(), 3u);
    EXPECT_EQ(screen.lstFile.Item(1), u"b.py");
    EXPECT_EQ(screen.lstFile.TakeRowToShow(), 2u);
    screen.CancelButton.Get()->Press();
    EXPECT_FALSE(machine.app.screens.Find<frmPackager>());
    machine.Turn();
  }
}

TEST_F(PackagerScreen, RemoveTakesTheSelectedFilesOutOfBothLists) {
  frmPackager& screen = Open();
  ChooseFolder(screen, u"\\scripts\\ships");
  screen.lblAddAll.Press();
  screen.lblAddAll.Press();
  screen.lblRemove.Press();
  EXPECT_EQ(screen.lstFile.Count(), 4u);
  screen.lstFile.Click(0);
  screen.lstFile.Click(3);
  screen.lblRemove.Press();
  EXPECT_EQ(screen.PackageList, u"\\scripts\\ships\\Ship A.py\r\n\\scripts\\ships\\b.py\r\n");
  EXPECT_EQ(screen.lstFile.Item(0), u"Ship A.py");
}

TEST_F(PackagerScreen, NamesThatLeadElsewhereMakeNoPackage) {
  frmPackager& screen = Open();
  screen.lblAddAll.Press();
  const Text outside = program + u"\\Outside.Tarvo";
  machine.WriteFile(outside, "x");
  const auto before = machine.FilesBelow(machine.folder.Game());
  for (const TextView name : {u"..\\Outside", u"a/b", u"..", u"a*", u"a\t"}) {
    machine.boxes.clear();
    screen.cboFileName.SetText(Text(name));
    EXPECT_TRUE(screen.cboFileName.Marked);
    screen.lblSave.Press();
    ASSERT_EQ(machine.boxes.size(), 1u);
    EXPECT_EQ(machine.boxes[0].Icon, BoxIcon::Exclamation);
    screen.lblTest.Press();
    EXPECT_EQ(machine.boxes[1].Message, u"That is not a Valid Tarvo File Name!!!");
  }
  EXPECT_EQ(machine.FilesBelow(machine.folder.Game()), before);
  screen.cboFileName.SetText(u"good");
  EXPECT_FALSE(screen.cboFileName.Marked);
}

TEST_F(PackagerScreen, MakesAPackageAndIsReadyForTheNext) {
  frmPackager& screen = Open();
  ChooseFolder(screen, u"\\scripts\\ships");
  screen.lblAddAll.Press();
  screen.cboFileName.SetText(u"My \u00DCber Ship");
  machine.app.State.SoundFX = true;
  machine.sound.Orders.clear();
  screen.lblSave.Press();
  EXPECT_EQ(machine.boxes,
            (std::vector<TestMachine::Box>{
                {u"\"My \u00DCber Ship.Tarvo\" has been Created!", BoxIcon::Information}}));
  EXPECT_EQ(machine.Bytes(program + u"\\Tarvos\\My \u00DCber Ship.Tarvo").substr(444),
            "\r\n\\scripts\\ships\\b.py\r\n\\scripts\\ships\\Ship A.py\r\n;\r\n"
            "b\r\n===Next File===\r\nship\r\n===Next File===\r\n");
  EXPECT_TRUE(screen.PackageList.empty());
  EXPECT_EQ(screen.lstFile.Count(), 0u);
  EXPECT_EQ(screen.cboFileName.Text(), u"");
  EXPECT_EQ(screen.cboFileName.Item(0), u"My \u00DCber Ship");
  const Text made = program + u"\\Tarvos\\My \u00DCber Ship.Tarvo";
  EXPECT_EQ(screen.cboFileName.Hint, made);
  EXPECT_TRUE(machine.Start().StatusBar.Panel1.Get().ends_with(made));
  EXPECT_FALSE(screen.fraProgress.Visible);
  EXPECT_EQ(screen.TarvoProgress.Value(), 3);
  EXPECT_EQ(machine.app.State.CurrentScreen, u"Packager");
  const std::vector<RecordingSound::Order> expected = {
      {program + u"\\Sfx\\CommandBeep.wav", kPlayToEnd, true},
      {program + u"\\Sfx\\Scroll.wav", kPlayLoop, true},
      {program + u"\\Sfx\\BackgroundBeep.wav", kPlay, true}};
  EXPECT_EQ(machine.sound.Orders, expected);
}

TEST_F(PackagerScreen, NeedsANameAndFiles) {
  frmPackager& screen = Open();
  screen.lblSave.Press();
  EXPECT_EQ(machine.boxes.back(),
            (TestMachine::Box{u"You did not enter a File Name!!!", BoxIcon::Exclamation}));
  screen.cboFileName.SetText(u"x");
  screen.lblSave.Press();
  EXPECT_EQ(machine.boxes.back(),
            (TestMachine::Box{u"There are no Files Selected to add to the Tarvo File!!!",
                              BoxIcon::Exclamation}));
  screen.lblTest.Press();
  EXPECT_EQ(machine.boxes.back(),
            (TestMachine::Box{u"That is not a Valid Tarvo File Name!!!", BoxIcon::Critical}));
  EXPECT_TRUE(machine.FilesBelow(program + u"\\Tarvos").empty());
}

TEST_F(PackagerScreen, SourceThatHasGoneGivesAnEmptySectionAndIsNamed) {
  frmPackager& screen = Open();
  ChooseFolder(screen, u"\\scripts\\ships");
  screen.lblAddAll.Press();
  machine.disk->Remove(game + u"\\scripts\\ships\\b.py");
  screen.cboFileName.SetText(u"x");
  screen.lblSave.Press();
  EXPECT_TRUE(machine.Bytes(program + u"\\Tarvos\\x.Tarvo")
                  .ends_with(";\r\n\r\n===Next File===\r\nship\r\n===Next File===\r\n"));
  EXPECT_EQ(machine.Bytes(game + u"\\scripts\\ships\\b.py"), "(missing)");
  EXPECT_NE(machine.Start().StatusBar.Panel1.Get().find(u"b.py"), Text::npos);
}

TEST_F(PackagerScreen, SourceThatCantBeReadMakesNoPackageAndTheReasonComesFirst) {
  machine.WriteFile(program + u"\\Tarvos\\x.Tarvo", "old");
  frmPackager& screen = Open();
  ChooseFolder(screen, u"\\scripts\\ships");
  screen.lblAddAll.Press();
  screen.cboFileName.SetText(u"x");
  machine.files.Fail(FileStep::Read, 2, kReadFault);
  screen.lblSave.Press();
  EXPECT_EQ(machine.Bytes(program + u"\\Tarvos\\x.Tarvo"), "old");
  ASSERT_EQ(machine.boxes.size(), 2u);
  EXPECT_NE(machine.boxes[0].Message.find(SystemErrorText(kReadFault)), Text::npos);
  EXPECT_EQ(machine.boxes[0].Icon, BoxIcon::Critical);
}

TEST_F(PackagerScreen, WarnsOfFilesThatCantComeOutAgain) {
  machine.WriteFile(game + u"\\odd\\a;b.py", "x");
  machine.WriteFile(game + u"\\odd\\marker.bin", "xx===Next File===yy");
  machine.WriteFile(game + u"\\odd\\large.bin", FileText(300'000, '=') + "==Next File===");
  frmPackager& screen = Open();
  ChooseFolder(screen, u"\\odd");
  screen.lblAddAll.Press();
  screen.cboFileName.SetText(u"x");
  screen.lblSave.Press();
  ASSERT_EQ(machine.boxes.size(), 2u);
  EXPECT_EQ(machine.boxes[0].Icon, BoxIcon::Exclamation);
  for (const TextView name : {u"\\odd\\a;b.py", u"\\odd\\marker.bin", u"\\odd\\large.bin"}) {
    EXPECT_NE(machine.boxes[0].Message.find(name), Text::npos) << Utf8FromText(name);
  }
}

TEST_F(PackagerScreen, PackageThatCantBeWrittenLeavesTheOldOneAndTheChoice) {
  machine.WriteFile(program + u"\\Tarvos\\x.Tarvo", "old");
  for (const FileStep step : {FileStep::Replace, FileStep::Write, FileStep::Commit}) {
    frmPackager& screen = Open();
    screen.PackageList.clear();
    ChooseFolder(screen, u"\\scripts\\ships");
    screen.lblAddAll.Press();
    screen.cboFileName.SetText(u"x");
    machine.files.Fail(step, 1, kDiskFull);
    screen.lblSave.Press();
    EXPECT_EQ(machine.Bytes(program + u"\\Tarvos\\x.Tarvo"), "old");
    EXPECT_EQ(machine.FilesBelow(program + u"\\Tarvos").size(), 1u);
    EXPECT_NE(machine.Start().StatusBar.Panel1.Get().find(SystemErrorText(kDiskFull)), Text::npos);
    EXPECT_FALSE(screen.PackageList.empty());
    screen.lblExit.Press();
    machine.Turn();
  }
}

TEST_F(PackagerScreen, PickedPackageShowsItsListAndCanBeMadeAgain) {
  frmPackager& screen = Open();
  ChooseFolder(screen, u"\\scripts\\ships");
  screen.lblAddAll.Press();
  screen.cboFileName.SetText(u"x");
  screen.lblSave.Press();
  screen.cboFileName.Pick(0);
  EXPECT_EQ(screen.lstFile.Count(), 2u);
  EXPECT_EQ(screen.lstFile.Item(1), u"Ship A.py");
  machine.WriteFile(game + u"\\scripts\\ships\\b.py", "newer");
  screen.cboFileName.SetText(u"y");
  machine.answers = {u"Yes"};
  screen.lblSave.Press();
  EXPECT_TRUE(machine.Bytes(program + u"\\Tarvos\\y.Tarvo")
                  .ends_with("newer\r\n===Next File===\r\nship\r\n===Next File===\r\n"));
}

TEST_F(PackagerScreen, PackageThatCantBeReadLeavesNothingAtHandAndIsNamed) {
  machine.WriteFile(program + u"\\Tarvos\\bad.Tarvo", "no package");
  machine.WriteFile(program + u"\\Tarvos\\empty.Tarvo", "");
  frmPackager& screen = Open();
  for (const std::size_t row : {0, 1}) {
    ChooseFolder(screen, u"\\scripts\\ships");
    screen.lblAddAll.Press();
    screen.cboFileName.Pick(row);
    EXPECT_EQ(screen.PackageList, u"");
    EXPECT_EQ(screen.lstFile.Count(), 0u);
    EXPECT_EQ(machine.Start().StatusBar.Panel1.Get().find(screen.cboFileName.Text() + u".Tarvo: "),
              0u);
  }
  EXPECT_EQ(machine.FilesBelow(program + u"\\Tarvos").size(), 2u);
}

TEST_F(PackagerScreen, MakeAndRemoveAskWhereTheNameIsNotThatOfTheFilesShown) {
  frmPackager& screen = Open();
  const auto make = [&](const Text& name, const Text& folder) {
    ChooseFolder(screen, folder);
    screen.lblAddAll.Press();
    screen.cboFileName.SetText(name);
    screen.lblSave.Press();
  };
  make(u"One", u"\\scripts\\ships");
  make(u"Two", u"");
  EXPECT_TRUE(machine.questions.empty()) << "nobody else's files";
  const FileText one = machine.Bytes(program + u"\\Tarvos\\One.Tarvo");
  const FileText two = machine.Bytes(program + u"\\Tarvos\\Two.Tarvo");
  screen.cboFileName.Pick(0);
  const Text list = screen.PackageList;
  screen.cboFileName.SetText(u"Two");
  machine.answers = {u"All"};
  screen.lblTest.Press();
  EXPECT_EQ(screen.PackageList, list) << "what is shown stays at hand";
  screen.lstFile.Click(0);
  for (Button* button : {&screen.lblSave, &screen.lblRemove}) {
    machine.questions.clear();
    button->Press();
    EXPECT_EQ(machine.questions.size(), 1u);
    EXPECT_EQ(screen.lstFile.Count(), 2u);
  }
  machine.answers = {u"Yes"};
  machine.questions.clear();
  screen.lblRemove.Press();
  screen.lblSave.Press();
  EXPECT_EQ(machine.questions.size(), 1u) << "he has been asked of them";
  EXPECT_EQ(machine.Bytes(program + u"\\Tarvos\\One.Tarvo"), one);
  EXPECT_NE(machine.Bytes(program + u"\\Tarvos\\Two.Tarvo"), two);

  // His own choice, and the name of the package that he has just installed.
  ChooseFolder(screen, u"");
  screen.lblAddAll.Press();
  screen.cboFileName.SetText(u"One");
  screen.lblTest.Press();
  screen.lblSave.Press();
  EXPECT_EQ(machine.Bytes(program + u"\\Tarvos\\One.Tarvo"), one);
}

TEST_F(PackagerScreen, NamesOfPackagesAreReadAnewWhenTheListDropsDown) {
  frmPackager& screen = Open();
  screen.cboFileName.SetText(u"typed");
  machine.WriteFile(program + u"\\Tarvos\\New.Tarvo", "x");
  screen.cboFileName.DropDown();
  ASSERT_EQ(screen.cboFileName.Count(), 1u);
  EXPECT_EQ(screen.cboFileName.Text(), u"typed");
}

TEST_F(PackagerScreen, WhatAnInstallerWouldRefuseIsNamedWhenItIsAddedAndGetsNoBytes) {
  const Text outside = machine.folder.Game(u"outside") + Text(game.size(), u'x');
  machine.WriteFile(outside + u"\\secret.txt", "secret");
  machine.WriteFile(outside + u"\\X.TGL", "secret");
  std::vector<std::pair<Text, Text>> added = {{outside, u"secret.txt"}, {outside, u"X.TGL"}};
#ifndef _WIN32
  machine.WriteFile(game + u"\\odd\\a?.py", "secret");
  machine.WriteFile(game + u"\\odd\\\u0416.py", "secret");
  added.insert(added.end(), {{game + u"\\odd", u"a?.py"}, {game + u"\\odd", u"\u0416.py"}});
#endif
  frmPackager& screen = Open();
  for (const auto& [folder, name] : added) {
    screen.lstDir.SetPath(folder);
    screen.lblAddAll.Press();
    EXPECT_NE(machine.Start().StatusBar.Panel1.Get().find(name + u": it"), Text::npos)
        << Utf8FromText(name);
  }
  screen.cboFileName.SetText(u"x");
  screen.lblSave.Press();
  EXPECT_EQ(machine.Bytes(program + u"\\Tarvos\\x.Tarvo").find("secret\r\n==="), FileText::npos);
}

}  // namespace
}  // namespace tarvo::test
