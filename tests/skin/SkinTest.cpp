#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <set>

#include "gametools/frmGameTools.h"
#include "machine/TestMachine.h"
#include "packages/frmPackager.h"
#include "platform/Sound.h"
#include "shell/frmMainMenu.h"
#include "shell/frmOptions.h"
#include "shiptgl/frmTGLTools.h"
#include "skin/SkinTables.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

constexpr Colour kGrey{128, 128, 128};

class Skin : public testing::Test {
 protected:
  void SetUp() override {
    for (const TextView folder :
         {u"\\scripts\\ships\\Hardpoints", u"\\scripts\\Custom\\Ships", u"\\sfx\\Weapons"}) {
      machine.WriteFile(machine.GameFolder() + Text(folder) + u"\\keep.txt", "x");
    }
    machine.Start();
    machine.app.State.SoundFX = true;
  }

  template <class Screen>
  Screen& Open() {
    Screen& screen = machine.app.Screen<Screen>();
    screen.Visible = true;
    machine.sound.Orders.clear();
    return screen;
  }

  /// How often a button was heard to be entered since the last call; all with these flags.
  std::size_t Beeps(unsigned flags) {
    for (const auto& order : machine.sound.Orders) {
      EXPECT_TRUE(order.File.ends_with(u"\\Sfx\\OverBeep.wav"));
      EXPECT_EQ(order.Flags, flags);
    }
    return std::exchange(machine.sound.Orders, {}).size();
  }

  Text File(TextView name) const { return machine.ProgramFolder() + u"\\Gfx\\" + Text(name); }

  TestMachine machine;
};

TEST_F(Skin, EveryNameOfTheTablesIsAControlAndGetsItsPicture) {
  const std::map<TextView, const ScreenSkin*> screens = {
      {u"frmMainMenu", &Open<frmMainMenu>().Skin},
      {u"frmOptions", &Open<frmOptions>().Skin},
      {u"frmPackager", &Open<frmPackager>().Skin},
      {u"frmTGLTools", &Open<frmTGLTools>().Skin},
      {u"frmGameTools", &Open<frmGameTools>().Skin}};
  for (const SkinPicture& row : SkinPictures()) {
    const auto controls = screens.at(row.Screen)->Named(row.Control);
    const std::string where = Utf8FromText(row.Screen) + "." + Utf8FromText(row.Control);
    EXPECT_FALSE(controls.empty()) << where;
    for (const Control* control : controls) {
      if (const auto* button = dynamic_cast<const Button*>(control)) {
        EXPECT_EQ(button->Picture.Get(), File(row.File)) << where;
      } else if (const auto* image = dynamic_cast<const Image*>(control)) {
        EXPECT_EQ(image->Picture.Get(), File(row.File)) << where;
        EXPECT_GT(image->Width * image->Height, 0) << where;
      } else {
        EXPECT_EQ(dynamic_cast<const RowPanel&>(*control).Pictures.Get()[0], File(row.File));
      }
    }
  }
  for (const SkinFamily& family : SkinFamilies()) {
    for (const TextView surface : family.Surfaces) {
      if (surface.empty()) continue;
      EXPECT_FALSE(screens.at(family.Screen)->Named(surface).empty()) << Utf8FromText(surface);
    }
  }
}

TEST_F(Skin, TheFilesAreThoseThatTheTablesName) {
  std::set<std::string> named;
  const auto add = [&](TextView file) {
    if (!file.empty()) named.insert(Utf8FromText(file));
  };
  for (const SkinPicture& row : SkinPictures()) add(row.File);
  for (const TextView file : kTreePictures) add(file);
  for (const SkinFamily& family : SkinFamilies()) {
    for (const auto& member : family.Members) add(member.Over);
  }
  for (const std::string& file : std::set<std::string>(named)) {
    named.insert(std::string(file).insert(file.rfind('.'), "@2x"));
  }
  std::set<std::string> there;
  for (const auto& entry : std::filesystem::directory_iterator(TARVO_GFX_FOLDER)) {
    if (entry.path().extension() == ".bmp") there.insert(entry.path().filename().string());
  }
  EXPECT_EQ(there, named);
}

