#include <gtest/gtest.h>

#include "gametools/frmGameTools.h"
#include "machine/TestMachine.h"
#include "platform/Sound.h"
#include "shell/frmMainMenu.h"
#include "shell/frmOptions.h"
#include "state/Shell.h"
#include "state/StartUp.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

constexpr TextView kKeys[] = {u"GamePath", u"PacHelper", u"SoundFX", u"VideoFX"};

class Options : public testing::Test {
 protected:
  void Store(TextView key, TextView text) {
    machine.settings.Write(u"Tarvo Packager", u"Settings", key, text);
  }
  Text Stored(TextView key) {
    return machine.settings.Read(u"Tarvo Packager", u"Settings", key, u"-");
  }

  /// The game's folder and the four texts, as they are stored.
  std::vector<Text> AllStored() {
    std::vector<Text> texts;
    for (const TextView key : kKeys) texts.push_back(Stored(key));
    return texts;
  }

  frmMainMenu& Menu() { return *machine.app.screens.Find<frmMainMenu>(); }
  frmOptions* Screen() { return machine.app.screens.Find<frmOptions>(); }
  frmOptions& Open() {
    if (!machine.app.screens.Find<frmMain>()) machine.Start();
    Menu().lblOptions.Press();
    machine.sound.Orders.clear();
    return *Screen();
  }

  /// The user comes to a subfolder of the folder at hand, and doesn't open it.
  static void ComeTo(frmOptions& screen, TextView name) {
    const auto& rows = screen.lstDir.Rows();
    for (std::size_t row = 0; row < rows.size(); ++row) {
      if (rows[row].Name == name && !rows[row].Open) screen.lstDir.Click(row);
    }
  }

  TestMachine machine;
  Text second = machine.folder.Game(u"second");
};

TEST_F(Options, ShowWhatIsStored) {
  struct Case {
    TextView stored;  ///< Empty for nothing.
    bool pac, sound;
  };
  for (const Case& c : {Case{u"", false, true}, Case{u"0", false, false}, Case{u"1", true, true},
                        Case{u"2", true, true}, Case{u"rubbish", false, false}}) {
    TestMachine machine;
    for (const TextView key : {u"PacHelper", u"SoundFX", u"VideoFX"}) {
      if (!c.stored.empty()) {
        machine.settings.Write(u"Tarvo Packager", u"Settings", key, c.stored);
      }
    }
    machine.Start();
    auto& screen = machine.app.Screen<frmOptions>();
    EXPECT_EQ(screen.chkPacHelper.Checked.Get(), c.pac) << Utf8FromText(c.stored);
    EXPECT_EQ(screen.chkSoundFX.Checked.Get(), c.sound) << Utf8FromText(c.stored);
    EXPECT_EQ(screen.chkVideoFX.Checked.Get(), c.sound) << Utf8FromText(c.stored);
    EXPECT_EQ(screen.lstDir.ListedFolder(), machine.GameFolder());
    // The figure is still greeting.
    const Text& waiting = machine.app.State.PacQueue[0];
    EXPECT_EQ(waiting == u"Adjust your Tarvo Packager Options here!!!", c.pac);
  }
}

TEST_F(Options, UnrollOverTheMenuAndTellWhatTheyAreFor) {
  frmOptions& screen = Open();
  EXPECT_FALSE(Menu().lblOptions.Enabled || Menu().Enabled);
  EXPECT_EQ(Menu().lblTitle.Caption.Get(), u"Options");
  EXPECT_EQ(machine.Start().StatusBar.Panel1.Get(), u"Adjust your Tarvo Packager Options here...");
  int ticks = 0;
  for (; screen.Load_Timer.Enabled; ++ticks) screen.Load_Timer.Tick();
  EXPECT_EQ(ticks, 35);
  EXPECT_EQ(screen.Height.Get(), 5065);
}

