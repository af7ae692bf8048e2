#include <random>

#include "GameToolsTesting.h"
#include "platform/Sound.h"
#include "text/CodePage.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

using Picture = RowPanel::Picture;

const Sounds kClick = {{u"Click.wav", kPlayUnlessBusy}};
const Sounds kTwoClicks = {{u"Click.wav", kPlayUnlessBusy}, {u"Click.wav", kPlayUnlessBusy}};

class QBMenuTree : public GameToolsTesting {
 protected:
  static constexpr int kFed = 0, kKlingon = 1, kRomulan = 2, kOther = 6, kBases = 7;

  /// An enabled ship whose plug-in names the menus.
  void AddShip(frmGameTools& screen, const Text& name, TextView menus) {
    WritePlugin(name, menus);
    screen.lstEnabled.Add(name);
  }

  void WritePlugin(const Text& name, TextView menus) {
    machine.WriteFile(game + u"\\scripts\\Custom\\Ships\\" + name + u".py",
                      "# " + FileTextFromText(menus) + "\r\n");
  }

  void SetCustomMenus(frmGameTools& screen, std::initializer_list<TextView> names) {
    screen.lstSpecies.Clear();
    for (const TextView name : names) screen.lstSpecies.Add(Text(name));
    screen.RemoveCustomMenuRows();
    screen.BuildCustomMenuRows();
  }

  static const RowPanel::Row& Menu(const frmGameTools& screen, std::size_t i) {
    return screen.fraQBMenu.Rows(RowPanel::Family::Menu).at(i);
  }
  static const RowPanel::Row& Ship(const frmGameTools& screen, std::size_t i) {
    return screen.fraQBMenu.Rows(RowPanel::Family::Ship).at(i);
  }

  /// The captions from the top down, those of ships behind a blank. Checks on the way that the rows
  /// stand at the pitch with no gap and no two in one place, that captions stand with their
  /// pictures, that the panel is as tall as its rows, and that pictures tell what the places tell.
  static std::vector<std::string> Tree(const frmGameTools& screen) {
    std::vector<std::string> captions;
    int top = 0;
    for (const RowPanel::Place place : screen.fraQBMenu.InOrder()) {
      const RowPanel::Row& row = *screen.fraQBMenu.Seen(place);
      const bool isMenu = place.Kind == RowPanel::Family::Menu;
      EXPECT_EQ(row.PictureArea.Top, top) << Utf8FromText(row.Caption);
      EXPECT_EQ(row.CaptionArea.Top, top + 20) << Utf8FromText(row.Caption);
      if (isMenu) {
        const bool open = screen.MenuIsOpen(static_cast<int>(place.Index));
        EXPECT_EQ(row.Shown == Picture::MenuOpen, open) << Utf8FromText(row.Caption);
      } else {
        const bool chosen = screen.ShipCaption(screen.SelectedShip) == row.Caption;
        EXPECT_EQ(screen.fraQBMenu.PictureOf(place) == Picture::ShipSelected, chosen);
      }
      captions.push_back((isMenu ? "" : " ") + Utf8FromText(row.Caption));
      top += 360;
    }
    const auto last = static_cast<std::size_t>(screen.MenuRowCount()) - 1;
    EXPECT_EQ(Menu(screen, last).PictureArea.Top, top) << "the end row";
    EXPECT_FALSE(Menu(screen, last).Visible);
    EXPECT_EQ(screen.fraQBMenu.Height, top + 45 + 360);
    return captions;
  }

  /// The tree from its first row to the menu `until`, which is left out.
  static std::string Above(const frmGameTools& screen, const std::string& until) {
    std::string all;
    for (const std::string& caption : Tree(screen)) {
      if (caption == until) return all;
      all += (all.empty() ? "" : "|") + caption;
    }
    return all + "|?";
  }
};

