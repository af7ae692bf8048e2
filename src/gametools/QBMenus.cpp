#include "quickbattle/QBMenus.h"

#include <algorithm>

#include "gametools/Marks.h"
#include "platform/Guarded.h"
#include "platform/Sound.h"
#include "platform/Windows.h"
#include "ships/ShipFiles.h"
#include "state/ChangeTogether.h"
#include "state/CommonUtilities.h"
#include "state/Dialogue.h"
#include "text/Cleaning.h"
#include "text/CodePage.h"
#include "text/LetterCase.h"
#include "text/Paths.h"
#include "tgl/TGLFile.h"

namespace tarvo {
namespace {

/// The ship of a plug-in: the file's name without every ".py" in it, the ending in any letter case.
Text ShipOf(Text fileName) {
  const std::size_t length = fileName.size() - std::min<std::size_t>(fileName.size(), 3);
  if (EqualIgnoringCase(TextView(fileName).substr(length), u".py")) fileName.resize(length);
  return Without(fileName, u".py");
}

void AddMenuString(TGLFile& file, const Text& name) {
  file.Strings().Add(name, name, u"sfx/QuickBattle/" + name + u".mp3");
}

/// A file keeps names in its code page, so that is how a menu is found there. One that isn't there
/// changes nothing.
void RemoveMenuString(TGLStrings& strings, const Text& name) {
  Guarded([&] { strings.Remove(TextFromFileText(FileTextFromText(name))); });
}

/// What a menu list shows is the Data, which may stand under another name.
void RemoveMenusShownAs(TGLStrings& species, const Text& shown) {
  for (std::int32_t place = species.Count(); place > 0; --place) {
    if (species.Item(place)->Data == shown) species.Remove(place);
  }
}

}  // namespace

Text frmGameTools::SpeciesPath() const {
  return app_.ProgramFolder + u"\\QBMenus\\Species.TGL";
}

Text frmGameTools::QuickBattlePath() const {
  return JoinPath(app_.State.GamePath, u"\\data\\TGL\\QuickBattle\\QuickBattle.TGL");
}

/// Reads the names of the custom menus, unless the file is the one that they were read from. A file
/// of no bytes, which a power cut leaves, has none.
void frmGameTools::ReadCustomMenus() {
  NotingFailures(app_, [&] {
    const auto stamp = app_.machine.files.Stamp(SpeciesPath());
    if (stamp && stamp == speciesStamp_) return;
    speciesStamp_.reset();
    customMenus_.clear();
    if (!stamp || stamp->Size == 0) return;
    TGLFile species(app_.machine.files);
    species.SetFilename(SpeciesPath());
    try {
      species.Load();
    } catch (const RaisedError& error) {
      NoteFailure(app_, error, SpeciesPath());
      return;
    }
    for (const auto entry : species.Strings()) customMenus_.push_back(entry->Data);
    speciesStamp_ = stamp;
  });
}

Text frmGameTools::GetSpeciesName(int index) {
  ReadCustomMenus();
  if (index < 1 || static_cast<std::size_t>(index) > customMenus_.size()) return {};
  return customMenus_[static_cast<std::size_t>(index) - 1];
}

void frmGameTools::LoadQBMenus() {
  const FieldsAreFilled filling(*this);
  speciesStamp_.reset();
  lstSpecies.Clear();
  cboSpecies.Clear();
  cboSpecies.SetText(u"Select QB Menu!");
  for (const TextView menu : kBuiltInQBMenus) cboSpecies.Add(Text(menu));
  for (int i = 1;; ++i) {
    const Text name = GetSpeciesName(i);
    if (name.empty()) break;
    lstSpecies.Add(name);
    cboSpecies.Add(name);
  }
}

frmGameTools::PluginFacts frmGameTools::LearnPlugin(const FileText& text) const {
  PluginFacts facts;
  for (int i = 0; i < MenuRowCount(); ++i) {
    facts.InMenu.push_back(IsMenu(i) && PluginIsInMenu(text, MenuCaption(i)));
  }
  facts.GroupLine = GroupLine(text);
  return facts;
}

/// Null, and noted, for a plug-in that can't be read.
const frmGameTools::PluginFacts* frmGameTools::LookAtPlugin(const Text& path) {
  const PluginFacts* facts = nullptr;
  NotingFailures(app_, [&] { facts = &plugins_.Of(path); });
  return facts;
}

void frmGameTools::FindShipMenu(const Text& strShipName) {
  const Text path =
      JoinPath(app_.State.GamePath, u"\\scripts\\Custom\\Ships\\" + strShipName + u".py");
  const PluginFacts* const plugin = LookAtPlugin(path);
  if (!plugin) return;
  const auto menu = std::ranges::find(plugin->InMenu, true);
  if (menu == plugin->InMenu.end()) return;
  SelectedMenu = static_cast<std::int16_t>(menu - plugin->InMenu.begin());
}

/// A plug-in that can't be read or written ends the walk.
bool frmGameTools::MoveMenuShipsToOther(const Text& menuName) {
  const std::size_t failures = app_.Failures.size();
  Reread(FileList4);
  std::vector<Text> names;
  for (std::size_t i = FileList4.Count(); i-- > 0;) names.push_back(FileList4.Item(i));
  const FileText menu = FileTextFromText(menuName);
  for (const Text& name : names) {
    if (app_.Failures.size() != failures) return false;
    if (IsNoPlugin(name)) continue;
    const PluginFacts* const plugin = LookAtPlugin(JoinPath(FileList4.Path(), name));
    if (!plugin || plugin->GroupLine.find(menu) == FileText::npos) continue;
    ship_.Drop();
    cboSpecies.SetText(u"Other Ships");
    cboShipName.SetText(ShipOf(name));
    QuietMake = true;
    MakeShipPlugin();
    QuietMake = false;
  }
  return app_.Failures.size() == failures;
}

void frmGameTools::cboSpecies_Click() {
  PlayEffect(app_, u"Click.wav", kPlayUnlessBusy);
  if (cboSpecies.ListIndex() >= kFirstCustomMenu) CustomMenuChosen = true;
  FieldChanged(cboSpecies);
}

bool frmGameTools::CanBeDeleted(int menu) const {
  return menu >= kFirstCustomMenu &&
         static_cast<std::size_t>(menu - kFirstCustomMenu) < lstSpecies.Count();
}

Text frmGameTools::MenuToDelete() const {
  if (!CanBeDeleted(SelectedMenu)) return {};
  return lstSpecies.Item(static_cast<std::size_t>(SelectedMenu - kFirstCustomMenu));
}

/// False, and told, when there is a database that can't be loaded: it must not be replaced. One
/// that is missing, or our own with no bytes in it, has no strings.
bool frmGameTools::LoadMenus(TGLFile& file) {
  const Text& path = file.Filename();
  try {
    const auto stamp = app_.machine.files.Stamp(path);
    const bool isEmpty = path == SpeciesPath() && stamp && stamp->Size == 0;
    if (stamp && !isEmpty) file.Load();
    return true;
  } catch (const RaisedError& error) {
    NoteFailure(app_, error, path);
  } catch (const PlatformError& error) {
    NoteFailure(app_, error);
  }
  app_.dialogue.PacMsg(
      u"Can't read File " + path + u"!!!  This File is Corrupted, no QB Menu has been changed!",
      Title::Critical);
  return false;
}

/// Writes the databases, all of them or none; false, and told, when that can't be. Our own is
/// deleted when it has no strings left, since there is no such file; the game's stays as it is
/// then.
bool frmGameTools::SaveMenus(std::initializer_list<const TGLFile*> files) {
  Text path;
  try {
    std::vector<FileChange> changes;
    for (const TGLFile* file : files) {
      path = file->Filename();
      const bool isEmpty = file->Strings().Count() == 0;
      if (isEmpty && path == QuickBattlePath()) continue;
      ClearReadOnly(app_, path);
      changes.push_back({path, isEmpty ? std::nullopt : std::optional(file->Bytes())});
    }
    ChangeTogether(app_, changes);
    return true;
  } catch (const RaisedError& error) {
    NoteFailure(app_, error, path);
  } catch (const PlatformError& error) {
    path = error.Path;
    NoteFailure(app_, error);
  }
  app_.dialogue.PacMsg(
      u"Can't write to File " + path + u"!!!  " +
          (HasUnfinishedChange(app_) ? u"The next Start completes what has been begun!"
                                     : u"All Files are as they were before!"),
      Title::Critical);
  return false;
}

/// Puts a menu into both databases.
bool frmGameTools::AddMenuStrings(const Text& name) {
  TGLFile species(app_.machine.files);
  TGLFile quickBattle(app_.machine.files);
  species.SetFilename(SpeciesPath());
  quickBattle.SetFilename(QuickBattlePath());
  if (!LoadMenus(species) || !LoadMenus(quickBattle)) return false;
  AddMenuString(quickBattle, name);
  AddMenuString(species, name);
  return SaveMenus({&quickBattle, &species});
}

void frmGameTools::AddQBMenu() {
  PlayEffect(app_, u"CommandBeep.wav", kPlayToEnd);
  PlayEffect(app_, u"Specify.wav", kPlay);
  Text name = app_.dialogue.PacAskText(u"Enter New QB Menu Name...", Title::Information);
  const Text unknown = OutsideCodePage(name);
  if (!unknown.empty()) {
    app_.dialogue.PacMsg(
        u"No QB Menu has been made: the Game doesn't know the Characters " + unknown + u"!!!",
        Title::Warning);
  } else if (!name.empty()) {
    CloseOpenMenus();
    name += u" Ships";
    if (AddMenuStrings(name)) {
      lstSpecies.Add(name);
      cboSpecies.Add(name);
      app_.dialogue.PacMsg(u"The QB Species Menu has been Updated!", Title::Information);
    }
  }
  cboSpecies.Refresh();
  lstSpecies.Refresh();
  RemoveCustomMenuRows();
  BuildCustomMenuRows();
}

void frmGameTools::DeleteQBMenu() {
  PlayEffect(app_, u"CommandBeep.wav", kPlayUnlessBusy);
  if (!CanBeDeleted(SelectedMenu)) {
    app_.dialogue.PacMsg(
        u"Please open a QB Menu of your own First!  The built-in Menus can't be Deleted!",
        Title::Warning);
    return;
  }
  CloseOpenMenus();
  TGLFile species(app_.machine.files);
  TGLFile quickBattle(app_.machine.files);
  species.SetFilename(SpeciesPath());
  quickBattle.SetFilename(QuickBattlePath());
  if (!LoadMenus(species) || !LoadMenus(quickBattle)) return;
  lstSpecies.SetSelected(static_cast<std::size_t>(SelectedMenu - kFirstCustomMenu), true);
  RemoveMenus(species, quickBattle);
  RemoveCustomMenuRows();
  BuildCustomMenuRows();
}

/// Takes the selected menus out of both loaded databases and moves their ships; false when not all
/// ships could be moved. A menu whose ships can't be told stays, and all behind it.
bool frmGameTools::RemoveSelectedMenus(TGLFile& species, TGLFile& quickBattle) {
  for (std::size_t i = lstSpecies.Count(); i-- > 0;) {
    if (!lstSpecies.Selected(i)) continue;
    const Text name = lstSpecies.Item(i);
    if (!MoveMenuShipsToOther(name)) return false;
    RemoveMenuString(species.Strings(), name);
    RemoveMenusShownAs(species.Strings(), name);
    RemoveMenuString(quickBattle.Strings(), name);
    lstSpecies.RemoveAt(i);
  }
  return true;
}

/// The disabled ships in the selected menus, each on a line of its own: nothing moves them. None,
/// and noted, when the folder can't be read.
std::optional<Text> frmGameTools::ShipsThatStay() {
  Text ships;
  const bool known = NotingFailures(app_, [&] {
    for (const Text& file : app_.machine.files.FileNames(PluginPath({}, {}))) {
      const Text ship = ShipOfFile(file, kDisabledEnding);
      const PluginFacts* const plugin = ship.empty() ? nullptr : LookAtPlugin(PluginPath({}, file));
      for (std::size_t row = 0; plugin && row < lstSpecies.Count(); ++row) {
        const FileText menu = FileTextFromText(lstSpecies.Item(row));
        const bool goes = lstSpecies.Selected(row) && plugin->GroupLine.find(menu) != menu.npos;
        if (goes) ships += u"\n" + ship;
      }
    }
  });
  return known ? std::optional(ships) : std::nullopt;
}

/// On the disk the ships come first, and the databases last. The messages wait for the end: each
/// tells what is done, and a failure was told where it happened.
void frmGameTools::RemoveMenus(TGLFile& species, TGLFile& quickBattle) {
  const std::optional<Text> staying = ShipsThatStay();
  const bool moved = staying && RemoveSelectedMenus(species, quickBattle);
  const bool removed = moved && SaveMenus({&species, &quickBattle});
  LoadQBMenus();
  if (removed && quickBattle.Strings().Count() == 0) {
    Tell(quickBattle.Filename() + u" keeps the menu: it has no other string, and can't be empty.");
    app_.machine.windows.ShowMessage(news_, u"", BoxIcon::Information);
  }
  if (removed) {
    app_.dialogue.PacMsg(u"The Selected QB Menu Items have been Removed from the Game!",
                         Title::Information);
  }
  if (moved && !staying->empty()) {
    app_.machine.windows.ShowMessage(
        u"These Ships are Disabled, and stay in the Menu that is gone.  Enable them, and pick " +
            Text(u"their Species again:\n") + *staying,
        u"", BoxIcon::Information);
  }
  if (moved) {
    app_.dialogue.PacMsg(
        u"All ships that were under that Menu have been moved to the \"Other Ships\" Menu!",
        Title::Information);
  } else {
    app_.dialogue.PacMsg(
        u"Not all ships that were under that Menu could be moved to the \"Other Ships\" Menu!!!",
        Title::Critical);
  }
}

}  // namespace tarvo
