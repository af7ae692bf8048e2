#include <algorithm>

#include "gametools/ShipTesting.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

class ShipStates : public ShipScreen {
 protected:
  /// Opens the menu and clicks the row of the ship in it.
  void ClickInTree(frmGameTools& screen, int menu, TextView ship) {
    if (!screen.MenuIsOpen(menu)) screen.lblQBMenu_Click(menu);
    for (int row = 1; !screen.ShipCaption(row).empty(); ++row) {
      if (screen.ShipCaption(row) == ship) screen.lblQBShip_Click(row);
    }
  }

  Texts TreeRows(const frmGameTools& screen) {
    Texts rows;
    for (int row = 1; !screen.ShipCaption(row).empty(); ++row) {
      rows.push_back(screen.ShipCaption(row));
    }
    std::sort(rows.begin(), rows.end());
    return rows;
  }
};

TEST_F(ShipStates, DisabledShipLosesItsCompiledPluginAndItsRows) {
  AddShip(u"A");
  AddShip(u"B", "Fed Ships' # and Klingon Ships '");
  AddShip(u"C", "Klingon Ships");
  machine.WriteFile(Plugin(u"B.pyc"), "compiled");
  machine.WriteFile(Plugin(u"C.pyc"), "compiled");
  frmGameTools& screen = Open();
  screen.lblQBMenu_Click(1);
  ClickInTree(screen, 0, u"B");
  // Nothing is selected any more the second time.
  for (int time = 0; time < 2; ++time) {
    screen.DisableShips();
    EXPECT_EQ(PluginFiles(), (Texts{u"A.py", u"B.Disabled", u"C.py", u"C.pyc"}));
    EXPECT_EQ(Items(screen.lstEnabled), (Texts{u"A", u"C"}));
    EXPECT_EQ(Items(screen.lstDisabled), Texts{u"B"});
    EXPECT_EQ(TreeRows(screen), (Texts{u"A", u"C"}));
    EXPECT_EQ(screen.SelectedShip, 0);
  }
}

TEST_F(ShipStates, EnabledShipsComeBackIntoOpenMenusAndAreChecked) {
  AddShip(u"A");
  AddShip(u"B", "Fed Ships", u".Disabled");
  AddShip(u"C", "Fed Ships", u".Disabled");
  AddShip(u"D", "Fed Ships", u".disabled");
  machine.disk->Remove(Script(u"C.py"));
  frmGameTools& screen = Open();
  screen.lblQBMenu_Click(0);
  for (const TextView ship : {u"B", u"C", u"D"}) Select(screen.lstDisabled, ship);
  screen.EnableShips();
  EXPECT_EQ(Items(screen.lstEnabled), (Texts{u"A", u"B", u"D"}));
  EXPECT_EQ(Items(screen.lstDisabled), Texts{u"C"});
  EXPECT_EQ(PluginFiles(), (Texts{u"A.py", u"B.py", u"C.Disabled", u"D.py"}));
  EXPECT_EQ(TreeRows(screen), (Texts{u"A", u"B", u"D"}));
  EXPECT_EQ(Messages(), Texts{u"Ship C is not found!!! Please Reinstall this Ship!"});
}

TEST_F(ShipStates, DeleteTakesEveryFileOfTheShipsAtAPlainYesAndNoOther) {
  for (const TextView ship : {u"A", u"AB", u"B", u"D", u"E"}) AddShip(ship);
  machine.disk->Rename(Plugin(u"D.py"), Plugin(u"D.Disabled"));
  machine.disk->Rename(Plugin(u"E.py"), Plugin(u"E.Disabled"));
  for (const TextView file : {u"A.pyc", u"A.Disabled", u"A.txt", u"A.x.py", u"D.txt", u"AB.pyc"}) {
    machine.WriteFile(Plugin(file), "x");
  }
  machine.WriteFile(Script(u"A.x.py"), machine.Bytes(Script(u"A.py")));
  frmGameTools& screen = Open();
  ClickInTree(screen, 0, u"A");
  Select(screen.lstDisabled, u"D");
  const Texts before = PluginFiles();
  for (const TextView refusal : {u"No", u"All"}) {
    machine.answers = {Text(refusal)};
    screen.DeleteShips();
    EXPECT_EQ(PluginFiles(), before);
  }
  machine.answers = {u"Yes"};
  screen.DeleteShips();
  EXPECT_EQ(PluginFiles(),
            (Texts{u"A.x.py", u"AB.py", u"AB.pyc", u"B.py", u"D.txt", u"E.Disabled"}));
  EXPECT_EQ(Items(screen.lstEnabled), (Texts{u"A.x", u"AB", u"B"}));
  EXPECT_EQ(Items(screen.lstDisabled), Texts{u"E"});
  EXPECT_EQ(Messages(), Texts{u"Delete Complete... The Ship no longer Exists as a Plugin!"});
}

