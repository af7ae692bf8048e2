#include <gtest/gtest.h>

#include "gametools/frmGameTools.h"
#include "machine/TestMachine.h"
#include "packages/frmPackager.h"
#include "shell/frmMainMenu.h"
#include "shell/frmOptions.h"
#include "shiptgl/ShipDefinition.h"
#include "shiptgl/frmTGLTools.h"
#include "text/Utf8.h"
#include "tgl/TGLFile.h"

namespace tarvo::test {
namespace {

class Drafts : public testing::Test {
 protected:
  Drafts() {
    for (const TextView file : {u"\\scripts\\ships\\Nord.py", u"\\scripts\\ships\\Hardpoints\\x.py",
                                u"\\scripts\\Custom\\Ships\\Nord.py",
                                u"\\scripts\\Custom\\Autoload\\x.txt", u"\\sfx\\Weapons\\a.wav"}) {
      machine.WriteFile(machine.GameFolder() + Text(file), "x");
    }
    machine.WriteFile(machine.GameFolder() + u"\\data\\Models\\Ships\\x.nif", "x");
    machine.WriteFile(program + u"\\ShipTGLs\\none.txt", "x");
    TGLFile file(*machine.disk);
    AddDefinition(file.Strings(), u"Sued", {.LongName = u"USS Sued"});
    file.Update(program + u"\\ShipTGLs\\Sued.TGL", true);
    machine.Start().Visible = true;
    MakeOldPackage();
  }

  void MakeOldPackage() {
    auto& screen = Open<frmPackager>();
    screen.lblModels.Press();
    screen.AddAllFiles();
    screen.cboFileName.SetText(u"Old");
    screen.lblSave.Press();
    screen.lblExit.Press();
    machine.Turn();
  }

  /// The screen of that kind, opened from the menu where it is not open.
  template <class Screen>
  Screen& Open() {
    if (Screen* open = machine.app.screens.Find<Screen>()) return *open;
    Button* opener = &Menu().lblOptions;
    if constexpr (std::is_same_v<Screen, frmGameTools>) opener = &Menu().lblGameTools;
    if constexpr (std::is_same_v<Screen, frmTGLTools>) opener = &Menu().lblTGLTools;
    if constexpr (std::is_same_v<Screen, frmPackager>) opener = &Menu().lblPackager;
    opener->Press();
    return *machine.app.screens.Find<Screen>();
  }

  frmMainMenu& Menu() { return *machine.app.screens.Find<frmMainMenu>(); }
  Text Status() { return machine.Start().StatusBar.Panel1; }