TEST_F(Options, AForeignGamePathLeavesTheListsWhereTheUserHasSomething) {
  const Text drive = machine.files.Drives().front();
  const Text root = drive + u"\\";
  const Text found = machine.folder.Game(u"c\\Program Files\\Maker\\Game");
  machine.WriteFile(found + u"\\STBC.exe", "game");
  struct Case {
    TextView path;
    Text home, programs, start;
  };
  for (const Case& c : {Case{u"", u"", u"", root}, Case{u"Q:\\Games\\BC", u"", u"", root},
                        Case{u"", machine.ProgramFolder(), u"", machine.ProgramFolder()},
                        Case{u"", machine.ProgramFolder(), machine.folder.Game(u"c"), found}}) {
    machine.Start();
    machine.app.State.GamePath = Text(c.path);
    machine.home = c.home;
    machine.registry.Drives = {c.programs};
    frmOptions& screen = Open();
    EXPECT_EQ(screen.lstDrive.Drive(), drive);
    EXPECT_EQ(screen.lstDir.ListedFolder(), c.start);
    EXPECT_EQ(screen.cboFolder.Text(), c.start);
    screen.CancelButton.Get()->Press();
    EXPECT_FALSE(machine.app.screens.Find<frmOptions>());
    machine.Turn();
  }
}

TEST_F(Options, OfferTheGamesOfAllRegistriesAndDrivesOnceByTheirNames) {
  constexpr TextView kKey = u"SOFTWARE\\Activision\\Star Trek: Bridge Commander\\V1.1";
  const Text drive = machine.folder.Game(u"c"), other = machine.folder.Game(u"other");
  for (const TextView folder : {u"\\Games\\One", u"\\a\\b\\Two", u"\\a\\b\\c\\TooDeep",
                                u"\\Windows\\Three", u"\\Games\\One\\Inner"}) {
    machine.WriteFile(drive + Text(folder) + u"\\stbc.exe", "game");
  }
  machine.WriteFile(other + u"\\stbc.exe", "game");
  machine.registry.SetText(kKey, u"INSTALLPATH", other + u"\\");
  machine.registry.Drives = {drive, drive, machine.folder.Game(u"none")};
  frmOptions& screen = Open();
  std::vector<Text> names;
  for (std::size_t row = 0; row < screen.cboFolder.Count(); ++row) {
    names.push_back(screen.cboFolder.Item(row));
  }
  EXPECT_EQ(names,
            (std::vector<Text>{u"other in " + machine.folder.Game(), u"Two in " + drive + u"\\a\\b",
                               u"One in " + drive + u"\\Games"}));
  screen.cboFolder.Pick(1);
  EXPECT_EQ(screen.lstDir.Path(), drive + u"\\a\\b\\Two");
  screen.lblSave.Press();
  EXPECT_EQ(Stored(u"GamePath"), drive + u"\\a\\b\\Two");
}

TEST_F(Options, TakeAFolderThatIsTypedPastedOrBrowsedFor) {
  machine.WriteFile(second + u" %41\\stbc.exe", "game");
  const Text folder = second + u" %41";
  const Text host = TextFromUtf8(machine.folder.Host("second %41"));
  machine.home = machine.folder.Game();
  machine.picked = folder;
  for (const Text& line :
       {folder, folder + u"\\", u"\"" + folder + u"\"", host, host + u"/stbc.exe\r\n",
        u"file://" + TextFromUtf8(machine.folder.Host("second%20%2541")), Text(u"~/second %41"),
        Text()}) {
    SCOPED_TRACE(Utf8FromText(line));
    frmOptions& screen = Open();
    line.empty() ? screen.lblBrowse.Press() : screen.cboFolder.SetText(line);
    EXPECT_EQ(screen.lstDir.Path(), folder);
    EXPECT_EQ(screen.lblFolder.Caption.Get(), folder);
    screen.lblSave.Press();
    EXPECT_EQ(Stored(u"GamePath"), folder);
    machine.app.screens.Close(*Screen());  // The game lacks Foundation.
    machine.Turn();
    Store(u"GamePath", machine.GameFolder());
    StartUpSequence(machine.app);
  }
  frmOptions& screen = Open();
  screen.cboFolder.SetText(u"nowhere");
  EXPECT_EQ(screen.lstDir.Path(), machine.GameFolder());
  screen.lblSave.Press();
  EXPECT_EQ(machine.boxes.back().Message,
            u"This is not a Valid Bridge Commander Folder to edit!!!");
}

