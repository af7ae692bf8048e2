#include <algorithm>
#include <set>

#include "platform/Files.h"
#include "platform/Sound.h"
#include "platform/Windows.h"
#include "shiptgl/frmTGLTools.h"
#include "state/CommonUtilities.h"
#include "state/Dialogue.h"
#include "text/Cleaning.h"
#include "tgl/TGLFile.h"

namespace tarvo {
namespace {

constexpr TextView kEnding = u".TGL";

/// The name of the ship whose definition or plug-in has this file name, with a dot and `letters`
/// letters at its end.
Text LessEnding(const Text& fileName, std::size_t letters) {
  return fileName.substr(0, fileName.size() - letters - 1);
}

Text ShipOfPlugin(const Text& fileName) {
  return Without(LessEnding(fileName, 2), u".py");
}

}  // namespace

ShipTexts frmTGLTools::TextsOfFields() const {
  return {.LongName = txtLongName.Text(),
          .Description = txtDescription.Text(),
          .Weapons = txtWeapons.Text(),
          .Shields = txtShields.Text(),
          .Hull = txtHull.Text(),
          .Tactics = txtTactics.Text()};
}

bool frmTGLTools::SaveShipTGL() {
  BeginCommand();
  PlayEffect(app_, u"CommandBeep.wav", kPlayUnlessBusy);
  const Text ship = cboShipNames.Text();
  if (ship == u"Select your Ship!") {
    app_.dialogue.PacMsg(u"You didn't select a Ship!!!", Title::Warning);
    return false;
  }
  const bool saved = NotingFailures(app_, [&] {
    TGLFile file(app_.machine.files);
    file.SetFilename(DefinitionPath(app_.ProgramFolder, ship));
    AddDefinition(file.Strings(), ship, TextsOfFields());
    file.Update(file.Filename(), true);
  });
  if (!saved) {
    app_.machine.windows.ShowMessage(
        u"TGLLib has not been Registered with Windows, Please reinstall Tarvo!!!", u"",
        BoxIcon::Critical);
    return false;
  }
  draft_.Settle();
  ReadListsAnew();
  DropDefinedShips();
  app_.dialogue.PacMsg(u"Ship TGL Definition has been Saved!", Title::Information);
  return true;
}

void frmTGLTools::ReadListsAnew() {
  NotingFailures(app_, [&] { FileList.Reload(); });
  NotingFailures(app_, [&] { File2.Reload(); });
}

void frmTGLTools::lblEdit_Click() {
  PlayEffect(app_, u"CommandBeep.wav", kPlayToEnd);
  PlayEffect(app_, u"Question.wav", kPlayUnlessBusy);
  const Text answer =
      app_.dialogue.PacInput(u"Are you sure you want to save these Changes???", Title::Question);
  if (answer == u"Yes") SaveShipTGL();
}

void frmTGLTools::PickDefinition() {
  BeginCommand();
  const bool dropped = draft_.Drop();
  const Text& fileName = FileList.Item(static_cast<std::size_t>(FileList.ListIndex()));
  cboShipNames.SetText(LessEnding(fileName, 3));
  LoadShipTGL();
  if (dropped) draft_.TellDropped(status_);
}

void frmTGLTools::LoadShipTGL() {
  const bool editing = !lblDelete.Visible;
  if (editing) EnableDefinition();
  const Text ship = cboShipNames.Text();
  TGLFile file(app_.machine.files);
  file.SetFilename(DefinitionPath(app_.ProgramFolder, ship));
  try {
    file.Load();
    ShowTexts(TextsOfDefinition(file.Strings(), ship));
  } catch (const RaisedError& error) {
    NoteFailure(app_, error, file.Filename());
    if (error.SystemCode != 0) {
      app_.dialogue.PacMsg(app_.Failures.back().Words, Title::Critical);
    } else {
      app_.dialogue.PacMsg(u"Your " + ship + u" file is not Valid with " + app_.State.AppVersion +
                               u", Please make a new one!",
                           Title::Critical);
      DeleteShipTGL();
    }
    // The tab begins anew, and what went wrong is still to be told.
    std::vector<Failure> failures = std::move(app_.Failures);
    lblEditTGL_Click();
    app_.Failures = std::move(failures);
    ShowFailures(app_);
  }
}

void frmTGLTools::DeleteShipTGL() {
  PlayEffect(app_, u"CommandBeep.wav", kPlayToEnd);
  if (FileList.ListIndex() < 0) {
    app_.dialogue.PacMsg(u"You did not Select a Definition to Delete!", Title::Warning);
    return;
  }
  const Text fileName = FileList.Item(static_cast<std::size_t>(FileList.ListIndex()));
  const Text name = Without(fileName, kEnding);
  PlayEffect(app_, u"Question.wav", kPlay);
  const Text answer = app_.dialogue.PacInput(
      u"Do you want to Delete " + name + u".TGL from your Hard Drive?!?", Title::Question);
  const auto keep = [&](Title title) {
    app_.dialogue.PacMsg(u"The Ship TGL Definition was NOT Deleted from your Hard Drive!", title);
  };
  if (answer != u"Yes") return keep(Title::Information);
  const Text path = app_.ProgramFolder + u"\\ShipTGLs\\" + fileName;
  if (!NotingFailures(app_, [&] { app_.machine.files.Remove(path); })) {
    return keep(Title::Critical);
  }
  ReadListsAnew();
  ResetFields();
  FillShipNames();
  DropDefinedShips();
  app_.dialogue.PacMsg(name + u".TGL Definition has been Removed from your Hard Drive!",
                       Title::Information);
}

void frmTGLTools::FillShipNames() {
  const Text line = cboShipNames.Text();
  cboShipNames.Clear();
  cboShipNames.SetText(line);
  ShowFolder(FileList1, app_.State.GamePath + u"\\scripts\\Custom\\Ships\\");
  for (std::size_t row = 0; row < FileList1.Count(); ++row) {
    const Text ship = ShipOfPlugin(FileList1.Item(row));
    if (ship != u"__init__" && !ship.empty()) cboShipNames.Add(ship);
  }
}

void frmTGLTools::DropDefinedShips() {
  std::set<Text> defined;
  for (std::size_t row = 0; row < FileList.Count(); ++row) {
    defined.insert(LessEnding(FileList.Item(row), 3));
  }
  for (std::size_t row = cboShipNames.Count(); row-- > 0;) {
    if (defined.contains(cboShipNames.Item(row))) cboShipNames.RemoveAt(row);
  }
}

}  // namespace tarvo