TEST_F(QBMenuTree, BeginsWithTheMenusClosedAndAnEndRowThatIsNotSeen) {
  frmGameTools& screen = Open();
  const std::vector<std::string> builtIn = {
      "Federation Ships", "Klingon Ships", "Romulan Ships", "Ferengi Ships",
      "Cardassian Ships", "Kessok Ships",  "Other Ships",   "Bases"};
  EXPECT_EQ(Tree(screen), builtIn);
  EXPECT_EQ(screen.MenuRowCount(), 9);
  EXPECT_EQ(screen.MenuCaption(8), u"");
  EXPECT_EQ(screen.fraQBMenu.Height, 2925 + 360);

  SetCustomMenus(screen, {u"Borg Ships", u"\u00DCber Ships"});
  EXPECT_EQ(screen.fraQBMenu.Height, 2925 + 3 * 360);
  EXPECT_EQ(Tree(screen).back(), "\u00DCber Ships");
  SetCustomMenus(screen, {});
  EXPECT_EQ(Tree(screen), builtIn);
}

TEST_F(QBMenuTree, AMenuOpensOnTheShipsWhosePluginsNameIt) {
  frmGameTools& screen = Open();
  SetCustomMenus(screen, {u"Borg Ships"});
  AddShip(screen, u"b", u"Fed Ships");
  AddShip(screen, u"A", u"menuGroup = 'Fed Ships'");
  AddShip(screen, u"no", u"Federation Ships");
  AddShip(screen, u"small", u"fed ships");
  AddShip(screen, u"cube", u"Borg Ships");
  screen.lstEnabled.Add(u"gone");
  TakeSounds();

  screen.lblQBMenu_Click(kFed);
  EXPECT_EQ(TakeSounds(), kClick);
  EXPECT_EQ(Above(screen, "Klingon Ships"), "Federation Ships| A| b");
  EXPECT_EQ(screen.ShipCaption(1), u"A");
  EXPECT_EQ(screen.ShipCaption(0), u"");
  EXPECT_EQ(screen.ShipCaption(3), u"");
  EXPECT_TRUE(screen.MenuIsOpen(kFed) && !screen.MenuIsOpen(kKlingon) && screen.MenuIsOpen(9));

  screen.imgQBMenu_Click(8);
  EXPECT_EQ(TakeSounds(), kTwoClicks);
  EXPECT_EQ(Tree(screen).back(), " cube");
  EXPECT_EQ(screen.SelectedMenu, 8);
  screen.CloseOpenMenus();
  EXPECT_EQ(TakeSounds(), kTwoClicks);
  EXPECT_EQ(Tree(screen).size(), 9u);
  EXPECT_EQ(screen.SelectedMenu, 8);
}

TEST_F(QBMenuTree, AnEmptyMenuClosesItselfAndStaysTheSelectedOne) {
  frmGameTools& screen = Open();
  screen.lblQBMenu_Click(kRomulan);
  EXPECT_EQ(TakeSounds(), kTwoClicks);
  EXPECT_EQ(Tree(screen).size(), 8u);
  EXPECT_EQ(screen.SelectedMenu, kRomulan);
  // Numbers of no menu, the end row's among them, open nothing.
  for (const int index : {-1, 8, 9, 30000}) screen.lblQBMenu_Click(index);
  EXPECT_EQ(screen.SelectedMenu, kRomulan);
  EXPECT_EQ(Tree(screen).size(), 8u);
}

