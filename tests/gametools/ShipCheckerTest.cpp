#include <algorithm>

#include "gametools/ShipTesting.h"
#include "platform/Sound.h"
#include "text/CodePage.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

class ShipChecker : public ShipScreen {
 protected:
  /// Picks the script and gives the text of both boxes.
  std::pair<Text, Text> Check(TextView file) {
    frmGameTools& screen = Open();
    Select(screen.FileList3, file);
    screen.CheckShipFiles();
    return {screen.txtFileDisplay.Text(), screen.txtErrorDisplay.Text()};
  }
};

TEST_F(ShipChecker, CountsWhatIsMissingAndTakesCompiledScripts) {
  machine.WriteFile(game + u"\\data\\models\\A\\a.NIF", "model");
  machine.WriteFile(Script(u"Twin.pyc"), "compiled");
  struct Case {
    FileTextView script;
    int errors;
  };
  for (const Case& c :
       {Case{"\"FilenameHigh\": \"data/Models/a/A.nif\",\"Name\": \"A\",\"HardpointFile\": "
             "\"HULL\",",
             0},
        Case{"\"FilenameHigh\": \"data/Models/a\",\"Name\": \"Twin\",\"HardpointFile\": \"hull\",",
             1},
        Case{"\"FilenameLow\": \"b.nif\",\"Name\": \"b\",\"HardpointFile\": \"c\",", 3},
        Case{"", 2}, Case{"'Name': 'A',\t'HardpointFile': 'hull',\n", 2}}) {
    machine.WriteFile(Script(u"A.py"), c.script);
    const auto [report, verdict] = Check(u"A.py");
    EXPECT_EQ(machine.app.State.MissingFileCount, c.errors) << c.script;
    EXPECT_EQ(verdict.find(u"None:  All") != Text::npos, c.errors == 0);
    EXPECT_TRUE(std::none_of(report.begin(), report.end(), [](char16_t unit) {
      return unit < 0x20 && unit != u'\r' && unit != u'\n';
    }));
    EXPECT_EQ(machine.Bytes(Script(u"A.py")), c.script);
  }
  EXPECT_TRUE(machine.app.Failures.empty());
}

TEST_F(ShipChecker, ScriptThatCantBeReadIsNamedAndReadAgainTheNextTime) {
  AddShip(u"A");
  for (const FileStep step : {FileStep::Open, FileStep::Read}) {
    machine.app.Failures.clear();
    machine.files.Fail(step, 1, EIO);
    Check(u"A.py");
    EXPECT_EQ(machine.app.State.MissingFileCount, 2);
    ASSERT_EQ(machine.app.Failures.size(), 1u);
    EXPECT_NE(machine.app.Failures[0].Words.find(u"A.py"), Text::npos);
    Check(u"A.py");
    EXPECT_EQ(machine.app.State.MissingFileCount, 0);
    // The next round has to read again.
    AddShip(u"A");
  }
}

TEST_F(ShipChecker, ScanDisablesWhatFailsAndSaysSo) {
  AddShip(u"Good");
  AddShip(u"Bad");
  machine.WriteFile(Script(u"Bad.py"), "\"Name\": \"x\",\"HardpointFile\": \"y\",");
  AddShip(u"Lost");
  machine.disk->Remove(Script(u"Lost.py"));
  AddShip(u"cased");
  machine.disk->Remove(Script(u"cased.py"));
  machine.WriteFile(Script(u"Cased.py"), "");
  AddShip(u"Upper");
  const FileText upper = machine.Bytes(Script(u"Upper.py"));
  machine.disk->Remove(Script(u"Upper.py"));
  machine.WriteFile(Script(u"Upper.PY"), upper);
  frmGameTools& screen = Open();
  Select(screen.FileList3, u"Good.py");
  screen.CheckShipFiles();
  machine.sound.Orders.clear();
  screen.ScanEnabledShips();
  EXPECT_EQ(
      machine.boxes,
      (std::vector<TestMachine::Box>{
          {u"Ship Lost is not found!!! Please Reinstall this Ship!", BoxIcon::Critical},
          {u"Ship cased is not found!!! Please Reinstall this Ship!", BoxIcon::Critical},
          {u"Ship Bad has Problems with it, Please use the File Checker!", BoxIcon::Exclamation}}));
  EXPECT_EQ(Items(screen.lstEnabled), (Texts{u"Good", u"Upper"}));
  EXPECT_EQ(Items(screen.lstDisabled), (Texts{u"Bad", u"cased", u"Lost"}));
  EXPECT_EQ(PluginFiles(),
            (Texts{u"Bad.Disabled", u"cased.Disabled", u"Good.py", u"Lost.Disabled", u"Upper.py"}));
  EXPECT_TRUE(machine.sound.Orders.empty());
  EXPECT_TRUE(machine.app.State.SoundFX);
  EXPECT_EQ(machine.app.State.ReadChunkSize, 1024u);
  EXPECT_EQ(screen.FileList3.ListIndex(), -1);
  EXPECT_EQ(screen.txtFileDisplay.Text() + screen.txtErrorDisplay.Text(), u"");
}

