#include "GameToolsTesting.h"
#include "platform/Sound.h"
#include "shell/frmMainMenu.h"
#include "state/CommonUtilities.h"

namespace tarvo::test {
namespace {

class GameToolsScreen : public GameToolsTesting {
 protected:
  static void Unroll(frmGameTools& screen) {
    for (int ticks = 0; screen.Load_Timer.Enabled && ticks < 100; ++ticks) {
      screen.Load_Timer.Tick();
    }
  }
};

TEST_F(GameToolsScreen, OpensFromTheMenuOnTheShipPluginTab) {
  machine.WriteFile(game + u"\\scripts\\ships\\Galaxy.py", "x");
  machine.WriteFile(game + u"\\SFX\\weapons\\torp.WAV", "x");
  auto& menu = *machine.app.screens.Find<frmMainMenu>();
  machine.sound.Orders.clear();
  menu.lblGameTools.Press();
  auto* screen = machine.app.screens.Find<frmGameTools>();
  ASSERT_TRUE(screen && screen->Visible);
  EXPECT_EQ(TakeSounds(), (Sounds{{u"Execute.wav", kPlay}, {u"TabBeep.wav", kPlayUnlessBusy}}));
  EXPECT_EQ(menu.lblTitle.Caption.Get(), u"Game Tools");
  EXPECT_EQ(StatusLine(), u"Create a New Ship Plugin...");
  EXPECT_TRUE(screen->fraShipInfo.Visible);
  EXPECT_EQ(machine.app.State.CurrentScreen, u"Game Tools");
  EXPECT_EQ(screen->cboSpecies.Text(), u"Select QB Menu!");
  EXPECT_EQ(screen->FileList3.Count(), 1u);
  EXPECT_EQ(screen->FileListWavs.Count(), 1u);
  EXPECT_EQ(screen->FileList4.Path(), game + u"\\scripts\\Custom\\Ships");
  EXPECT_EQ(screen->FileList5.Path(), game + u"\\scripts\\ships\\Hardpoints");
  EXPECT_EQ(screen->Height, 0);
  Unroll(*screen);
  EXPECT_EQ(screen->Height, 5065);
}

TEST_F(GameToolsScreen, ATabShowsItsAreaAndTellsWhatItIsFor) {
  machine.app.State.PacHelper = true;
  frmGameTools& screen = Open();
  Unroll(screen);
  struct {
    Button& tab;
    Frame& area;
    unsigned sound;
    TextView status, tip;
  } const cases[] = {
      {screen.lblSoundPlugin, screen.fraSound, kPlayToEndUnlessBusy,
       u"Create a New Sound Plugin...", u"Create a New Sound Plugin on this Screen"},
      {screen.lblMenus, screen.fraMenus, kPlayUnlessBusy, u"Manage your Quick Battle menus...",
       u"Enable, Disable or Delete Ships on this Screen"},
      {screen.lblChecker, screen.fraIntegrity, kPlayUnlessBusy,
       u"Check the File Structures of a Ship Mod...",
       u"Choose a Ship to check for wrong references to your Ship's Files!"},
      {screen.lblShipPlugin, screen.fraShipInfo, kPlayUnlessBusy, u"Create a New Ship Plugin...",
       u"Create a New Ship Plugin on this Screen"},
  };
  for (const auto& item : cases) {
    machine.app.State.PacSpeech.clear();
    machine.sound.Orders.clear();
    item.tab.Press();
    EXPECT_EQ(TakeSounds().at(0), (std::pair<Text, unsigned>{u"TabBeep.wav", item.sound}));
    EXPECT_EQ(StatusLine(), item.status);
    EXPECT_EQ(machine.app.State.PacSpeech, item.tip);
    EXPECT_EQ(machine.app.State.PacTitles[0], Title::Information);
    int shown = 0;
    for (Frame* area :
         {&screen.fraShipInfo, &screen.fraSound, &screen.fraMenus, &screen.fraIntegrity}) {
      shown += area->Visible;
    }
    EXPECT_TRUE(shown == 1 && item.area.Visible);
    EXPECT_EQ(screen.imgButtonSelected.Left, item.tab.Left.Get());
    EXPECT_TRUE(item.tab.Flat);
  }
}

TEST_F(GameToolsScreen, EveryExitLeavesItAndTheNextOneStartsAfresh) {
  auto& menu = *machine.app.screens.Find<frmMainMenu>();
  Button frmGameTools::*const exits[] = {&frmGameTools::lblExit, &frmGameTools::lblExit1,
                                         &frmGameTools::lblExit2, &frmGameTools::lblExit3};
  Button frmGameTools::*const tabs[] = {&frmGameTools::lblShipPlugin, &frmGameTools::lblChecker,
                                        &frmGameTools::lblSoundPlugin, &frmGameTools::lblMenus};
  for (std::size_t i = 0; i < 4; ++i) {
    menu.lblGameTools.Press();
    auto& screen = *machine.app.screens.Find<frmGameTools>();
    EXPECT_EQ(screen.txtAuthor.Text(), u"");
    EXPECT_EQ(screen.txtVersion.Text(), u"1.0");
    EXPECT_EQ(screen.txtSources.Text(), u"http://");
    screen.txtAuthor.SetText(u"left over");
    (screen.*tabs[i]).Press();
    machine.sound.Orders.clear();
    EXPECT_EQ(screen.CancelButton.Get(), &(screen.*exits[i]));
    (screen.*exits[i]).Press();
    EXPECT_EQ(TakeSounds(), (Sounds{{u"Click.wav", kPlayUnlessBusy}}));
    EXPECT_FALSE(machine.app.screens.Find<frmGameTools>());
    EXPECT_TRUE(StatusLine().starts_with(u"Standing By..."));
    EXPECT_EQ(menu.lblTitle.Caption.Get(), u"Main Menu");
    EXPECT_TRUE(menu.lblGameTools.Usable());
    machine.Turn();
  }
  EXPECT_EQ(machine.app.ProgressBars.count(u"Game Tools"), 0u);
}

TEST_F(GameToolsScreen, AMissingFolderEndsTheLoadAndStartsUpAnew) {
  const Text wrong = machine.folder.Game(u"wrong");
  machine.WriteFile(wrong + u"\\scripts\\ships\\x.py", "x");
  machine.app.State.GamePath = wrong;
  frmGameTools& screen = Open();
  EXPECT_EQ(machine.app.State.GamePath, game) << "the stored game, which is there";
  EXPECT_EQ(machine.app.State.CurrentScreen, u"");
  EXPECT_EQ(screen.FileList3.Count(), 1u) << "the steps before stand";
  EXPECT_EQ(screen.FileList5.Path(), u"");
  EXPECT_NE(StatusLine().find(wrong + u"\\scripts\\Custom\\Ships"), Text::npos);
  Unroll(screen);
  screen.lblExit.Press();
  EXPECT_FALSE(machine.app.screens.Find<frmGameTools>());
}

TEST_F(GameToolsScreen, AnArrowRunsTheTimerAsLongAsItIsHeld) {
  frmGameTools& screen = Open();
  Unroll(screen);
  struct {
    Button& tab;
    Button& arrow;
    TextView direction;
    int interval;
  } const cases[] = {{screen.lblMenus, screen.imgButtonU, u"Up", 10},
                     {screen.lblMenus, screen.imgButtonD, u"Down", 10},
                     {screen.lblSoundPlugin, screen.imgButtonL, u"Left", 200},
                     {screen.lblSoundPlugin, screen.imgButtonR, u"Right", 200}};
  for (const auto& item : cases) {
    item.tab.Press();
    machine.sound.Orders.clear();
    screen.fraQBMenu.Top = 0;
    screen.SoundVolume = 50;
    item.arrow.Hold();
    EXPECT_EQ(TakeSounds(), (Sounds{{u"Scroll.wav", kPlayLoop}}));
    EXPECT_EQ(screen.ScrollDirection, item.direction);
    EXPECT_TRUE(screen.Scroll_Timer.Enabled);
    EXPECT_EQ(screen.Scroll_Timer.Interval, item.interval);
    item.arrow.LetGo();
    item.arrow.LetGo();
    EXPECT_EQ(TakeSounds(), (Sounds{{u"BackgroundBeep.wav", kPlay}}));
    EXPECT_FALSE(screen.Scroll_Timer.Enabled);
  }
  screen.SoundVolume = 100;
  screen.imgButtonR.Hold();
  machine.sound.Orders.clear();
  machine.app.screens.Close(screen);
  EXPECT_EQ(TakeSounds(), (Sounds{{u"BackgroundBeep.wav", kPlay}})) << "the loop ends with it";
}

TEST_F(GameToolsScreen, ATapOfAnArrowGoesOneStepAndALongerPressNoneMore) {
  frmGameTools& screen = Open();
  Unroll(screen);
  screen.lblSoundPlugin.Press();
  for (const int volume : {90, 80}) {
    screen.imgButtonL.Hold();
    screen.imgButtonL.LetGo();
    EXPECT_EQ(screen.SoundVolume, volume);
  }
  screen.imgButtonL.Hold();
  screen.Scroll_Timer.Tick();
  screen.imgButtonL.LetGo();
  EXPECT_EQ(screen.SoundVolume, 70);
}

TEST_F(GameToolsScreen, TheVolumeGoesInTenthsAndTheMeterCoversTheRest) {
  frmGameTools& screen = Open();
  Unroll(screen);
  screen.lblSoundPlugin.Press();
  screen.imgButtonR.Hold();
  screen.Scroll_Timer.Tick();
  EXPECT_FALSE(screen.Scroll_Timer.Enabled) << "it starts at its end";
  EXPECT_EQ(screen.SoundVolume, 100);
  screen.imgButtonR.LetGo();

  screen.imgButtonL.Hold();
  for (int volume = 90; volume >= 10; volume -= 10) {
    screen.Scroll_Timer.Tick();
    EXPECT_EQ(screen.SoundVolume, volume);
    // The meter's left edge stands where the tenth above the volume begins.
    const Frame& above = screen.fraVolume.at(static_cast<std::size_t>(volume) / 10);
    EXPECT_EQ(screen.VolumeMeter.Left, above.Left.Get());
    EXPECT_EQ(screen.VolumeMeter.Left + screen.VolumeMeter.Width, 3015);
  }
  machine.sound.Orders.clear();
  screen.Scroll_Timer.Tick();
  EXPECT_EQ(screen.SoundVolume, 10);
  EXPECT_EQ(TakeSounds(), (Sounds{{u"ErrorBeep.wav", kPlayToEnd}}));
  EXPECT_FALSE(screen.Scroll_Timer.Enabled);
}

TEST_F(GameToolsScreen, ItsSecondBarFollowsTheReadingOfAFile) {
  frmGameTools& screen = Open();
  machine.WriteFile(game + u"\\long.py", FileText(2048, 'x'));
  ReadFileText(machine.app, game + u"\\long.py");
  EXPECT_EQ(screen.ProgressBar2.Max(), 2048);
  EXPECT_EQ(screen.ProgressBar2.Value(), 2046);
}

TEST_F(GameToolsScreen, AClickOnADisabledShipSounds) {
  frmGameTools& screen = Open();
  Unroll(screen);
  screen.lblMenus.Press();
  screen.lstDisabled.Add(u"x");
  machine.sound.Orders.clear();
  screen.lstDisabled.Click(0);
  EXPECT_EQ(TakeSounds(), (Sounds{{u"Click.wav", kPlayUnlessBusy}}));
}

}  // namespace
}  // namespace tarvo::test