TEST_F(QBMenuTree, OpenMenusMoveWithWhatComesAndGoesAboveThem) {
  frmGameTools& screen = Open();
  for (const TextView name : {u"f1", u"f2", u"f3"}) AddShip(screen, Text(name), u"Fed Ships");
  for (const TextView name : {u"k1", u"k2"}) AddShip(screen, Text(name), u"Klingon Ships");
  screen.lblQBMenu_Click(kKlingon);
  screen.lblQBMenu_Click(kFed);
  EXPECT_EQ(Above(screen, "Romulan Ships"), "Federation Ships| f1| f2| f3|Klingon Ships| k1| k2");
  screen.RemoveShipRow(kFed, u"f2");
  EXPECT_EQ(Above(screen, "Romulan Ships"), "Federation Ships| f1| f3|Klingon Ships| k1| k2");
  screen.lblQBMenu_Click(kFed);
  EXPECT_EQ(Above(screen, "Romulan Ships"), "Federation Ships|Klingon Ships| k1| k2");
  EXPECT_EQ(screen.ShipCaption(1), u"k1");
  screen.RemoveShipRow(kKlingon, u"k1");
  screen.RemoveShipRow(kKlingon, u"k2");
  EXPECT_EQ(Tree(screen).size(), 8u) << "the last ship closes its menu";
}

TEST_F(QBMenuTree, AShipOfTwoOpenMenusLeavesTheOneThatCloses) {
  struct {
    int closing;
    const char* left;
  } const cases[] = {{kFed, "Federation Ships|Klingon Ships| k| x|Romulan Ships"},
                     {kKlingon, "Federation Ships| f| x|Klingon Ships|Romulan Ships"}};
  for (const int openedFirst : {kFed, kKlingon}) {
    for (const auto& [closing, left] : cases) {
      frmGameTools& screen = Open();
      AddShip(screen, u"f", u"Fed Ships");
      AddShip(screen, u"k", u"Klingon Ships");
      AddShip(screen, u"x", u"Fed Ships Klingon Ships");
      screen.lblQBMenu_Click(openedFirst);
      screen.lblQBMenu_Click(kFed + kKlingon - openedFirst);
      screen.lblQBMenu_Click(closing);
      EXPECT_EQ(Above(screen, "Ferengi Ships"), left) << openedFirst;
      screen.CloseOpenMenus();
      EXPECT_EQ(Tree(screen).size(), 8u);
      screen.lblExit.Press();
      machine.Turn();
    }
  }
}

TEST_F(QBMenuTree, StaysWholeWhenPluginsChangeBehindAnOpenMenu) {
  frmGameTools& screen = Open();
  AddShip(screen, u"f", u"Fed Ships");
  AddShip(screen, u"g", u"Fed Ships");
  screen.lblQBMenu_Click(kFed);
  const std::string open = "Federation Ships| f| g";
  AddShip(screen, u"late", u"Fed Ships");
  WritePlugin(u"g", u"Klingon Ships now");
  screen.RemoveShipRow(kFed, u"late");
  screen.RemoveShipRow(kKlingon, u"g");
  screen.RemoveShipRow(kFed, u"nobody");
  EXPECT_EQ(Above(screen, "Klingon Ships"), open);
  screen.lblQBMenu_Click(kFed);
  EXPECT_EQ(Tree(screen).size(), 8u);
  screen.lblQBMenu_Click(kFed);
  EXPECT_EQ(Above(screen, "Klingon Ships"), "Federation Ships| f| late");
  screen.lstEnabled.Clear();
  screen.lblQBMenu_Click(kFed);
  EXPECT_EQ(Tree(screen).size(), 8u);
}

TEST_F(QBMenuTree, NewCustomRowsStandBelowMenusThatAreOpen) {
  frmGameTools& screen = Open();
  SetCustomMenus(screen, {u"Borg Ships"});
  AddShip(screen, u"base", u"Bases");
  AddShip(screen, u"cube", u"Borg Ships");
  screen.lblQBMenu_Click(kBases);
  screen.lblQBMenu_Click(8);
  SetCustomMenus(screen, {u"Borg Ships", u"Gorn Ships"});
  const std::vector<std::string> tree = Tree(screen);
  EXPECT_EQ((std::vector(tree.end() - 4, tree.end())),
            (std::vector<std::string>{"Bases", " base", "Borg Ships", "Gorn Ships"}));
}

