#include "ships/ShipPlugin.h"

#include "gametools/Marks.h"
#include "platform/FileCopies.h"
#include "platform/Locale.h"
#include "platform/Sound.h"
#include "quickbattle/QBMenus.h"
#include "ships/ShipFiles.h"
#include "state/CommonUtilities.h"
#include "state/Dialogue.h"
#include "text/FileNames.h"

namespace tarvo {
Text frmGameTools::PluginPath(const Text& ship, TextView ending) const {
  return app_.State.GamePath + u"\\scripts\\Custom\\Ships\\" + ship + Text(ending);
}

Text frmGameTools::ScriptPath(const Text& fileName) const {
  return app_.State.GamePath + u"\\scripts\\ships\\" + fileName;
}

void frmGameTools::MakeShipPlugin() {
  PlayEffect(app_, u"CommandBeep.wav", kPlayUnlessBusy);
  if (cboSpecies.Text() == kNoMenu) {
    app_.dialogue.PacMsg(u"You Did not Select a Race!!!", Title::Critical);
    return;
  }
  const Text ship = cboShipName.Text();
  if (ship.empty()) {
    app_.dialogue.PacMsg(u"You Did not Enter a Ship Name!!!", Title::Critical);
    return;
  }
  const Text fault = FaultOfGameName(ship);
  if (!fault.empty()) return RefuseShip(fault);
  if (!WriteShipPlugin()) return;
  if (!HasScript(ship) && !MakeShipScript(ship)) return;
  if (!QuietMake) {
    app_.dialogue.PacMsg(u"Your Ship has been added to the Game!!!", Title::Information);
  }
  QuietMake = false;
  cboSpecies.SetText(Text(kNoMenu));
  cboShipName.SetText({});
  txtIconName.SetText({});
  txtModName.SetText({});
  txtComments.SetText({});
  txtVersion.SetText(u"1.0");
  ship_.Settle();
}

void frmGameTools::RefuseShip(const Text& fault) {
  if (QuietMake) return NoteFailure(app_, Failure{fault, false});
  app_.dialogue.PacMsg(u"No Ship Plugin has been made!!!  " + fault, Title::Critical);
}

/// Writes the plug-in from the fields; cboSpecies then shows its race word. False, and noted, with
/// the fields as they were, when it can't be written.
bool frmGameTools::WriteShipPlugin() {
  const ShipPlugin plugin{cboShipName.Text(), txtIconName.Text(), MenuInPlugin(cboSpecies.Text()),
                          txtModName.Text(),  txtAuthor.Text(),   txtVersion.Text(),
                          txtSources.Text(),  txtComments.Text()};
  std::vector<Text> customMenus;
  for (std::size_t row = kBuiltInQBMenus.size(); row < cboSpecies.Count(); ++row) {
    customMenus.push_back(cboSpecies.Item(row));
  }
  const Text raceWord = RaceWord(plugin.Menu, CustomMenuChosen, customMenus);
  const bool written = NotingFailures(app_, [&] {
    const auto file = app_.machine.files.Replace(PluginPath(plugin.Ship, kEnabledEnding));
    file->Write(ShipPluginText(plugin, raceWord, app_.machine.locale.ShortDate()));
    file->Commit();
  });
  if (!written) return false;
  CustomMenuChosen = false;
  cboSpecies.SetText(raceWord);
  ship_.Settle();
  return true;
}

/// As the list of scripts has it. Where that couldn't be read nobody knows, and nothing is asked.
bool frmGameTools::HasScript(const Text& ship) const {
  if (!scriptsKnown_) return !app_.Failures.empty();
  for (std::size_t row = 0; row < FileList2.Count(); ++row) {
    if (ShipOfFile(FileList2.Item(row), kEnabledEnding) == ship) return true;
  }
  return false;
}

/// Makes a ship script of the template, if the user wants one. False when none came of it.
bool frmGameTools::MakeShipScript(const Text& ship) {
  Dialogue& dialogue = app_.dialogue;
  const Text file = ship + Text(kEnabledEnding);
  const Text path = ScriptPath(file);
  dialogue.PacMsg(file + u" file does not exist for this Ship Name!", Title::Warning);
  dialogue.PacMsg(u"If ALL Required files exist you can Create one!", Title::Warning);
  PlayEffect(app_, u"Question.wav", kPlay);
  const Text answer = dialogue.PacInputInAnyCase(
      u"Would you like to Attempt to Create one???",
      u"Would you like to Attempt to Create " + file + u"???", Title::Question);
  if (answer == u"No") return false;
  bool stands = false;
  if (!NotingFailures(app_, [&] { stands = app_.machine.files.FileExists(path); })) return false;
  if (stands) {
    dialogue.PacMsg(path + u" has come up since, and stays as it is!", Title::Warning);
  } else {
    if (!WriteShipScript(ship, path)) return false;
    dialogue.PacMsg(file + u" has been created... Checking File Structures...", Title::Information);
  }
  lblMenus_Click();
  return true;
}

/// False, and noted, when the template can't be read or the script not be written.
bool frmGameTools::WriteShipScript(const Text& ship, const Text& path) {
  const Text source = app_.ProgramFolder + u"\\Backup\\Galaxy.py";
  bool written = false;
  NotingFailures(app_, [&] {
    const WholeText pattern = ReadWhole(app_.machine.files, source);
    if (pattern.Bytes().empty()) throw PlatformError(u"read", source, kReadFault);
    written = WriteFileText(app_, path, ShipScriptText(pattern, ship));
  });
  return written;
}

void frmGameTools::PickShipScript() {
  PlayEffect(app_, u"Click.wav", kPlayUnlessBusy);
  if (FileList2.ListIndex() < 0) return;
  const Text& file = FileList2.Item(static_cast<std::size_t>(FileList2.ListIndex()));
  const Text ship = file.substr(0, file.size() - kEnabledEnding.size());
  const bool dropped = ship_.Drop();
  cboShipName.SetText(Showable(ship));
  if (!dropped) ship_.Settle();
  TellOfPlugin(ship);
}

/// Says that a ship has a plug-in, which the fields don't show.
void frmGameTools::TellOfPlugin(const Text& ship) {
  news_.clear();
  NotingFailures(app_, [&] {
    Files& files = app_.machine.files;
    if (files.FileExists(PluginPath(ship, kEnabledEnding))) {
      news_ = ship + u" has a plug-in already: pick it in Ship Name to change that.";
    } else if (files.FileExists(PluginPath(ship, kDisabledEnding))) {
      news_ = ship + u" has a plug-in already, which is disabled.";
    }
  });
  Tell(news_);
}

void frmGameTools::ShipNameChanged() {
  txtIconName.SetText(cboShipName.Text());
  txtModName.SetText(cboShipName.Text());
  FieldChanged(cboShipName);
}

void frmGameTools::LoadShipPlugin() {
  PlayEffect(app_, u"Click.wav", kPlayUnlessBusy);
  const bool dropped = ship_.Drop();
  const ShipPlugin plugin =
      ReadShipPlugin(ReadFileText(app_, PluginPath(cboShipName.Text(), kEnabledEnding)));
  txtIconName.SetText(plugin.Icon);
  cboSpecies.SetText(plugin.Menu.empty() ? Text(kNoMenu) : MenuOnScreen(plugin.Menu));
  txtModName.SetText(plugin.ModName);
  txtAuthor.SetText(plugin.Author);
  txtVersion.SetText(plugin.Version);
  txtSources.SetText(plugin.Sources);
  txtComments.SetText(plugin.Comments);
  ship_.Settle();
  if (dropped) ship_.TellDropped(status_);
}

}  // namespace tarvo
