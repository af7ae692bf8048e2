#include <unordered_set>

#include "gametools/frmGameTools.h"
#include "ships/ShipFiles.h"
#include "state/CommonUtilities.h"
#include "state/GameLock.h"

namespace tarvo {
namespace {

/// The ships of the files in `list` that end in `ending`, each once.
std::vector<Text> ShipsOf(const FileListBox& list, TextView ending) {
  std::vector<Text> ships;
  std::unordered_set<Text> seen;
  for (std::size_t row = 0; row < list.Count(); ++row) {
    Text ship = ShipOfFile(list.Item(row), ending);
    if (ship.empty() || ship == u"__init__" || !seen.insert(ship).second) continue;
    ships.push_back(std::move(ship));
  }
  return ships;
}

}  // namespace

void frmGameTools::RefreshShipLists() {
  if (app_.State.GamePath.empty()) {
    RequireGame(app_);
    return;
  }
  ListShips();
  LockingGame(app_, u"Check of the Ships", [&] { ScanEnabledShips(); });
}

/// A folder that can't be read is noted, and shows no files.
void frmGameTools::Reread(FileListBox& list) {
  NotingFailures(app_, [&] { list.Reload(); });
}

void frmGameTools::ListShips() {
  lstEnabled.Clear();
  lstDisabled.Clear();
  for (FileListBox* list : {&FileList1, &FileList2, &FileList4, &FileList5, &FileListWavs}) {
    Reread(*list);
  }
  scriptsKnown_ = false;
  NotingFailures(app_, [&] {
    FileList3.Reload();
    scriptsKnown_ = app_.machine.files.FolderExists(FileList3.Path());
  });
  for (Text& ship : ShipsOf(FileList4, kEnabledEnding)) lstEnabled.Add(std::move(ship));
  FileList4.SetPattern(u"*.Disabled");
  Reread(FileList4);
  for (Text& ship : ShipsOf(FileList4, kDisabledEnding)) lstDisabled.Add(std::move(ship));
  FileList4.SetPattern(u"*.py");
  Reread(FileList4);
}

/// A folder that isn't there adds nothing.
void frmGameTools::FillShipList() {
  const Text folder = app_.State.GamePath + u"\\scripts\\Custom\\Ships\\";
  if (!ShowFolder(FileList5, folder, u"*.py")) return;
  std::unordered_set<Text> held;
  for (std::size_t row = 0; row < cboShipName.Count(); ++row) held.insert(cboShipName.Item(row));
  for (Text& ship : ShipsOf(FileList5, kEnabledEnding)) {
    if (ship != u"Custom" && !held.contains(ship)) cboShipName.Add(std::move(ship));
  }
}

}  // namespace tarvo
