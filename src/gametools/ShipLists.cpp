#include <unordered_set>

#include "gametools/frmGameTools.h"
#include "platform/Guarded.h"
#include "ships/ShipFiles.h"

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
  ListShips();
  ScanEnabledShips();
}

void frmGameTools::ListShips() {
  lstEnabled.Clear();
  lstDisabled.Clear();
  for (FileListBox* list :
       {&FileList1, &FileList2, &FileList3, &FileList4, &FileList5, &FileListWavs}) {
    list->Reload();
  }
  for (Text& ship : ShipsOf(FileList4, kEnabledEnding)) lstEnabled.Add(std::move(ship));
  FileList4.SetPattern(u"*.Disabled");
  FileList4.Reload();
  for (Text& ship : ShipsOf(FileList4, kDisabledEnding)) lstDisabled.Add(std::move(ship));
  FileList4.SetPattern(u"*.py");
  FileList4.Reload();
}

/// A folder that isn't there adds nothing.
void frmGameTools::FillShipList() {
  FileList5.SetPattern(u"*.py");
  if (!Guarded([&] { FileList5.SetPath(app_.State.GamePath + u"\\scripts\\Custom\\Ships\\"); })) {
    return;
  }
  std::unordered_set<Text> held;
  for (std::size_t row = 0; row < cboShipName.Count(); ++row) held.insert(cboShipName.Item(row));
  for (Text& ship : ShipsOf(FileList5, kEnabledEnding)) {
    if (ship != u"Custom" && !held.contains(ship)) cboShipName.Add(std::move(ship));
  }
}

}  // namespace tarvo
