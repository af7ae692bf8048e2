#include <gtest/gtest.h>

#include "machine/TestMachine.h"
#include "packages/frmPackager.h"
#include "platform/Sound.h"
#include "shell/frmMainMenu.h"

namespace tarvo::test {
namespace {

class MainMenu : public testing::Test {
 protected:
  TestMachine machine;
  frmMain& main = machine.Start();
  frmMainMenu& menu = *machine.app.screens.Find<frmMainMenu>();
};

TEST_F(MainMenu, SlidesOpenFromTheLeft) {
  EXPECT_EQ(menu.Width.Get(), 1);
  int ticks = 0;
  for (; menu.MainMenu_Timer.Enabled && ticks < 100; ++ticks) menu.MainMenu_Timer.Tick();
  EXPECT_EQ(menu.Width.Get(), 9601);
  EXPECT_EQ(ticks, 65);
}

TEST_F(MainMenu, GuardsTheStartOfItsVideoWithTheSetting) {
  const auto setting = [&] {
    return machine.settings.Read(u"Tarvo Packager", u"Settings", u"VideoFX", u"none");
  };
  MediaPlayer& player = menu.MediaPlayer1;
  EXPECT_TRUE(player.Playing());
  EXPECT_EQ(setting(), u"none") << "nothing is at risk yet";
  player.Open(249, 129);
  EXPECT_EQ(setting(), u"0");
  ASSERT_EQ(machine.video.Orders.size(), 1u);
  EXPECT_EQ(machine.video.Orders[0].File,
            machine.ProgramFolder() + u"\\Gfx\\VideoFX\\LCARS_Main.MOV");
  machine.video.Orders[0].Opened({});
  EXPECT_EQ(setting(), u"1");
}

TEST_F(MainMenu, ItsEndTakesTheGuardAway) {
  for (const bool byButton : {true, false}) {
    TestMachine other;
    other.Start();
    auto& own = *other.app.screens.Find<frmMainMenu>();
    own.MediaPlayer1.Open(249, 129);
    byButton ? own.lblExit.Press() : other.app.screens.Close(own);
    EXPECT_EQ(other.settings.Read(u"Tarvo Packager", u"Settings", u"VideoFX", u"none"), u"1");
  }
}

TEST_F(MainMenu, FollowsTheSwitchOfTheVideos) {
  MediaPlayer& player = menu.MediaPlayer1;
  player.Open(249, 129);
  machine.settings.Write(u"Tarvo Packager", u"Settings", u"VideoFX", u"0");
  machine.app.State.VideoFX = false;
  menu.FollowVideoFX();
  EXPECT_FALSE(player.Playing());
  EXPECT_EQ(machine.settings.Read(u"Tarvo Packager", u"Settings", u"VideoFX", u""), u"0");
  machine.app.State.VideoFX = true;
  menu.FollowVideoFX();
  EXPECT_TRUE(player.Playing());
}

TEST(MainMenuWithoutVideo, LoadsTheFileAndLeavesTheSettingAlone) {
  TestMachine machine;
  machine.settings.Write(u"Tarvo Packager", u"Settings", u"VideoFX", u"False");
  machine.Start();
  auto& menu = *machine.app.screens.Find<frmMainMenu>();
  EXPECT_TRUE(menu.MediaPlayer1.FileName.Get().ends_with(u"LCARS_Main.MOV"));
  EXPECT_FALSE(menu.MediaPlayer1.Playing());
  menu.MediaPlayer1.Open(249, 129);
  EXPECT_TRUE(machine.video.Orders.empty());
  machine.app.screens.Close(menu);
  EXPECT_EQ(machine.settings.Read(u"Tarvo Packager", u"Settings", u"VideoFX", u""), u"False");
}

TEST_F(MainMenu, StandsSwitchedOffBehindTheOneOpenScreen) {
  menu.lblPackager.Press();
  EXPECT_EQ(menu.lblTitle.Caption.Get(), u"Packager");
  EXPECT_FALSE(menu.lblPackager.Enabled);
  EXPECT_FALSE(menu.lblExit.Usable());
  auto* screen = machine.app.screens.Find<frmPackager>();
  ASSERT_TRUE(screen && screen->Visible);
  screen->PackageList = u"\\left over\r\n";
  screen->lblExit.Press();
  EXPECT_EQ(menu.lblTitle.Caption.Get(), u"Main Menu");
  EXPECT_EQ(main.StatusBar.Panel1.Get(), u"Standing By...");
  EXPECT_TRUE(menu.lblPackager.Usable());
  machine.Turn();
  menu.lblPackager.Press();
  EXPECT_EQ(machine.app.screens.Find<frmPackager>()->PackageList, u"");
}

TEST_F(MainMenu, AllNumbersStandFromTheStartAndAboutHalfOfThemChangeAtATick) {
  machine.clock.Numbers = {0.5, 0.0, 0.49, 0.9, 0.9999999, 0.1, 0.2, 0.7, 0.25};
  machine.sound.Orders.clear();
  menu.Digits_Timer.Tick();
  const TextView expected[] = {u"1", u"1", u"1000000", u"1", u"1", u"250001", u"1"};
  for (std::size_t i = 0; i < 7; ++i) EXPECT_EQ(menu.lblDigits[i].Caption.Get(), expected[i]) << i;
  EXPECT_EQ(machine.clock.Randomized, 2);
  ASSERT_EQ(machine.sound.Orders.size(), 1u);
  EXPECT_EQ(machine.sound.Orders[0].Flags, kPlayUnlessBusy);
}

TEST_F(MainMenu, ExitPlaysToItsEndAndEndsTheProcess) {
  machine.sound.Orders.clear();
  menu.lblExit.Press();
  EXPECT_EQ(machine.sound.Orders[0].Flags, kPlayToEnd);
  EXPECT_FALSE(main.Visible);
  EXPECT_TRUE(machine.quit);
}

TEST_F(MainMenu, ClosingTheWindowEndsTheProcess) {
  machine.app.screens.Close(main);
  EXPECT_TRUE(machine.quit);
}

}  // namespace
}  // namespace tarvo::test