TEST_F(QBMenuTree, TheSelectedRowIsTheOneThatWearsThePicture) {
  frmGameTools& screen = Open();
  for (const TextView name : {u"f1", u"f2", u"f3"}) AddShip(screen, Text(name), u"Fed Ships");
  for (const TextView name : {u"k1", u"k2"}) AddShip(screen, Text(name), u"Klingon Ships");
  screen.lblQBMenu_Click(kFed);
  TakeSounds();
  screen.imgQBShip_Click(2);
  EXPECT_EQ(TakeSounds(), kTwoClicks);
  screen.lblQBShip_Click(3);
  EXPECT_EQ(TakeSounds(), kClick);
  Tree(screen);
  EXPECT_EQ(screen.SelectedShip, 3);
  for (const int index : {0, 4, -1}) screen.lblQBShip_Click(index);
  EXPECT_EQ(screen.SelectedShip, 3) << "numbers of no row choose nothing";

  screen.lblQBMenu_Click(kKlingon);
  screen.lblQBMenu_Click(kFed);
  Tree(screen);
  EXPECT_EQ(screen.SelectedShip, 3) << "the number stays, and no row has it";
  EXPECT_EQ(screen.ShipCaption(3), u"");
  screen.lblQBMenu_Click(kFed);
  Tree(screen);
  EXPECT_EQ(screen.ShipCaption(3), u"f1");
  EXPECT_EQ(screen.SelectedShip, 3) << "a new row may take the number";
  screen.lblQBShip_Click(1);
  screen.SelectedShip = 0;
  Tree(screen);
}

TEST_F(QBMenuTree, StaysWholeWhateverIsOpenedAndClosed) {
  frmGameTools& screen = Open();
  SetCustomMenus(screen, {u"Borg Ships", u"Big Borg Ships"});
  std::mt19937 chance(7);
  const auto below = [&](std::size_t count) { return static_cast<int>(chance() % count); };
  for (int ship = 0; ship < 30; ++ship) {
    Text menus;
    for (int menu = 0; menu < 10; ++menu) {
      const Text& caption = screen.MenuCaption(menu);
      if (below(3) == 0) menus += (menu == kFed ? u"Fed Ships" : caption) + u" ";
    }
    AddShip(screen, u"ship" + TextFromUtf8(std::to_string(ship)), menus);
  }
  for (int step = 0; step < 400; ++step) {
    switch (below(8)) {
      case 0:
        screen.lblQBShip_Click(below(screen.fraQBMenu.Rows(RowPanel::Family::Ship).size() + 1));
        break;
      case 1:
        screen.RemoveShipRow(below(10), screen.lstEnabled.Item(chance() % 30));
        break;
      case 2:
        screen.RemoveCustomMenuRows();
        screen.BuildCustomMenuRows();
        break;
      default:
        screen.lblQBMenu_Click(below(11));
    }
    Tree(screen);
    ASSERT_FALSE(HasFailure()) << step;
  }
}

TEST_F(QBMenuTree, APluginIsReadAnewOnlyWhenItHasChanged) {
  frmGameTools& screen = Open();
  AddShip(screen, u"f", u"Fed Ships");
  AddShip(screen, u"g", u"Fed Ships");
  screen.lblQBMenu_Click(kFed);
  screen.lblQBMenu_Click(kFed);
  WritePlugin(u"g", u"Fed Ships and more");
  machine.files.Fail(FileStep::Read, 1, EIO);
  screen.lblQBMenu_Click(kFed);
  EXPECT_EQ(Above(screen, "Klingon Ships"), "Federation Ships| f");
}

