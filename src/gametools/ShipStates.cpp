#include <algorithm>
#include <unordered_set>

#include "gametools/frmGameTools.h"
#include "platform/Files.h"
#include "platform/Sound.h"
#include "ships/ShipFiles.h"
#include "state/CommonUtilities.h"
#include "state/Dialogue.h"
#include "state/Shell.h"
#include "text/LetterCase.h"
#include "text/Lines.h"

namespace tarvo {
namespace {

/// Deletes a file; one that has gone already is as good.
void RemoveIfThere(Files& files, const Text& path) {
  try {
    files.Remove(path);
  } catch (const PlatformError& error) {
    if (!SaysNothingThere(error.Code)) throw;
  }
}

/// True when it is known that no file stands there.
bool IsGone(Files& files, const Text& path) {
  try {
    return !files.FileExists(path);
  } catch (const PlatformError&) {
    return false;
  }
}

}  // namespace

void frmGameTools::SelectShipOfTree() {
  const Text caption = ShipCaption(SelectedShip);
  for (std::size_t row = 0; row < lstEnabled.Count(); ++row) {
    if (lstEnabled.Item(row) == caption) lstEnabled.SetSelected(row, true);
  }
}

std::vector<int> frmGameTools::OpenMenus() const {
  std::vector<int> menus;
  for (int menu = 0; menu + 1 < MenuRowCount(); ++menu) {
    if (MenuIsOpen(menu)) menus.push_back(menu);
  }
  return menus;
}

/// Takes the ship's rows out of the open menus, and gives those menus.
std::vector<int> frmGameTools::TakeOutOfTree(const Text& ship) {
  FindShipMenu(ship);
  std::vector<int> menus = OpenMenus();
  for (const int menu : menus) RemoveShipRow(menu, ship);
  return menus;
}

/// Brings back the rows of a ship that was taken out and yet stays enabled.
void frmGameTools::ShowAnew(const std::vector<int>& menus) {
  for (const int menu : menus) {
    if (MenuIsOpen(menu)) CloseQBMenu(menu);
    OpenQBMenu(menu);
  }
}

/// Gives the ship's plug-in another ending. False when it can't: the user is told of a file that
/// stands in the way, and any other failure is noted.
bool frmGameTools::RenamePlugin(const Text& ship, TextView from, TextView to) {
  Files& files = app_.machine.files;
  const Text source = PluginPath(ship, from);
  const Text target = PluginPath(ship, to);
  try {
    files.Rename(source, target);
    return true;
  } catch (const PlatformError& error) {
    if (error.Code != kFileExists || IsGone(files, source)) {
      NoteFailure(app_, error);
      return false;
    }
  }
  app_.dialogue.PacMsg(u"Ship " + ship + u" has two Plugins side by side: " + source + u" and " +
                           target + u". Both stay as they are: Remove the one you don't need!",
                       Title::Warning);
  return false;
}

void frmGameTools::DisableShips() {
  PlayEffect(app_, u"CommandBeep.wav", kPlayUnlessBusy);
  SelectShipOfTree();
  for (std::size_t row = lstEnabled.Count(); row-- > 0;) {
    if (lstEnabled.Selected(row)) DisableShip(row);
  }
  SelectedShip = 0;
}

/// The compiled script goes first: with it in place the game would have the ship all the same.
bool frmGameTools::DisablePlugin(const Text& ship) {
  Files& files = app_.machine.files;
  const bool isAlone = NotingFailures(app_, [&] {
    if (files.FileExists(PluginPath(ship, kDisabledEnding))) return;
    RemoveIfThere(files, PluginPath(ship, kCompiledEnding));
  });
  return isAlone && RenamePlugin(ship, kEnabledEnding, kDisabledEnding);
}

void frmGameTools::DisableShip(std::size_t row) {
  const Text ship = lstEnabled.Item(row);
  const std::vector<int> menus = TakeOutOfTree(ship);
  if (DisablePlugin(ship)) {
    lstDisabled.Add(ship);
    lstEnabled.RemoveAt(row);
  } else if (IsGone(app_.machine.files, PluginPath(ship, kEnabledEnding))) {
    lstEnabled.RemoveAt(row);
  } else {
    lstEnabled.SetSelected(row, false);
    ShowAnew(menus);
  }
}

void frmGameTools::EnableShips() {
  PlayEffect(app_, u"CommandBeep.wav", kPlayUnlessBusy);
  const std::vector<int> openMenus = OpenMenus();
  for (const int menu : openMenus) lblQBMenu_Click(menu);
  std::unordered_set<Text> enabled;
  for (std::size_t row = lstDisabled.Count(); row-- > 0;) {
    if (!lstDisabled.Selected(row)) continue;
    enabled.insert(lstDisabled.Item(row));
    EnableShip(row);
  }
  for (const int menu : openMenus) lblQBMenu_Click(menu);
  ScanEnabledShips();
  TellOfUnjudged(enabled);
}

/// A script that serves several ships is put back by its user, and switched off again: he is to
/// know that this is no fault of the script.
void frmGameTools::TellOfUnjudged(const std::unordered_set<Text>& enabled) {
  std::vector<Text> unjudged = withoutScript_;
  std::erase_if(unjudged, [&](const Text& ship) { return !enabled.contains(ship); });
  if (unjudged.empty()) return;
  Tell(news_ + u" The check can't judge " + Joined(unjudged) +
       u": no ship's script has that name.");
}

void frmGameTools::EnableShip(std::size_t row) {
  const Text ship = lstDisabled.Item(row);
  if (RenamePlugin(ship, kDisabledEnding, kEnabledEnding)) {
    lstEnabled.Add(ship);
    FindShipMenu(ship);
    lstDisabled.RemoveAt(row);
  } else if (IsGone(app_.machine.files, PluginPath(ship, kDisabledEnding))) {
    lstDisabled.RemoveAt(row);
  }
}

void frmGameTools::DeleteShips() {
  PlayEffect(app_, u"CommandBeep.wav", kPlayToEnd);
  PlayEffect(app_, u"Question.wav", kPlayUnlessBusy);
  SelectShipOfTree();
  ShowWhatIsDeleted();
  const Text answer = app_.dialogue.PacInput(
      u"Are you sure you want to Delete all Selected Ships from Menu???", Title::Question);
  app_.shell->ShowStatus(TabLine());
  if (answer != u"Yes") return;
  const bool deleted = NotingFailures(app_, [&] {
    DeleteEnabledShips();
    DeleteDisabledShips();
  });
  if (!deleted) return;
  RefreshShipLists();
  app_.dialogue.PacMsg(u"Delete Complete... The Ship no longer Exists as a Plugin!",
                       Title::Information);
}

/// In the tree and in the status line, for as long as the question stands.
void frmGameTools::ShowWhatIsDeleted() {
  fraQBMenu.Changed();
  const Text ships = SelectedIn({&lstEnabled, &lstDisabled});
  app_.shell->ShowStatus(ships.empty() ? Text(u"No ship is chosen: nothing would be deleted.")
                                       : u"To be deleted: " + ships);
}

void frmGameTools::DeleteEnabledShips() {
  const Text folder = app_.State.GamePath + u"\\scripts\\Custom\\Ships";
  std::vector<Text> files;
  for (std::size_t row = lstEnabled.Count(); row-- > 0;) {
    if (!lstEnabled.Selected(row)) continue;
    if (files.empty()) files = app_.machine.files.FileNames(folder);
    const Text ship = lstEnabled.Item(row);
    const std::vector<int> menus = TakeOutOfTree(ship);
    try {
      DeleteFilesOf(ship, files);
    } catch (const PlatformError&) {
      ShowAnew(menus);
      throw;
    }
    lstEnabled.RemoveAt(row);
  }
}

/// The plug-in goes last, so that a ship whose deletion was cut short is still an enabled one.
/// `files`: the names in the folder of the plug-ins, sorted without regard to case.
void frmGameTools::DeleteFilesOf(const Text& ship, const std::vector<Text>& files) {
  const Text folder = PluginPath({}, {});
  std::vector<Text> plugins;
  for (auto file = std::lower_bound(files.begin(), files.end(), ship, LessIgnoringCase);
       file != files.end() && EqualIgnoringCase(TextView(*file).substr(0, ship.size()), ship);
       ++file) {
    if (!BelongsToShip(*file, ship)) continue;
    if (!ShipOfFile(*file, kEnabledEnding).empty()) {
      plugins.push_back(*file);
    } else {
      RemoveIfThere(app_.machine.files, folder + *file);
    }
  }
  for (const Text& plugin : plugins) RemoveIfThere(app_.machine.files, folder + plugin);
}

void frmGameTools::DeleteDisabledShips() {
  for (std::size_t row = lstDisabled.Count(); row-- > 0;) {
    if (!lstDisabled.Selected(row)) continue;
    RemoveIfThere(app_.machine.files, PluginPath(lstDisabled.Item(row), kDisabledEnding));
    lstDisabled.RemoveAt(row);
  }
}

}  // namespace tarvo
