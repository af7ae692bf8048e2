#include <gmock/gmock.h>

#include "gametools/MenusTesting.h"
#include "platform/Sound.h"
#include "quickbattle/QBMenus.h"
#include "text/CodePage.h"

namespace tarvo::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using testing::UnorderedElementsAre;

const Text kUpdated = u"The QB Species Menu has been Updated!";
const Text kRemoved = u"The Selected QB Menu Items have been Removed from the Game!";
const Text kMoved =
    u"All ships that were under that Menu have been moved to the \"Other Ships\" Menu!";

Text Line(const Text& menu) {
  return menu + u"|" + menu + u"|sfx/QuickBattle/" + menu + u".mp3";
}

class QBMenusScreen : public GameToolsScreen {
 protected:
  Text Plugin(const Text& ship) { return game + u"\\scripts\\Custom\\Ships\\" + ship; }

  void PutShip(const Text& ship, const Text& menu) {
    machine.WriteFile(game + u"\\scripts\\ships\\" + ship + u".py", "\"Name\": \"x\",");
    machine.WriteFile(Plugin(ship) + u".py", "menuGroup = '" + FileTextFromText(menu) + "'\r\n");
  }

  /// The menu that the ship's plug-in names on its group line.
  bool IsUnder(const Text& ship, TextView menu) {
    return GroupLine(machine.Bytes(Plugin(ship) + u".py")).find(FileTextFromText(menu)) !=
           FileText::npos;
  }

  void AddMenu(frmGameTools& screen, const Text& typed) {
    machine.answers = {typed};
    screen.lblAddQB.Press();
  }

  /// Deletes the menu as the user does, who has opened it in the tree.
  void DeleteMenu(frmGameTools& screen, int index) {
    screen.SelectedMenu = static_cast<std::int16_t>(index);
    screen.lblDeleteQB.Press();
  }

  void Select(ListBox& list, TextView item) {
    for (std::size_t row = 0; row < list.Count(); ++row) {
      if (list.Item(row) == item) list.SetSelected(row, true);
    }
  }

  bool Told(const Text& message) {
    const TestMachine::Box box{message, BoxIcon::Information};
    return std::find(machine.boxes.begin(), machine.boxes.end(), box) != machine.boxes.end();
  }

  std::vector<Text> CustomMenus(const frmGameTools& screen) {
    std::vector<Text> names;
    for (std::size_t row = 0; row < screen.lstSpecies.Count(); ++row) {
      names.push_back(screen.lstSpecies.Item(row));
    }
    return names;
  }
};

TEST_F(QBMenusScreen, ListsBuiltInMenusThenThoseOfTheFileUpToAnEmptyOne) {
  TGLFile file(*machine.disk);
  for (const TextView name : {u"A Ships", u"B Ships", u"C Ships", u"D Ships"}) {
    file.Strings().Add(Text(name), Text(name), u"");
  }
  file.Update(species, true);
  file.SetFilename(species);
  file.Load();
  file.Strings().Item(4)->Data = u"";
  file.Update(species, true);

  frmGameTools& screen = Open();
  EXPECT_EQ(screen.lstSpecies.Count(), 3u);
  ASSERT_EQ(screen.cboSpecies.Count(), 11u);
  EXPECT_EQ(screen.cboSpecies.Item(7), u"Bases");
  EXPECT_EQ(screen.cboSpecies.Item(8), screen.lstSpecies.Item(0));
  EXPECT_EQ(screen.cboSpecies.Text(), u"Select QB Menu!");
  EXPECT_EQ(screen.GetSpeciesName(3), screen.lstSpecies.Item(2));
  for (const int index : {-1, 0, 4, 5}) EXPECT_EQ(screen.GetSpeciesName(index), u"");
}

TEST_F(QBMenusScreen, ManyMenusAreReadOnceForTheWholeList) {
  std::vector<Text> names;
  for (char16_t unit = u'a'; unit <= u'z'; ++unit) names.push_back(Text(40, unit));
  WriteDatabase(species, names);
  frmGameTools& screen = Open();
  const int opened = machine.files.Steps(FileStep::Open);
  screen.LoadQBMenus();
  EXPECT_EQ(machine.files.Steps(FileStep::Open), opened + 1);
  WriteDatabase(species, {u"New"});
  EXPECT_EQ(screen.GetSpeciesName(1), u"New Data");
  machine.disk->Remove(species);
  EXPECT_EQ(screen.GetSpeciesName(1), u"");
}