TEST_F(Skin, AButtonBeepsOnceAndIsLitUntilThePointerCrossesTheSurface) {
  auto& screen = Open<frmPackager>();
  const Text normal = File(u"ButtonBlue.bmp");
  const Text over = File(u"ButtonBlue_Over.bmp");
  screen.lblAdd.MoveMouse();
  screen.lblAdd.MoveMouse();
  EXPECT_EQ(Beeps(kPlay), 1U);
  EXPECT_EQ(screen.lblAdd.Picture.Get(), over);
  EXPECT_EQ(screen.lblAdd.ForeColour.Get(), kWhite);

  // From button to button: only the colour of the second one changes.
  screen.lblTest.MoveMouse();
  EXPECT_EQ(Beeps(kPlay), 0U);
  EXPECT_EQ(screen.lblAdd.Picture.Get(), over);
  EXPECT_EQ(screen.lblTest.Picture.Get(), normal);
  EXPECT_EQ(screen.lblTest.ForeColour.Get(), kWhite);

  screen.fraTarvo.MoveMouse();
  EXPECT_EQ(screen.lblAdd.Picture.Get(), over) << "no surface of theirs";
  screen.imgCommandBorder[2].MoveMouse();
  for (Button* button : {&screen.lblAdd, &screen.lblTest}) {
    EXPECT_EQ(button->Picture.Get(), normal);
    EXPECT_EQ(button->ForeColour.Get(), kBlack);
  }
  screen.lblAdd.Enabled = false;
  screen.lblAdd.MoveMouse();
  EXPECT_EQ(Beeps(kPlay), 0U) << "switched off";
  screen.lblTest.MoveMouse();
  screen.lblModels.MoveMouse();
  EXPECT_EQ(Beeps(kPlay), 2U) << "families don't share their flag";
  EXPECT_EQ(screen.lblModels.ForeColour.Get(), kGrey);
}

TEST_F(Skin, OnTheMainMenuTheColourComesWithThePictureOnly) {
  auto& menu = Open<frmMainMenu>();
  menu.lblHelp.MoveMouse();
  menu.lblExit.MoveMouse();
  EXPECT_EQ(Beeps(kPlayUnlessBusy), 1U);
  EXPECT_EQ(menu.lblHelp.ForeColour.Get(), kGrey);
  EXPECT_EQ(menu.lblHelp.Picture.Get(), File(u"ButtonMenu_Over.bmp"));
  EXPECT_EQ(menu.lblExit.ForeColour.Get(), kBlack);
  menu.imgMenuBorders.MoveMouse();
  EXPECT_EQ(menu.lblHelp.ForeColour.Get(), kBlack);

  // The pointer leaves a button unseen while its screen is open.
  menu.lblPackager.MoveMouse();
  menu.lblPackager.Press();
  machine.app.Screen<frmPackager>().lblExit.Press();
  EXPECT_EQ(menu.lblPackager.Picture.Get(), File(u"ButtonMenu.bmp"));
  EXPECT_EQ(menu.lblPackager.ForeColour.Get(), kBlack);
}

TEST_F(Skin, TheChosenTabKeepsItsColourUntilAnotherIsChosen) {
  auto& screen = Open<frmTGLTools>();
  screen.lblEditTGL.MoveMouse();
  EXPECT_EQ(Beeps(kPlayUnlessBusy), 1U);
  screen.lblEditTGL.Press();
  EXPECT_EQ(screen.imgButtonSelected.Left, screen.lblEditTGL.Left.Get());
  screen.imgTabBorder.MoveMouse();
  EXPECT_EQ(screen.lblEditTGL.ForeColour.Get(), kWhite);

  // Straight to another tab: a black caption doesn't stay on the picture of a lit one.
  screen.lblEditTGL.MoveMouse();
  screen.lblGameTGL.Press();
  EXPECT_EQ(screen.lblEditTGL.ForeColour.Get(), kBlack);
  EXPECT_EQ(screen.lblEditTGL.Picture.Get(), File(u"ButtonTab.bmp"));

  screen.lblNewTGL.Press();
  screen.MoveMouse();
  screen.lblNew.MoveMouse();
  EXPECT_EQ(screen.lblDelete.ForeColour.Get(), kWhite) << "three labels on one image";
  screen.fraShipTGL.MoveMouse();
  EXPECT_EQ(screen.lblDelete.ForeColour.Get(), kBlack);
}

TEST_F(Skin, EachFamilyOfTheGameToolsGoesOutOnItsOwnSurfaces) {
  auto& screen = Open<frmGameTools>();
  screen.lblMenus.Press();
  struct Case {
    Button& Entered;
    Control& Surface;
    TextView Over;
  };
  const auto tryOut = [&](std::initializer_list<Case> cases) {
    machine.sound.Orders.clear();
    for (const Case& row : cases) {
      const Text before = row.Entered.Picture;
      row.Entered.MoveMouse();
      EXPECT_EQ(Beeps(kPlayUnlessBusy), 1U);
      EXPECT_EQ(row.Entered.Picture.Get(), File(row.Over));
      row.Surface.MoveMouse();
      EXPECT_EQ(row.Entered.Picture.Get(), before);
      EXPECT_EQ(row.Entered.ForeColour.Get(), kBlack);
    }
  };
  tryOut({{screen.lblAddQB, screen.fraMenus, u"ButtonBlue_Over.bmp"},
          {screen.imgButtonD, screen.Frame1, u"ArrowD_Over.bmp"},
          {screen.lblChecker, screen, u"ButtonTab_Over.bmp"}});
  screen.lblSoundPlugin.Press();
  tryOut({{screen.lblPlaySound, screen.fraSound, u"ButtonBlue_Over.bmp"},
          {screen.imgButtonL, screen.fraSound, u"ArrowL_Over.bmp"}});
}

}  // namespace
}  // namespace tarvo::test
