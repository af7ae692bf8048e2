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

TEST_F(MainMenu, AboutHalfOfTheNumbersChangeAtATick) {
  machine.clock.Numbers = {0.5, 0.0, 0.49, 0.9, 0.9999999, 0.1, 0.2, 0.7, 0.25};
  machine.sound.Orders.clear();
  menu.Digits_Timer.Tick();
  const TextView expected[] = {u"1", u"", u"1000000", u"", u"", u"250001", u""};
  for (std::size_t i = 0; i < 7; ++i) EXPECT_EQ(menu.lblDigits[i].Caption.Get(), expected[i]) << i;
  EXPECT_EQ(machine.clock.Randomized, 1);
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
