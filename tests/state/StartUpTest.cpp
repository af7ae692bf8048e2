#include <gtest/gtest.h>

#include "machine/TestMachine.h"
#include "platform/Sound.h"
#include "shell/frmMainMenu.h"
#include "state/StartUp.h"
#include "text/RaisedError.h"

namespace tarvo::test {
namespace {

const Text kV10 = u"SOFTWARE\\Activision\\Star Trek: Bridge Commander\\V1.0";
const Text kV11 = u"SOFTWARE\\Activision\\Star Trek: Bridge Commander\\V1.1";

Text Stored(TestMachine& machine, TextView key) {
  return machine.settings.Read(u"Tarvo Packager", u"Settings", key, u"(none)");
}

void Store(TestMachine& machine, TextView key, TextView text) {
  machine.settings.Write(u"Tarvo Packager", u"Settings", key, text);
}

TEST(StartUp, FindsTheGameInTheSettingsOrTheRegistry) {
  enum class Key { Absent, Locked, NoValue, LockedValue, Game };
  struct Case {
    const char* what;
    bool storedHoldsGame;
    Key v10;
    Key v11;
    TextView expected;  ///< The folder's last part; empty for none.
  };
  for (const Case& c : {
           Case{"stored folder stands", true, Key::Game, Key::Game, u"game"},
           Case{"stored folder stands with a locked key", true, Key::Locked, Key::Absent, u"game"},
           Case{"stored folder stands with no key", true, Key::Absent, Key::Absent, u"game"},
           Case{"V1.0 comes before V1.1", false, Key::Game, Key::Game, u"v10"},
           Case{"only V1.1", false, Key::Absent, Key::Game, u"v11"},
           Case{"V1.0 locked", false, Key::Locked, Key::Game, u"v11"},
           Case{"V1.0 without the value", false, Key::NoValue, Key::Game, u"v11"},
           Case{"V1.0 with a value that can't be read", false, Key::LockedValue, Key::Game, u"v11"},
           Case{"both keys locked", false, Key::Locked, Key::Locked, u""},
           Case{"both keys without the value", false, Key::NoValue, Key::NoValue, u""},
           Case{"nothing at all", false, Key::Absent, Key::Absent, u""},
       }) {
    SCOPED_TRACE(c.what);
    TestMachine machine;
    if (!c.storedHoldsGame) machine.disk->Remove(machine.GameFolder() + u"\\stbc.exe");
    const auto prepare = [&](const Text& path, Key key, const Text& folder) {
      if (key == Key::Locked) machine.registry.Lock(path);
      if (key == Key::LockedValue) machine.registry.LockValue(path, u"INSTALLPATH");
      if (key == Key::NoValue) machine.registry.SetText(path, u"OTHER", u"x");
      if (key == Key::Game) machine.registry.SetText(path, u"INSTALLPATH", folder);
    };
    prepare(kV10, c.v10, machine.folder.Game(u"v10"));
    prepare(kV11, c.v11, machine.folder.Game(u"v11"));
    machine.Start();
    const Text expected = c.expected.empty() ? Text() : machine.folder.Game(c.expected);
    EXPECT_EQ(machine.app.State.GamePath, expected);
    EXPECT_EQ(Stored(machine, u"GamePath"), expected);
    // Only the stored game has Foundation; where there is no game at all, it is missed as well.
    EXPECT_EQ(machine.questions.size(), c.storedHoldsGame ? 0u : 1u);
    EXPECT_TRUE(machine.app.screens.Find<frmMainMenu>()->Visible);
  }
}

TEST(StartUp, StoredFlagsTurnIntoBooleansAsNumbersDo) {
  struct Case {
    TextView stored;
    bool expected;
  };
  for (const Case& c : {Case{u"0", false}, Case{u"1", true}, Case{u"-1", true}, Case{u" 2 ", true},
                        Case{u"True", true}, Case{u"false", false}, Case{u"0.0", false},
                        Case{u"maybe", false}, Case{u"", false}}) {
    TestMachine machine;
    Store(machine, u"SoundFX", c.stored);
    machine.Start();
    EXPECT_EQ(machine.app.State.SoundFX, c.expected);
    EXPECT_TRUE(machine.app.State.VideoFX);
    EXPECT_FALSE(machine.app.State.PacHelper);
  }
}

TEST(StartUp, BringsUpTheMenuAndPreparesTheFolders) {
  TestMachine machine;
  const Text ships = machine.GameFolder() + u"\\data\\TGL\\Ships.TGL";
  machine.WriteFile(ships, "x");
  machine.disk->SetAttributes(ships, kReadOnlyFile);
  frmMain& main = machine.Start();
  EXPECT_TRUE(machine.app.screens.Find<frmMainMenu>()->Visible);
  EXPECT_EQ(main.Caption.Get(), u"Tarvo Packager (BETA v4.0)");
  EXPECT_EQ(main.StatusBar.Panel1.Get(), u"Standing By...");
  EXPECT_EQ(main.Left.Get(), (19200 - 9630) / 2);
  for (const TextView name : {u"\\Tarvos", u"\\ShipTGLs", u"\\QBMenus"}) {
    EXPECT_TRUE(machine.disk->FolderExists(machine.ProgramFolder() + Text(name)));
  }
  EXPECT_EQ(machine.disk->Attributes(ships) & kReadOnlyFile, 0u);
  ASSERT_EQ(machine.sound.Orders.size(), 1u);
  EXPECT_EQ(machine.sound.Orders[0].File, machine.ProgramFolder() + u"\\Sfx\\SystemsOnline.wav");
  EXPECT_EQ(machine.sound.Orders[0].Flags, kPlay);
  EXPECT_EQ(machine.helpFile, machine.ProgramFolder() + u"\\Help\\Help System.chm");
  EXPECT_TRUE(machine.boxes.empty());
}

TEST(StartUp, RunsAgainForAnotherGame) {
  TestMachine machine;
  machine.Start();
  const Text other = machine.folder.Game(u"other");
  const Text quickBattle = other + u"\\data\\TGL\\QuickBattle\\QuickBattle.TGL";
  machine.WriteFile(other + u"\\stbc.exe", "game");
  machine.WriteFile(quickBattle, "x");
  machine.disk->SetAttributes(quickBattle, kReadOnlyFile);
  Store(machine, u"GamePath", other);
  Store(machine, u"VideoFX", u"0");
  StartUpSequence(machine.app);
  EXPECT_EQ(machine.app.State.GamePath, other);
  EXPECT_FALSE(machine.app.State.VideoFX);
  EXPECT_EQ(machine.questions.size(), 1u);
  EXPECT_EQ(machine.disk->Attributes(quickBattle) & kReadOnlyFile, 0u);
}

TEST(StartUp, StoreThatCantBeWrittenStopsNothing) {
  TestMachine machine;
  machine.settings.FailingCode = kAccessDenied;
  machine.files.Fail(FileStep::MakeFolder, 1, kAccessDenied, true);
  machine.Start();
  EXPECT_EQ(machine.app.State.GamePath, machine.GameFolder());
  EXPECT_TRUE(machine.app.screens.Find<frmMainMenu>()->Visible);
}

TEST(RegistryTexts, ValuesComeAsTextsByTheirType) {
  TestMachine machine;
  const auto read = [&](TextView name) {
    return helper_RegReadString(machine.app, kLocalMachine, kV10, name);
  };
  machine.registry.SetText(kV10, u"Path", u" C:\\bc ");
  machine.registry.Set(kV10, u"One", {kRegistryBinary, u"", "\x05"});
  machine.registry.Set(kV10, u"Two", {kRegistryBinary, u"", "\xFE\xFF\x07"});
  machine.registry.Set(kV10, u"Word", {4, u"", "\x01\x02\x03\x04"});
  machine.registry.LockValue(kV10, u"Locked");
  EXPECT_EQ(read(u"Path"), u"C:\\bc");
  EXPECT_EQ(read(u"One"), u"5");
  EXPECT_EQ(read(u"Two"), u"-2");
  EXPECT_EQ(read(u"Word"), u"");
  EXPECT_EQ(read(u"None"), u"");
  try {
    read(u"Locked");
    FAIL();
  } catch (const RaisedError& error) {
    EXPECT_EQ(error.Source, u"helper_QueryRegStringValue");
    EXPECT_TRUE(error.Description.starts_with(u"Registry query error!  Error: "));
  }
  try {
    helper_RegReadString(machine.app, kLocalMachine, kV11, u"Path");
    FAIL();
  } catch (const RaisedError& error) {
    EXPECT_EQ(error.Source, u"helper_RegReadString");
    EXPECT_EQ(error.Number, RaisedError::kOwnNumber);
    EXPECT_TRUE(
        error.Description.starts_with(u"Error opening registry path '" + kV11 + u"'!  Error: "));
  }
}

}  // namespace
}  // namespace tarvo::test