  TestMachine machine;
  Text program = machine.ProgramFolder();
};

TEST_F(Drafts, WhatIsDroppedUnsavedIsToldAndComesBackOnItsScreen) {
  const auto packager = [this]() -> frmPackager& { return Open<frmPackager>(); };
  const auto tgl = [this]() -> frmTGLTools& { return Open<frmTGLTools>(); };
  const auto tools = [this]() -> frmGameTools& { return Open<frmGameTools>(); };
  const auto options = [this]() -> frmOptions& { return Open<frmOptions>(); };
  struct Case {
    const char* what;
    std::function<Form&()> screen;
    std::function<void()> work;
    std::function<void()> drop;
    std::function<bool()> shows;
  };
  const auto addFile = [&] {
    packager().lblScripts.Press();
    packager().AddAllFiles();
    packager().cboFileName.SetText(u"New");
  };
  const auto hasFile = [&] {
    return packager().lstFile.Count() == 1 && packager().cboFileName.Text() == u"New" &&
           packager().PackageList == u"\\scripts\\ships\\Nord.py\r\n";
  };
  const auto editSued = [&] {
    tgl().lblEditTGL.Press();
    tgl().FileList.Click(0);
    tgl().txtHull.SetText(u"7");
  };
  const auto addSound = [&] {
    tools().lblSoundPlugin.Press();
    tools().cboSoundName.SetText(u"Nord");
    tools().lstSoundInfo.Add(u"a.wav|Torpedo|1.0");
  };
  const std::vector<Case> cases = {
      {"files, Exit", packager, addFile, [&] { packager().lblExit.Press(); }, hasFile},
      {"files, another package", packager, addFile, [&] { packager().cboFileName.Pick(0); },
       hasFile},
      {"a new definition, another tab", tgl, [&] { tgl().txtWeapons.SetText(u"two"); },
       [&] { tgl().lblGameTGL.Press(), tgl().lblDeleteTGL.Press(); },
       [&] { return tgl().lblNew.Visible && tgl().txtWeapons.Text() == u"two"; }},
      {"a changed definition, Exit", tgl, editSued, [&] { tgl().lblExit.Press(); },
       [&] {
         return tgl().lblEdit.Enabled && tgl().cboShipNames.Text() == u"Sued" &&
                tgl().txtHull.Text() == u"7" && tgl().txtLongName.Text() == u"USS Sued";
       }},
      {"a changed definition, another one", tgl, editSued, [&] { tgl().FileList.Click(0); },
       [&] { return tgl().txtHull.Text() == u"7"; }},
      {"a plug-in, Exit", tools, [&] { tools().txtAuthor.SetText(u"Me"); },
       [&] { tools().lblExit.Press(); }, [&] { return tools().txtAuthor.Text() == u"Me"; }},
      {"sounds, a letter of the name", tools, addSound,
       [&] { tools().cboSoundName.SetText(u"Nor"); },
       [&] { return tools().lstSoundInfo.Count() == 1 && tools().cboSoundName.Text() == u"Nord"; }},
      {"a plug-in, another ship", tools,
       [&] { tools().cboShipName.SetText(u"Sued"), tools().txtAuthor.SetText(u"Me"); },
       [&] { tools().cboShipName.Pick(0); },
       [&] { return tools().txtAuthor.Text() == u"Me" && tools().cboShipName.Text() == u"Sued"; }},
      {"sounds, Exit", tools, addSound, [&] { tools().lblExit2.Press(); },
       [&] { return tools().fraSound.Visible && tools().lstSoundInfo.Count() == 1; }},
      {"options, Exit", options,
       [&] { options().cboFolder.SetText(program), options().chkSoundFX.Click(); },
       [&] { options().lblExit.Press(); },
       [&] { return !options().chkSoundFX.Checked && options().lstDir.Path() == program; }},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    EXPECT_FALSE(c.screen().OnUndo(false)) << "nothing was dropped yet";
    c.work();
    c.drop();
    EXPECT_NE(Status().find(u"Ctrl+Z"), Text::npos);
    machine.Turn();
    c.screen();
    EXPECT_FALSE(c.shows());
    EXPECT_TRUE(c.screen().OnUndo(false));
    EXPECT_TRUE(c.shows());
    Form& form = c.screen();
    EXPECT_TRUE(form.PressEscape());
    EXPECT_TRUE(machine.app.screens.IsOpen(form)) << "the first Escape only says so";
    EXPECT_NE(Status().find(u"not saved"), Text::npos);
    EXPECT_TRUE(form.PressEscape());
    EXPECT_FALSE(machine.app.screens.IsOpen(form));
    machine.Turn();
    machine.app.Dropped.clear();
  }
}

TEST_F(Drafts, NothingSavedOrUntouchedHoldsEscapeOrComesBack) {
  const std::function<Form&()> screens[] = {
      [&]() -> Form& {
        auto& screen = Open<frmPackager>();
        screen.lblScripts.Press();
        screen.AddAllFiles();
        screen.cboFileName.SetText(u"New");
        screen.lblSave.Press();
        return screen;
      },
      [&]() -> Form& {
        auto& screen = Open<frmTGLTools>();
        screen.cboShipNames.SetText(u"Nord");
        screen.txtHull.SetText(u"7");
        screen.lblNew.Press();
        screen.lblDeleteTGL.Press();
        screen.FileList.Click(0);
        return screen;
      },
      [&]() -> Form& {
        auto& screen = Open<frmGameTools>();
        screen.FileList2.Click(0);
        screen.cboSpecies.SetText(u"Federation Ships");
        screen.lblMakeShipPlugin.Press();
        screen.lblSoundPlugin.Press();
        screen.cboSoundName.SetText(u"Nord");
        screen.lstSoundInfo.Add(u"a.wav|Torpedo|1.0");
        screen.lblMakeSoundPlugin.Press();
        return screen;
      },
      [&]() -> Form& { return Open<frmOptions>(); },
  };
  for (const auto& open : screens) {
    Form& form = open();
    SCOPED_TRACE(Utf8FromText(form.HelpPage.Get()));
    EXPECT_TRUE(form.PressEscape());
    EXPECT_FALSE(machine.app.screens.IsOpen(form));
    EXPECT_EQ(Status(), u"Standing By...");
    machine.Turn();
  }
  EXPECT_TRUE(machine.app.Dropped.empty());
}

/// In a field what was typed comes first, as long as it is new.
TEST_F(Drafts, AllThatWasDroppedComesBackOneAfterTheOther) {
  auto& screen = Open<frmTGLTools>();
  for (const TextView text : {u"one", u"two"}) {
    screen.txtWeapons.SetText(Text(text));
    screen.lblNewTGL.Press();
  }
  screen.txtWeapons.SetText(u"three");
  EXPECT_FALSE(screen.OnUndo(true));
  for (const TextView text : {u"two", u"one", u"three", u"two"}) {
    EXPECT_TRUE(screen.OnUndo(false));
    EXPECT_EQ(screen.txtWeapons.Text(), text);
  }
}

}  // namespace
}  // namespace tarvo::test
