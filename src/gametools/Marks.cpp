#include "gametools/Marks.h"

#include <algorithm>

#include "quickbattle/QBMenus.h"
#include "ships/PluginFaults.h"
#include "ships/ShipPlugin.h"
#include "sounds/SoundPlugin.h"
#include "state/CommonUtilities.h"
#include "state/Shell.h"
#include "text/FileNames.h"
#include "text/Lines.h"

namespace tarvo {

/// A menu of the user's own that wasn't picked from the list gets a class of the game that is none:
/// it is told by the place alone.
Text frmGameTools::FaultOfSpecies() const {
  const Text& menu = cboSpecies.Text();
  if (menu == kNoMenu) return {};
  const int row = cboSpecies.RowOf(menu);
  if (row < 0) {
    return u"Pick the Species again: there is no Quick Battle menu \"" + menu + u"\".";
  }
  const bool isCustom = row >= std::ssize(kBuiltInQBMenus);
  if (isCustom && !RaceWord(menu, CustomMenuChosen, {menu}).empty()) {
    return u"Pick the Species again: \"" + menu + u"\" must be picked from the list.";
  }
  return FaultOfValue(menu);
}

Text frmGameTools::FaultOfVolumes() const {
  for (std::size_t row = 0; row < lstSoundInfo.Count(); ++row) {
    if (!HasDecimalComma(lstSoundInfo.Item(row))) continue;
    return u"The game can't read a volume with a comma: set the decimal symbol of your system to "
           u"a point, start again, and add the sounds anew.";
  }
  return {};
}

void frmGameTools::MarkFields() {
  const Text& ship = cboShipName.Text();
  const Text fault = FaultOfGameName(ship);
  cboShipName.Mark(fault.empty() && !ship.empty() ? FaultOfShipName(ship) : fault);
  cboSpecies.Mark(FaultOfSpecies());
  for (TextBox* field :
       {&txtIconName, &txtModName, &txtAuthor, &txtVersion, &txtSources, &txtComments}) {
    field->Mark(FaultOfValue(field->Text()));
  }
  cboSoundName.Mark(FaultOfGameName(cboSoundName.Text()));
  lstSoundInfo.Mark(FaultOfVolumes());
}

std::vector<const Control*> frmGameTools::MarkedFields() const {
  std::vector<const Control*> marked;
  for (const Control* field : std::initializer_list<const Control*>{
           &cboShipName, &cboSpecies, &txtIconName, &txtModName, &txtAuthor, &txtVersion,
           &txtSources, &txtComments, &cboSoundName, &lstSoundInfo}) {
    if (field->Marked) marked.push_back(field);
  }
  return marked;
}

std::vector<Text> frmGameTools::ReasonsOfMarks() const {
  std::vector<Text> reasons;
  for (const Control* field : MarkedFields()) {
    const Text reason = field->AccessibleName.Get() + u": " + field->Hint.Get();
    reasons.push_back(reason);
  }
  return reasons;
}

/// The user has changed it: the status line tells of this field first.
void frmGameTools::FieldChanged(const Control& field) {
  if (filling_ > 0) return;
  MarkFields();
  news_.clear();
  app_.shell->ShowStatus(field.Marked ? field.Hint.Get() : TabLine());
}

Text frmGameTools::SelectedIn(std::initializer_list<const ListBox*> lists) {
  std::vector<Text> names;
  for (const ListBox* list : lists) {
    for (std::size_t row = 0; row < list->Count(); ++row) {
      if (list->Selected(row)) names.push_back(list->Item(row));
    }
  }
  return Joined(names);
}

/// What the status line says while no failure stands in it: the news of the last command, else why
/// a field of the tab is marked, else what the tab is for; and on the Menus tab what its commands
/// without a question would take.
Text frmGameTools::TabLine() const {
  Text line = news_;
  if (line.empty()) {
    for (const Control* field : MarkedFields()) {
      if (line.empty() && field->Parent()->Visible) line = field->Hint;
    }
  }
  if (line.empty()) line = status_;
  if (!fraMenus.Visible) return line;
  const Text ships = SelectedIn({&lstEnabled});
  if (!ships.empty()) line += u" Still chosen: " + ships + u".";
  const Text menu = MenuToDelete();
  if (!menu.empty()) line += u" Delete QB Menu would delete \"" + menu + u"\".";
  return line;
}

void frmGameTools::Tell(Text news) {
  news_ = std::move(news);
  Text line = FailureLine(app_);
  if (line.empty()) {
    line = TabLine();
  } else if (!news_.empty()) {
    line += u" " + news_;
  }
  app_.shell->ShowStatus(line);
}

/// Shows on the Menus tab what its commands would take: the tree asks for the ships itself.
void frmGameTools::ShowTargets() {
  fraQBMenu.Changed();
  const Text menu = MenuToDelete();
  fraQBMenu.MarkedMenu = menu.empty() ? -1 : static_cast<int>(SelectedMenu);
  fraQBMenu.MarkWords = menu.empty() ? Text() : Text(u"Delete QB Menu would delete this menu");
  lblDeleteQB.Hint = menu.empty() ? Text(u"Deletes a menu of your own: open it first")
                                  : u"Deletes the menu \"" + menu + u"\"";
}

}  // namespace tarvo