TEST_F(Options, EachChoiceClicksAndTakesNoEffect) {
  machine.Start();
  const std::vector<Text> before = AllStored();
  frmOptions& screen = Open();
  const std::function<void()> choices[] = {
      [&] { screen.lstDir.OpenRow(0); }, [&] { screen.chkPacHelper.Click(); },
      [&] { screen.chkSoundFX.Click(); }, [&] { screen.chkVideoFX.Click(); },
      [&] { screen.lblExit.Press(); }};
  for (const auto& choose : choices) {
    machine.sound.Orders.clear();
    choose();
    ASSERT_EQ(machine.sound.Orders.size(), 1u);
    EXPECT_TRUE(machine.sound.Orders[0].File.ends_with(u"\\Sfx\\Click.wav"));
    EXPECT_EQ(machine.sound.Orders[0].Flags, kPlayUnlessBusy);
  }
  EXPECT_EQ(AllStored(), before);
  EXPECT_TRUE(machine.app.State.SoundFX && machine.app.State.VideoFX);
  EXPECT_EQ(Screen(), nullptr);
  EXPECT_TRUE(Menu().lblOptions.Usable());
  EXPECT_EQ(Menu().lblTitle.Caption.Get(), u"Main Menu");
}

TEST_F(Options, SaveRefusesAFolderWithoutTheGame) {
  machine.disk->MakeFolder(second);
  machine.Start();
  const std::vector<Text> before = AllStored();
  frmOptions& screen = Open();
  screen.lstDir.GoUp();
  ComeTo(screen, u"second");
  EXPECT_EQ(screen.lblFolder.Caption.Get(), second);
  screen.chkSoundFX.Click();
  screen.lblSave.Press();
  EXPECT_EQ(machine.boxes,
            (std::vector<TestMachine::Box>{
                {u"This is not a Valid Bridge Commander Folder to edit!!!", BoxIcon::Critical}}));
  EXPECT_EQ(AllStored(), before);
  EXPECT_EQ(machine.app.State.GamePath, machine.GameFolder());
  EXPECT_TRUE(machine.app.State.SoundFX);
  EXPECT_EQ(Screen(), &screen);
  EXPECT_FALSE(screen.chkSoundFX.Checked);
}

TEST_F(Options, SaveTakesTheRowThatTheUserStandsOnAndStartsUpAgain) {
  machine.WriteFile(second + u"\\stbc.exe", "game");
  Store(u"VideoFX", u"0");
  frmOptions& screen = Open();
  screen.lstDir.GoUp();
  ComeTo(screen, u"second");
  EXPECT_NE(screen.lstDir.Path(), second);
  screen.chkVideoFX.Click();
  machine.sound.Orders.clear();
  screen.lblSave.Press();
  EXPECT_EQ(machine.app.State.GamePath, second);
  EXPECT_TRUE(machine.app.State.VideoFX);
  EXPECT_EQ(AllStored(), (std::vector<Text>{second, u"0", u"1", u"1"}));
  ASSERT_GE(machine.boxes.size(), 1u);
  EXPECT_EQ(machine.boxes[0],
            (TestMachine::Box{u"Your Settings have been saved!", BoxIcon::Information}));
  ASSERT_GE(machine.sound.Orders.size(), 2u);
  EXPECT_TRUE(machine.sound.Orders[0].File.ends_with(u"CommandBeep.wav"));
  EXPECT_EQ(machine.sound.Orders[0].Flags, kPlayUnlessBusy);
  EXPECT_TRUE(machine.sound.Orders[1].File.ends_with(u"SystemsOnline.wav"));
}