TEST_F(ShipChecker, ScanSparesWhatServesAllShipsAndNamesWhatItSwitchesOff) {
  AddShip(u"Bad");
  AddShip(u"Many");
  for (const TextView ship : {u"Bad", u"Many"}) machine.disk->Remove(Script(Text(ship) + u".py"));
  const Texts spared = {u"Custom.py", u"DamoclesModPack.py", u"FTBLoader.py", u"__init__.py"};
  for (const Text& file : spared) machine.WriteFile(Plugin(file), "x");
  frmGameTools& screen = Open();
  const auto status = [&] { return Utf8FromText(machine.Start().StatusBar.Panel1.Get()); };
  screen.lblMenus.Press();
  EXPECT_EQ(status(), "Switched off by the check: Bad, Many.");
  for (const Text& file : spared) EXPECT_EQ(machine.Bytes(Plugin(file)), "x");
  Select(screen.lstDisabled, u"Many");
  screen.lblEnable.Press();
  EXPECT_EQ(status(),
            "Switched off by the check: Many. The check can't judge Many: no ship's script has "
            "that name.");
  EXPECT_EQ(Items(screen.lstDisabled), (Texts{u"Bad", u"Many"}));
}

/// A folder that can't be listed, a file that can't be looked at or read, a whole folder that has
/// gone.
TEST_F(ShipChecker, WhatCantBeLookedAtDisablesNoShip) {
  AddShip(u"A");
  AddShip(u"B");
  frmGameTools& screen = Open();
  const auto menusTab = [&] {
    machine.app.Failures.clear();
    screen.lblMenus.Press();
    machine.files.Heal();
    EXPECT_EQ(PluginFiles(), (Texts{u"A.py", u"B.py"}));
    return !machine.app.Failures.empty();
  };
  for (const FileStep step : {FileStep::List, FileStep::Look, FileStep::Open, FileStep::Read}) {
    int failures = 0;
    for (int nth = 1; nth <= 8; ++nth) {
      for (const TextView ship : {u"A", u"B"}) AddShip(ship);  // So that they are read again.
      machine.files.Fail(step, nth, kReadFault);
      failures += menusTab();
    }
    EXPECT_GT(failures, 1) << static_cast<int>(step);
  }
  EXPECT_FALSE(menusTab());
  machine.disk->Rename(Script(u"Hardpoints\\hull.py"), game + u"\\hull.py");
  machine.disk->RemoveFolder(Script(u"Hardpoints"));
  EXPECT_TRUE(menusTab());
  for (const TextView ship : {u"A", u"B"}) machine.disk->Remove(Script(Text(ship) + u".py"));
  machine.disk->RemoveFolder(Script(u""));
  EXPECT_TRUE(menusTab());
}

TEST_F(ShipChecker, ScanReadsAScriptOnlyWhenItHasChanged) {
  for (const TextView ship : {u"A", u"B", u"C"}) AddShip(ship);
  frmGameTools& screen = Open();
  const auto opened = [&] {
    const int before = machine.files.Steps(FileStep::Open);
    screen.ScanEnabledShips();
    return machine.files.Steps(FileStep::Open) - before;
  };
  EXPECT_EQ(opened(), 3);
  EXPECT_EQ(opened(), 0);
  machine.WriteFile(Script(u"B.py"), machine.Bytes(Script(u"B.py")) + "#");
  EXPECT_EQ(opened(), 1);
}

}  // namespace
}  // namespace tarvo::test