TEST_F(QBMenusScreen, AddPutsTheMenuIntoBothDatabases) {
  WriteDatabase(quickBattle, {u"Quit"});
  machine.disk->SetAttributes(quickBattle, kReadOnlyFile);
  frmGameTools& screen = Open();
  AddMenu(screen, u"Borg");
  AddMenu(screen, u" Borg ");
  AddMenu(screen, u"Borg Ships");
  EXPECT_EQ(TakeMessages(BoxIcon::Information), std::vector<Text>(3, kUpdated));
  const std::vector<Text> menus = {u"Borg Ships", u" Borg  Ships", u"Borg Ships Ships"};
  EXPECT_EQ(CustomMenus(screen), menus);
  EXPECT_EQ(screen.cboSpecies.Item(10), u"Borg Ships Ships");
  EXPECT_EQ(screen.MenuCaption(9), u" Borg  Ships");
  EXPECT_THAT(DatabaseLines(species),
              UnorderedElementsAre(Line(menus[0]), Line(menus[1]), Line(menus[2])));
  EXPECT_THAT(DatabaseLines(quickBattle),
              UnorderedElementsAre(Line(menus[0]), Line(menus[1]), Line(menus[2]),
                                   u"Quit|Quit Data|sfx/x.mp3"));
  screen.LoadQBMenus();
  EXPECT_EQ(screen.lstSpecies.Count(), 3u);
}

TEST_F(QBMenusScreen, AddWithoutANameTouchesNothing) {
  frmGameTools& screen = Open();
  const auto before = machine.FilesBelow(machine.folder.Game());
  AddMenu(screen, u"");
  EXPECT_TRUE(machine.boxes.empty());
  EXPECT_EQ(machine.questions.back(), u"Enter New QB Menu Name...");
  EXPECT_EQ(machine.FilesBelow(machine.folder.Game()), before);
  EXPECT_EQ(screen.MenuRowCount(), 9);
}

TEST_F(QBMenusScreen, AddRefusesCharactersThatTheGameDoesNotKnow) {
  frmGameTools& screen = Open();
  const auto before = machine.FilesBelow(machine.folder.Game());
  AddMenu(screen, u"\u0416a\U0001F680\u0416");
  ASSERT_EQ(machine.boxes.size(), 1u);
  EXPECT_THAT(machine.boxes[0].Message, Holds(Text(u" \u0416 \U0001F680!")));
  EXPECT_EQ(machine.FilesBelow(machine.folder.Game()), before);
  EXPECT_EQ(screen.MenuRowCount(), 9);
}

TEST_F(QBMenusScreen, DeleteMovesTheShipsAndTakesTheMenuOutOfBothDatabases) {
  WriteDatabase(quickBattle, {u"Quit"});
  PutShip(u"Cube", u"Borg Ships");
  PutShip(u"Sphere", u"Big Borg Ships");
  PutShip(u"Keldon", u"Card Ships");
  machine.WriteFile(Plugin(u"Custom.py"), "menuGroup = 'Borg Ships'");
  machine.WriteFile(Plugin(u"Remark.py"), "# Borg Ships\r\nplayerMenuGroup = 'Borg Ships'");
  machine.WriteFile(Plugin(u"Nothing.py"), "");
  frmGameTools& screen = Open();
  AddMenu(screen, u"Borg");
  AddMenu(screen, u"Gorn");
  screen.LoadQBMenus();
  machine.boxes.clear();
  const auto menus = CustomMenus(screen);
  const int borg = menus[0] == u"Borg Ships" ? 8 : 9;
  DeleteMenu(screen, borg);
  EXPECT_THAT(TakeMessages(BoxIcon::Information), ElementsAre(kRemoved, kMoved));
  EXPECT_TRUE(IsUnder(u"Cube", u"Other Ships"));
  EXPECT_TRUE(IsUnder(u"Sphere", u"Other Ships"));
  EXPECT_TRUE(IsUnder(u"Keldon", u"Card Ships"));
  EXPECT_EQ(machine.Bytes(Plugin(u"Custom.py")), "menuGroup = 'Borg Ships'");
  EXPECT_EQ(machine.Bytes(Plugin(u"Remark.py")), "# Borg Ships\r\nplayerMenuGroup = 'Borg Ships'");
  EXPECT_EQ(machine.Bytes(Plugin(u"Nothing.py")), "");
  EXPECT_THAT(CustomMenus(screen), ElementsAre(u"Gorn Ships"));
  EXPECT_EQ(screen.MenuCaption(8), u"Gorn Ships");
  EXPECT_THAT(DatabaseLines(species), ElementsAre(Line(u"Gorn Ships")));
  EXPECT_THAT(DatabaseLines(quickBattle),
              ElementsAre(Line(u"Gorn Ships"), u"Quit|Quit Data|sfx/x.mp3"));
  DeleteMenu(screen, 8);
  EXPECT_EQ(machine.Bytes(species), "(missing)");
  EXPECT_THAT(DatabaseLines(quickBattle), ElementsAre(u"Quit|Quit Data|sfx/x.mp3"));
  EXPECT_EQ(screen.cboSpecies.Count(), 8u);
  EXPECT_FALSE(screen.QuietMake);
}