TEST_F(ShipStates, WhatADeletionWouldTakeIsShown) {
  for (const TextView ship : {u"A", u"B", u"C"}) AddShip(ship);
  AddShip(u"D", "Fed Ships", u".Disabled");
  frmGameTools& screen = Open();
  screen.fraMenus.Visible = true;
  Texts asked;
  const auto chosen = [&] {
    Text ships;
    for (const RowPanel::Place place : screen.fraQBMenu.InOrder()) {
      if (screen.fraQBMenu.PictureOf(place) == RowPanel::Picture::ShipSelected) {
        ships += screen.fraQBMenu.Seen(place)->Caption;
      }
    }
    return ships;
  };
  machine.onDialog = [&](frmPac_InputBox&) {
    asked.push_back(machine.Start().StatusBar.Panel1.Get());
  };
  screen.lblDelete.Press();
  ClickInTree(screen, 0, u"A");
  Select(screen.lstDisabled, u"D");
  screen.lblDelete.Press();
  EXPECT_NE(machine.Start().StatusBar.Panel1.Get().find(u"Still chosen: A."), Text::npos);
  ClickInTree(screen, 0, u"B");
  EXPECT_EQ(chosen(), u"AB");
  screen.lblDelete.Press();
  EXPECT_EQ(asked, (Texts{u"No ship is chosen: nothing would be deleted.", u"To be deleted: A, D",
                          u"To be deleted: A, B, D"}));
  ClickInTree(screen, 0, u"A");
  EXPECT_EQ(chosen(), u"B");
  ClickInTree(screen, 0, u"B");
  EXPECT_EQ(chosen() + Text(screen.SelectedShip == 0 ? u"" : u"?"), u"");
  ClickInTree(screen, 0, u"B");
  machine.answers = {u"Yes"};
  screen.lblDelete.Press();
  EXPECT_EQ(PluginFiles(), (Texts{u"A.py", u"C.py"}));
  EXPECT_EQ(chosen(), u"C") << "the number stays, and is shown";
}

TEST_F(ShipStates, TwoPluginsSideBySideStayAndAreNamed) {
  AddShip(u"A");
  machine.WriteFile(Plugin(u"A.Disabled"), "older");
  frmGameTools& screen = Open();
  const auto expectAsBefore = [&] {
    ASSERT_EQ(machine.boxes.size(), 1u);
    EXPECT_EQ(machine.boxes[0].Icon, BoxIcon::Exclamation);
    for (const TextView file : {u"A.py", u"A.Disabled"}) {
      EXPECT_NE(machine.boxes[0].Message.find(Plugin(file)), Text::npos);
    }
    EXPECT_EQ(machine.Bytes(Plugin(u"A.py")), PluginBytes(u"A", "Fed Ships"));
    EXPECT_EQ(machine.Bytes(Plugin(u"A.Disabled")), "older");
    EXPECT_EQ(Items(screen.lstEnabled), Texts{u"A"});
    EXPECT_EQ(Items(screen.lstDisabled), Texts{u"A"});
    EXPECT_FALSE(screen.lstEnabled.Selected(0));
    EXPECT_EQ(TreeRows(screen), Texts{u"A"});
    machine.boxes.clear();
  };
  ClickInTree(screen, 0, u"A");
  screen.DisableShips();
  expectAsBefore();
  Select(screen.lstDisabled, u"A");
  screen.EnableShips();
  expectAsBefore();
}

class FailingShipStates : public ShipStates {
 protected:
  /// Two enabled ships with compiled plug-ins, two disabled ones, all of them selected.
  frmGameTools& OpenAnew() {
    for (const Text& file : PluginFiles()) machine.disk->Remove(Plugin(file));
    for (const TextView ship : {u"A", u"B"}) {
      AddShip(ship);
      machine.WriteFile(Plugin(Text(ship) + u".pyc"), "compiled");
    }
    for (const TextView ship : {u"C", u"D"}) AddShip(ship, "Fed Ships", u".Disabled");
    frmGameTools& screen = Open();
    for (ListBox* list : {&screen.lstEnabled, &screen.lstDisabled}) {
      for (std::size_t row = 0; row < list->Count(); ++row) list->SetSelected(row, true);
    }
    machine.app.Failures.clear();
    return screen;
  }

  /// Every ship that a list shows has its plug-in as it was; gives how many there are.
  std::size_t CheckLists(const frmGameTools& screen) {
    const Texts enabled = Items(screen.lstEnabled);
    const Texts disabled = Items(screen.lstDisabled);
    for (const Text& ship : enabled) {
      EXPECT_EQ(machine.Bytes(Plugin(ship + u".py")), PluginBytes(ship, "Fed Ships"));
      EXPECT_EQ(machine.Bytes(Plugin(ship + u".Disabled")), "(missing)");
    }
    for (const Text& ship : disabled) {
      EXPECT_EQ(machine.Bytes(Plugin(ship + u".Disabled")), PluginBytes(ship, "Fed Ships"));
      EXPECT_EQ(machine.Bytes(Plugin(ship + u".py")), "(missing)");
    }
    return enabled.size() + disabled.size();
  }
};

TEST_F(FailingShipStates, AtEveryStepTheListsShowWhatStandsAndTheFailureIsNoted) {
  struct Case {
    void (frmGameTools::*operation)();
    FileStep step;
    int steps;
  };
  for (const Case& c : {Case{&frmGameTools::DisableShips, FileStep::Rename, 2},
                        Case{&frmGameTools::DisableShips, FileStep::Remove, 2},
                        Case{&frmGameTools::EnableShips, FileStep::Rename, 2},
                        Case{&frmGameTools::DeleteShips, FileStep::List, 1},
                        Case{&frmGameTools::DeleteShips, FileStep::Remove, 6}}) {
    const bool deletes = c.operation == &frmGameTools::DeleteShips;
    for (int nth = 1; nth <= c.steps; ++nth) {
      frmGameTools& screen = OpenAnew();
      machine.answers = {u"Yes"};
      machine.files.Fail(c.step, nth, kAccessDenied);
      (screen.*c.operation)();
      EXPECT_EQ(machine.app.Failures.size(), 1u) << nth;
      EXPECT_TRUE(machine.boxes.empty());
      const std::size_t shown = CheckLists(screen);
      EXPECT_TRUE(deletes ? shown > 0 : shown == 4) << nth;
      screen.ListShips();
      EXPECT_EQ(CheckLists(screen), shown) << nth;
    }
  }
}

}  // namespace
}  // namespace tarvo::test
