#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

#include "Transcript.h"
#include "controls/RowPanel.h"
#include "gametools/frmGameTools.h"
#include "packages/PackageFormat.h"
#include "packages/frmPackager.h"
#include "shiptgl/frmTGLTools.h"
#include "text/Utf8.h"
#include "tgl/TGLFile.h"

namespace tarvo::test {
namespace {

using Script = void (*)(Transcript& at);

void Choose(ListBox& list, TextView row) {
  for (std::size_t i = 0; i < list.Count(); ++i) {
    if (list.Item(i) == row) list.Click(i);
  }
}

void Pick(ComboBox& list, TextView row) {
  for (std::size_t i = 0; i < list.Count(); ++i) {
    if (list.Item(i) == row) return list.Pick(i);
  }
}

void PutPlugin(Transcript& at, TextView ship, TextView ending = u".py") {
  at.Put(u"game\\scripts\\Custom\\Ships\\" + Text(ship) + Text(ending),
         "# " + Utf8FromText(ship) + "\r\nmenuGroup = 'Fed Ships'\r\n");
}

void PutDatabases(Transcript& at) {
  for (const TextView path : {u"Ships.TGL", u"QuickBattle\\QuickBattle.TGL"}) {
    at.Put(u"game\\data\\TGL\\" + Text(path), "");
    TGLFile file(at.machine.files);
    file.Strings().Add(u"Galaxy", u"Galaxy Class", u"g.wav");
    file.Update(Transcript::At(u"game\\data\\TGL\\" + Text(path)), true);
  }
}

void PutPackage(Transcript& at, TextView entries, const std::vector<FileText>& bodies) {
  FileText package = PackageHead(Text(entries), u"1/2/2003");
  for (const FileText& body : bodies) package += body + BodyEnd();
  at.Put(u"program\\Tarvos\\Ship.Tarvo", package);
}

void MakePackage(Transcript& at) {
  frmPackager& screen = at.Open<frmPackager>();
  at.Do("make without a name", [&] { screen.lblSave.Press(); });
  screen.cboFileName.SetText(u"Ship");
  at.Do("make without files", [&] { screen.lblSave.Press(); });
  at.Do("scripts, add all", [&] {
    screen.lblScripts.Press();
    screen.lblAddAll.Press();
  });
  at.Do("remove one", [&] {
    Choose(screen.lstFile, u"Nord.py");
    screen.lblRemove.Press();
  });
  at.Do("make", [&] { screen.lblSave.Press(); });
  at.Do("pick it", [&] {
    screen.cboFileName.DropDown();
    Pick(screen.cboFileName, u"Ship");
  });
  at.machine.disk->Remove(Transcript::At(u"game\\scripts\\ships\\Akira.py"));
  at.Do("make it again with its file gone", [&] { screen.lblSave.Press(); });
}

void InstallPackage(Transcript& at) {
  PutPackage(at, u"\\scripts\\ships\\New.py\r\n\\scripts\\ships\\Nord.py\r\n", {"new", "newer"});
  frmPackager& screen = at.Open<frmPackager>();
  at.Do("install without a name", [&] { screen.lblTest.Press(); });
  screen.cboFileName.SetText(u"None");
  at.Do("install what isn't there", [&] { screen.lblTest.Press(); });
  screen.cboFileName.SetText(u"Ship");
  at.Do("install, No", [&] { screen.lblTest.Press(); });
  at.machine.answers = {u"Yes", u"Yes"};
  at.Do("install, Yes twice", [&] { screen.lblTest.Press(); });
  at.machine.answers = {u"All"};
  at.Do("install, Yes to All", [&] { screen.lblTest.Press(); });
  PutPackage(at, u"\\..\\evil.py\r\n", {"evil"});
  at.Do("install what leads elsewhere", [&] { screen.lblTest.Press(); });
  at.Put(u"program\\Tarvos\\Ship.Tarvo", "cut");
  at.Do("install half a package", [&] { screen.lblTest.Press(); });
}

void MakeShipPlugin(Transcript& at) {
  frmGameTools& screen = at.Open<frmGameTools>();
  at.Do("make without a name", [&] { screen.lblMakeShipPlugin.Press(); });
  screen.cboShipName.SetText(u"Nord");
  at.Do("make without a menu", [&] { screen.lblMakeShipPlugin.Press(); });
  screen.cboShipName.SetText(u"Nord");
  Pick(screen.cboSpecies, u"Klingon Ships");
  screen.txtAuthor.SetText(u"Somebody");
  at.Do("make", [&] { screen.lblMakeShipPlugin.Press(); });
  screen.cboShipName.SetText(u"Galaxy");
  Pick(screen.cboSpecies, u"Klingon Ships");
  at.machine.answers = {u"Yes"};
  at.Do("make with a script from the backup", [&] { screen.lblMakeShipPlugin.Press(); });
  at.Do("leave", [&] { screen.CancelButton.Get()->Press(); });
  frmGameTools& next = at.Open<frmGameTools>();
  at.Do("read it back", [&] { Pick(next.cboShipName, u"Nord"); });
}

void MakeSoundPlugin(Transcript& at) {
  frmGameTools& screen = at.Open<frmGameTools>();
  screen.lblSoundPlugin.Press();
  at.Do("make without a name", [&] { screen.lblMakeSoundPlugin.Press(); });
  screen.cboSoundName.SetText(u"Loud");
  at.Do("make without sounds", [&] { screen.lblMakeSoundPlugin.Press(); });
  screen.cboSoundName.SetText(u"Loud");
  at.Do("add nothing", [&] { screen.lblAddSound.Press(); });
  Choose(screen.FileListWavs, u"a.wav");
  Choose(screen.lstWeapons, u"Photon");
  at.Do("add a sound", [&] { screen.lblAddSound.Press(); });
  Choose(screen.lstWeapons, u"Test Phaser");
  at.machine.answers = {u"Yes"};
  at.Do("add a phaser's start", [&] { screen.lblAddSound.Press(); });
  at.Do("make", [&] { screen.lblMakeSoundPlugin.Press(); });
}

void QBMenus(Transcript& at) {
  PutDatabases(at);
  PutPlugin(at, u"Nord");
  frmGameTools& screen = at.Open<frmGameTools>();
  at.Do("Menus", [&] { screen.lblMenus.Press(); });
  at.Do("delete a built-in menu", [&] { screen.lblDeleteQB.Press(); });
  at.machine.answers = {u"Borg"};
  at.Do("add", [&] { screen.lblAddQB.Press(); });
  at.machine.answers = {u""};
  at.Do("add nothing", [&] { screen.lblAddQB.Press(); });
  at.Do("open it", [&] { screen.fraQBMenu.Click({RowPanel::Family::Menu, 8}, true); });
  at.Do("delete it", [&] { screen.lblDeleteQB.Press(); });
}

void ShipStates(Transcript& at) {
  PutPlugin(at, u"Akira");
  PutPlugin(at, u"Nord");
  PutPlugin(at, u"Broken");
  frmGameTools& screen = at.Open<frmGameTools>();
  at.Do("Menus", [&] { screen.lblMenus.Press(); });
  at.Do("open a menu and choose its first ship", [&] {
    screen.fraQBMenu.Click({RowPanel::Family::Menu, 0}, true);
    screen.fraQBMenu.Click({RowPanel::Family::Ship, 1}, true);
  });
  at.Do("disable", [&] { screen.lblDisable.Press(); });
  at.Do("disable nothing", [&] { screen.lblDisable.Press(); });
  for (const TextView ship : {u"Akira", u"Nord", u"Broken"}) Choose(screen.lstDisabled, ship);
  at.Do("enable all", [&] { screen.lblEnable.Press(); });
  Choose(screen.lstDisabled, u"Broken");
  at.Do("delete, No", [&] { screen.lblDelete.Press(); });
  at.machine.answers = {u"Yes"};
  at.Do("delete, Yes", [&] { screen.lblDelete.Press(); });
  screen.lblChecker.Press();
  at.Do("check a ship", [&] { Choose(screen.FileList3, u"Nord.py"); });
}

void ShipTGLs(Transcript& at) {
  PutDatabases(at);
  PutPlugin(at, u"Nord");
  frmTGLTools& screen = at.Open<frmTGLTools>();
  at.Do("new without a name", [&] { screen.lblNew.Press(); });
  screen.cboShipNames.SetText(u"Nord");
  screen.txtLongName.SetText(u"USS Nord");
  screen.txtDescription.SetText(u"A ship");
  at.Do("new", [&] { screen.lblNew.Press(); });
  screen.lblEditTGL.Press();
  at.Do("pick it", [&] { Choose(screen.FileList, u"Nord.TGL"); });
  screen.txtHull.SetText(u"12000");
  at.Do("save it", [&] { screen.lblEdit.Press(); });
  screen.lblGameTGL.Press();
  at.Do("update nothing", [&] { screen.lblUpdateGame.Press(); });
  Choose(screen.File2, u"Nord.TGL");
  at.Do("update", [&] { screen.lblUpdateGame.Press(); });
  at.Do("update all", [&] { screen.lblUpdateAllGameTGL.Press(); });
  at.Put(u"game\\data\\TGL\\Ships.TGL", "damaged");
  at.Do("update a damaged database", [&] { screen.lblUpdateAllGameTGL.Press(); });
  screen.lblDeleteTGL.Press();
  Choose(screen.FileList, u"Nord.TGL");
  at.Do("delete, No", [&] { screen.lblDelete.Press(); });
  at.machine.answers = {u"Yes"};
  at.Do("delete, Yes", [&] { screen.lblDelete.Press(); });
}

struct Command {
  const char* Name;
  Script Run;
  friend void PrintTo(const Command& command, std::ostream* out) { *out << command.Name; }
};

class Transcripts : public testing::TestWithParam<Command> {};

/// With TARVO_RECORD set the expected ones are written anew, to be read before they are committed.
TEST_P(Transcripts, AreAsExpected) {
  Transcript transcript;
  GetParam().Run(transcript);
  const std::string path = TARVO_EXPECTED "/" + std::string(GetParam().Name) + ".txt";
  if (std::getenv("TARVO_RECORD")) std::ofstream(path) << transcript.Written();
  std::ifstream file(path);
  const std::string expected(std::istreambuf_iterator<char>(file), {});
  EXPECT_EQ(transcript.Written(), expected);
}

INSTANTIATE_TEST_SUITE_P(
    Of, Transcripts,
    testing::Values(Command{"MakePackage", MakePackage}, Command{"InstallPackage", InstallPackage},
                    Command{"MakeShipPlugin", MakeShipPlugin},
                    Command{"MakeSoundPlugin", MakeSoundPlugin}, Command{"QBMenus", QBMenus},
                    Command{"ShipStates", ShipStates}, Command{"ShipTGLs", ShipTGLs}),
    [](const auto& run) { return run.param.Name; });

}  // namespace
}  // namespace tarvo::test