TEST_F(QBMenuTree, ArrowsMoveThePanelBetweenItsLimits) {
  struct {
    TextView direction;
    int top, shipsOpen, after;
    bool stops;
  } const cases[] = {
      {u"Up", 120, 0, 120, true},        {u"Up", 60, 0, 120, false},
      {u"Up", -600, 0, -540, false},     {u"Down", 120, 0, 60, false},
      {u"Down", -2435, 0, -2435, true},  // 3285 tall: its bottom stands at 850.
      {u"Down", -2434, 0, -2494, false}, {u"Sideways", -600, 0, -600, false},
  };
  for (const auto& item : cases) {
    frmGameTools& screen = Open();
    screen.fraQBMenu.Top = item.top;
    screen.ScrollDirection = Text(item.direction);
    screen.Scroll_Timer.Enabled = true;
    screen.Scroll_Timer.Tick();
    EXPECT_EQ(screen.fraQBMenu.Top, item.after);
    EXPECT_EQ(screen.Scroll_Timer.Enabled, !item.stops);
    EXPECT_EQ(TakeSounds(), item.stops ? (Sounds{{u"ErrorBeep.wav", kPlayToEnd}}) : Sounds());
  }
}

TEST_F(QBMenuTree, WhatIsLeftStaysInSightWhenRowsGo) {
  frmGameTools& screen = Open();
  screen.lblMenus.Press();
  for (char16_t name = u'a'; name < u'z'; ++name) AddShip(screen, Text(1, name), u"Bases");
  const auto bottom = [&] { return screen.fraQBMenu.Top + screen.fraQBMenu.Height; };
  screen.lblQBMenu_Click(kBases);
  screen.fraQBMenu.Top = screen.fraTree.Height - screen.fraQBMenu.Height;
  screen.lblQBShip_Click(1);
  screen.lblDisable.Press();
  EXPECT_EQ(bottom(), screen.fraTree.Height) << "one ship less";
  screen.fraQBMenu.Click({RowPanel::Family::Menu, kBases}, true);
  EXPECT_EQ(screen.fraQBMenu.Top, 120) << "all menus fit";
}

TEST_F(QBMenuTree, AMenuThatOpensBringsItsShipsIntoSight) {
  frmGameTools& screen = Open();
  screen.lblMenus.Press();
  for (const TextView name : {u"a", u"b", u"c"}) AddShip(screen, Text(name), u"Bases");
  const auto edges = [&](const RowPanel::Row& row) {
    const int top = screen.fraQBMenu.Top + row.PictureArea.Top;
    return std::pair(top, top + row.PictureArea.Height);
  };
  const RowPanel::Place bases{RowPanel::Family::Menu, kBases};
  screen.fraQBMenu.Click(bases, true);
  EXPECT_EQ(edges(Ship(screen, 3)).second, screen.fraTree.Height);
  screen.fraQBMenu.Click(bases, true);
  for (char16_t name = u'd'; name < u'z'; ++name) AddShip(screen, Text(1, name), u"Bases");
  screen.fraQBMenu.Click(bases, true);
  EXPECT_EQ(edges(Menu(screen, kBases)).first, 0) << "the menu itself stays to be seen";
}

TEST_F(QBMenuTree, ARowIsLitUntilThePointerCrossesTheFreePart) {
  frmGameTools& screen = Open();
  screen.lblMenus_Click();
  AddShip(screen, u"f", u"Fed Ships");
  screen.lblQBMenu_Click(kFed);
  TakeSounds();
  using Family = RowPanel::Family;
  screen.fraQBMenu.Point(RowPanel::Place{Family::Ship, 1});
  screen.fraQBMenu.Point(RowPanel::Place{Family::Menu, 3});
  EXPECT_EQ(TakeSounds(), (Sounds{{u"OverBeep.wav", kPlayUnlessBusy}}));
  EXPECT_EQ(Ship(screen, 1).CaptionColour, kWhite);
  EXPECT_EQ(Menu(screen, 3).CaptionColour, kBlack);
  screen.fraQBMenu.Point({});
  EXPECT_EQ(Ship(screen, 1).CaptionColour, kBlack);
  screen.fraQBMenu.Point(RowPanel::Place{Family::Menu, 3});
  EXPECT_EQ(Menu(screen, 3).CaptionColour, kWhite);
  EXPECT_EQ(TakeSounds().size(), 1u);
}

}  // namespace
}  // namespace tarvo::test