TEST_F(QBMenusScreen, WhatDeleteWouldTakeIsMarkedAndNamed) {
  WriteDatabase(quickBattle, {u"Quit"});
  frmGameTools& screen = Open();
  AddMenu(screen, u"Borg");
  PutShip(u"Cube", u"Borg Ships");
  machine.disk->Rename(Plugin(u"Cube.py"), Plugin(u"Cube.Disabled"));
  const auto expectTarget = [&](int row) {
    const bool hasTarget = row >= 0;
    EXPECT_EQ(screen.fraQBMenu.MarkedMenu, row);
    EXPECT_EQ(screen.lblDeleteQB.Hint.Get().find(u"Borg Ships") != Text::npos, hasTarget);
    EXPECT_EQ(StatusLine().find(u"would delete \"Borg Ships\"") != Text::npos, hasTarget);
  };
  screen.lblMenus.Press();
  expectTarget(-1);
  screen.fraQBMenu.Click({RowPanel::Family::Menu, 8}, true);
  expectTarget(8);
  screen.fraQBMenu.Click({RowPanel::Family::Menu, 0}, true);
  expectTarget(-1);
  screen.fraQBMenu.Click({RowPanel::Family::Menu, 8}, false);
  Select(screen.lstDisabled, u"Cube");
  screen.lblEnable.Press();
  expectTarget(8);
  machine.boxes.clear();
  screen.lblDeleteQB.Press();
  expectTarget(-1);
  ASSERT_EQ(machine.boxes.size(), 3u);
  EXPECT_EQ(machine.boxes[0].Message, kRemoved);
  EXPECT_THAT(machine.boxes[1].Message, Holds(Text(u"\nCube")));
  EXPECT_EQ(machine.boxes[2].Message, kMoved);
}

TEST_F(QBMenusScreen, TheLastStringOfTheGameStaysAndThatIsTold) {
  frmGameTools& screen = Open();
  AddMenu(screen, u"Borg");
  machine.boxes.clear();
  DeleteMenu(screen, 8);
  EXPECT_THAT(DatabaseLines(quickBattle), ElementsAre(Line(u"Borg Ships")));
  ASSERT_EQ(machine.boxes.size(), 3u);
  EXPECT_THAT(machine.boxes[0].Message, Holds(quickBattle));
  EXPECT_EQ(StatusLine(), machine.boxes[0].Message);
}

TEST_F(QBMenusScreen, DeleteFindsMenusThatStandInTheFileOtherwise) {
  WriteDatabase(quickBattle, {u"Quit", u"\u0416 Ships"});
  TGLFile file(*machine.disk);
  file.Strings().Add(u"\u0416 Ships", u"\u0416 Ships", u"");
  file.Update(species, true);
  frmGameTools& screen = Open();
  DeleteMenu(screen, 8);
  EXPECT_EQ(machine.Bytes(species), "(missing)");
  EXPECT_EQ(DatabaseLines(quickBattle).size(), 1u);
  WriteDatabase(species, {u"Name", u"Second"});
  screen.LoadQBMenus();
  const Text gone = screen.lstSpecies.Item(0);
  DeleteMenu(screen, 8);
  ASSERT_EQ(screen.lstSpecies.Count(), 1u);
  EXPECT_NE(screen.lstSpecies.Item(0), gone);
}

