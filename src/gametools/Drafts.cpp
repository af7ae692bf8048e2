#include "gametools/frmGameTools.h"

namespace tarvo {

/// Ctrl+Z brings back what belongs to the tab at hand; where that is nothing, what belongs to the
/// other one, which is opened.
void frmGameTools::MakeDrafts() {
  const auto onTab = [this](Draft& draft, Frame& area, void (frmGameTools::*open)()) {
    draft.Add({[] { return std::vector<Text>(); },
               [this, &area, open](const std::vector<Text>&) {
                 if (!area.Visible) (this->*open)();
               },
               Draft::Kind::Beside});
  };
  onTab(ship_, fraShipInfo, &frmGameTools::lblShipPlugin_Click);
  ship_.Add(cboShipName, Draft::Kind::Beside);
  ship_.Add(cboSpecies);
  ship_.Add({[this] { return std::vector<Text>(CustomMenuChosen ? 1 : 0); },
             [this](const std::vector<Text>& chosen) { CustomMenuChosen = !chosen.empty(); }});
  for (TextBox* field :
       {&txtIconName, &txtModName, &txtAuthor, &txtVersion, &txtSources, &txtComments}) {
    ship_.Add(*field);
  }
  onTab(sounds_, fraSound, &frmGameTools::lblSoundPlugin_Click);
  sounds_.Add({[this] { return std::vector{soundName_}; },
               [this](const std::vector<Text>& name) { cboSoundName.SetText(name.at(0)); },
               Draft::Kind::Beside});
  sounds_.Add({[this] {
                 std::vector<Text> entries;
                 for (std::size_t row = 0; row < lstSoundInfo.Count(); ++row) {
                   entries.push_back(lstSoundInfo.Item(row));
                 }
                 return entries;
               },
               [this](const std::vector<Text>& entries) {
                 lstSoundInfo.Clear();
                 for (const Text& entry : entries) lstSoundInfo.Add(entry);
               }});
  OnEscape = [this] {
    const bool ship = ship_.HoldsEscape();
    return sounds_.HoldsEscape() || ship;
  };
  OnUndo = [this](bool typed) {
    Draft& atHand = fraSound.Visible ? sounds_ : ship_;
    Draft& other = fraSound.Visible ? ship_ : sounds_;
    return atHand.Undo(typed) || (!typed && other.Undo(false));
  };
}

}  // namespace tarvo