TEST_F(Options, SaveSilencesTheSoundsAtOnce) {
  frmOptions& screen = Open();
  screen.chkSoundFX.Click();
  machine.sound.Orders.clear();
  screen.lblSave.Press();
  EXPECT_EQ(machine.sound.Orders.size(), 1u) << "the beep of Save itself";
}

TEST_F(Options, ASettingThatCannotBeStoredIsToldWithWhatWasStored) {
  struct Case {
    int writes;  ///< That succeed.
    TextView told;
    bool sound;
  };
  for (const Case& c :
       {Case{0, u"\r\n\r\nNothing has changed.", true},
        Case{3,
             u"\r\n\r\nOnly this has been saved:\r\nCurrent Selected Folder for Modifications\r\n"
             u"Enable Pac-Man Helper on Startup\r\nEnable Sound FX!",
             false}}) {
    frmOptions& screen = Open();
    screen.chkSoundFX.Click();
    machine.settings.FailingCode = 30;
    machine.settings.FailingAfter = c.writes;
    machine.boxes.clear();
    screen.lblSave.Press();
    machine.settings.FailingCode = 0;
    ASSERT_EQ(machine.boxes.size(), 1u);
    EXPECT_TRUE(
        machine.boxes[0].Message.starts_with(u"Your Settings could not be saved: Can't write"));
    EXPECT_TRUE(machine.boxes[0].Message.ends_with(c.told));
    EXPECT_EQ(machine.app.State.SoundFX, c.sound);
    EXPECT_EQ(Screen(), &screen);
    screen.lblExit.Press();
    machine.Turn();
  }
}

TEST_F(Options, OpenByThemselvesAfreshWithTheMenuSwitchedOff) {
  frmOptions& first = Open();
  machine.app.screens.Close(first);
  machine.app.shell->ShowOptions();  // As the start-up after Save does, in the same handler.
  frmOptions* fresh = Screen();
  ASSERT_TRUE(fresh && fresh->Visible);
  EXPECT_NE(fresh, &first);
  machine.Turn();
  EXPECT_FALSE(Menu().Enabled || Menu().lblOptions.Enabled);
  EXPECT_EQ(Menu().lblTitle.Caption.Get(), u"Options");
  fresh->lblExit.Press();
  EXPECT_TRUE(Menu().lblOptions.Usable());
  EXPECT_EQ(Menu().lblTitle.Caption.Get(), u"Main Menu");
}

/// Settling the game leads to the options.
struct DecliningShell : Shell {
  explicit DecliningShell(frmMain& window) : main(window) {}
  void ShowStatus(TextView text) override { main.ShowStatus(text); }
  void TellAside(TextView) override {}
  void ShowMainMenu() override { main.ShowMainMenu(); }
  void ShowOptions() override { main.ShowOptions(); }
  void SettleGame() override { main.ShowOptions(); }
  void WorkScreenClosed() override { main.WorkScreenClosed(); }
  void RunMessageTimer(bool run) override { main.RunMessageTimer(run); }
  frmMain& main;
};

TEST_F(Options, TakeThePlaceOfAScreenWhoseLoadLedToThem) {
  DecliningShell shell(machine.Start());
  machine.app.shell = &shell;
  Menu().lblGameTools.Press();  // The game has none of the folders that it needs.
  EXPECT_EQ(machine.app.screens.Find<frmGameTools>(), nullptr);
  ASSERT_TRUE(Screen() && Screen()->Visible);
  EXPECT_FALSE(Menu().Enabled);
  EXPECT_EQ(Menu().lblTitle.Caption.Get(), u"Options");
  Screen()->lblExit.Press();
  EXPECT_TRUE(Menu().lblGameTools.Usable() && Menu().lblOptions.Usable());
}

}  // namespace
}  // namespace tarvo::test