TEST_F(QBMenusScreen, DeleteOfABuiltInMenuOrNoneTouchesNothing) {
  PutShip(u"Scout", u"Klingon Ships");
  frmGameTools& screen = Open();
  AddMenu(screen, u"Borg");
  machine.boxes.clear();
  const FileText before = machine.Bytes(species) + machine.Bytes(quickBattle);
  for (const int index : {0, 1, 7, 9, 100}) {
    DeleteMenu(screen, index);
    EXPECT_EQ(TakeMessages(BoxIcon::Information).size(), 0u);
    EXPECT_EQ(machine.Bytes(species) + machine.Bytes(quickBattle), before) << index;
  }
  EXPECT_TRUE(IsUnder(u"Scout", u"Klingon Ships"));
  DeleteMenu(screen, 2);
  EXPECT_EQ(TakeMessages(BoxIcon::Exclamation).size(), 1u);
}

TEST_F(QBMenusScreen, DatabaseThatCantBeLoadedIsNeverReplaced) {
  PutShip(u"Cube", u"Borg Ships");
  frmGameTools& screen = Open();
  AddMenu(screen, u"Borg");
  for (const Text& path : {species, quickBattle}) {
    const FileText good = machine.Bytes(path);
    for (const FileText& bad : {FileText("no database"), FileText(), good.substr(0, 30)}) {
      if (bad.empty() && path == species) continue;  // A file of ours with no bytes counts as none.
      machine.WriteFile(path, bad);
      const FileText both = machine.Bytes(species) + machine.Bytes(quickBattle);
      machine.boxes.clear();
      AddMenu(screen, u"Gorn");
      DeleteMenu(screen, 8);
      EXPECT_EQ(machine.Bytes(species) + machine.Bytes(quickBattle), both);
      for (const TestMachine::Box& box : machine.boxes) {
        EXPECT_EQ(box.Icon, BoxIcon::Critical);
        EXPECT_THAT(box.Message, Holds(path));
      }
      EXPECT_EQ(machine.boxes.size(), 2u);
      EXPECT_THAT(StatusLine(), Holds(path));
      EXPECT_THAT(StatusLine(), Not(Contains(u'\n')));
      EXPECT_THAT(CustomMenus(screen), ElementsAre(u"Borg Ships"));
      EXPECT_TRUE(IsUnder(u"Cube", u"Borg Ships"));
    }
    machine.WriteFile(path, good);
  }
}

/// Every step of an add and of a delete fails once: each database is the old or the new one whole,
/// and a success is told only where it came.
TEST_F(QBMenusScreen, NoFailureLooksLikeASuccess) {
  PutShip(u"Cube", u"Borg Ships");
  WriteDatabase(quickBattle, {u"Quit"});
  frmGameTools& screen = Open();
  int failures = 0;
  for (const FileStep step : {FileStep::Open, FileStep::Read, FileStep::Replace, FileStep::Write,
                              FileStep::Commit, FileStep::Remove}) {
    for (int nth = 1; nth <= 8; ++nth) {
      SCOPED_TRACE(testing::Message() << "step " << static_cast<int>(step) << " number " << nth);
      if (machine.disk->FileExists(species)) machine.disk->Remove(species);
      WriteDatabase(quickBattle, {u"Quit"});
      PutShip(u"Cube", u"Borg Ships");
      screen.LoadQBMenus();
      for (const bool adds : {true, false}) {
        machine.boxes.clear();
        machine.files.Fail(step, nth, kDiskFull);
        if (adds) {
          AddMenu(screen, u"Borg");
        } else {
          DeleteMenu(screen, 8);
        }
        machine.files.Heal();
        const bool inSpecies = !DatabaseLines(species).empty();
        const bool inGame = DatabaseLines(quickBattle).size() == 2;
        const bool moved = IsUnder(u"Cube", u"Other Ships");
        EXPECT_THAT(DatabaseLines(quickBattle), Contains(u"Quit|Quit Data|sfx/x.mp3"));
        if (Told(kUpdated)) {
          EXPECT_TRUE(inSpecies && inGame);
        }
        if (Told(kRemoved)) {
          EXPECT_FALSE(inSpecies || inGame);
        }
        if (Told(kMoved)) {
          EXPECT_TRUE(moved);
        }
        const bool failed = !machine.app.Failures.empty();
        EXPECT_EQ(failed, !machine.app.Failures.empty());
        if (!failed && adds) {
          EXPECT_TRUE(Told(kUpdated));
        }
        if (!failed && !adds) {
          EXPECT_TRUE(Told(kRemoved) && Told(kMoved));
        }
        failures += failed;
        EXPECT_TRUE(inGame || !inSpecies);
        if (adds && !inSpecies) AddMenu(screen, u"Borg");
      }
    }
  }
  EXPECT_GT(failures, 10);
}

TEST_F(QBMenusScreen, ShipsThatCantBeMovedAreNotCalledMoved) {
  PutShip(u"A", u"Borg Ships");
  PutShip(u"B", u"Borg Ships");
  frmGameTools& screen = Open();
  AddMenu(screen, u"Borg");
  machine.boxes.clear();
  machine.disk->SetAttributes(Plugin(u"B.py"), kReadOnlyFile);
  DeleteMenu(screen, 8);
  EXPECT_TRUE(IsUnder(u"A", u"Borg Ships"));
  EXPECT_THAT(machine.boxes, Not(Contains(TestMachine::Box{kMoved, BoxIcon::Information})));
  EXPECT_EQ(machine.boxes.back().Icon, BoxIcon::Critical);
  EXPECT_THAT(StatusLine(), Holds(u"B.py"));
}

TEST_F(QBMenusScreen, AMenuWhoseShipsCantBeToldStaysWhole) {
  PutShip(u"A", u"Borg Ships");
  frmGameTools& screen = Open();
  AddMenu(screen, u"Borg");
  const FileText both = machine.Bytes(species) + machine.Bytes(quickBattle);
  machine.boxes.clear();
  machine.files.Fail(FileStep::List, 1, kReadFault);
  DeleteMenu(screen, 8);
  EXPECT_EQ(machine.Bytes(species) + machine.Bytes(quickBattle), both);
  EXPECT_TRUE(IsUnder(u"A", u"Borg Ships"));
  EXPECT_EQ(machine.boxes.size(), 1u);
  EXPECT_EQ(machine.boxes.back().Icon, BoxIcon::Critical);
}

TEST_F(QBMenusScreen, FindsTheFirstMenuThatAPluginNames) {
  WriteDatabase(species, {u"Borg"});
  frmGameTools& screen = Open();
  const Text custom = screen.lstSpecies.Item(0);
  struct Case {
    FileText plugin;
    int expected;
  };
  for (const Case& c : {Case{"menuGroup = 'Fed Ships'", 0}, Case{"'Federation Ships'", 3},
                        Case{"# Klingon Ships\nmenuGroup = 'Romulan Ships'", 1},
                        Case{FileTextFromText(custom), 8}, Case{"Bases", 7}, Case{"", 3}}) {
    machine.WriteFile(Plugin(u"X.py"), c.plugin);
    screen.SelectedMenu = 3;
    screen.FindShipMenu(u"X");
    EXPECT_EQ(screen.SelectedMenu, c.expected) << c.plugin;
    EXPECT_EQ(machine.Bytes(Plugin(u"X.py")), c.plugin);
  }
  screen.SelectedMenu = 3;
  screen.FindShipMenu(u"Nobody");
  EXPECT_EQ(screen.SelectedMenu, 3);
}

TEST_F(QBMenusScreen, PickOfACustomMenuIsRememberedAndNotTakenBack) {
  WriteDatabase(species, {u"Borg"});
  frmGameTools& screen = Open();
  screen.cboSpecies.Pick(7);
  EXPECT_FALSE(screen.CustomMenuChosen);
  screen.cboSpecies.Pick(8);
  screen.cboSpecies.Pick(1);
  EXPECT_TRUE(screen.CustomMenuChosen);
}

}  // namespace
}  // namespace tarvo::test
