#pragma once

#include <array>
#include <vector>

#include "controls/Button.h"
#include "controls/ComboBox.h"
#include "controls/FileListBox.h"
#include "controls/Form.h"
#include "controls/Frame.h"
#include "controls/Image.h"
#include "controls/Label.h"
#include "controls/MediaPlayer.h"
#include "controls/Placing.h"
#include "controls/ProgressBar.h"
#include "controls/TextBox.h"
#include "controls/Timer.h"
#include "shiptgl/ShipDefinition.h"
#include "skin/ScreenSkin.h"
#include "state/Application.h"
#include "state/Dialogue.h"
#include "state/Draft.h"

namespace tarvo {

/// The screen for ship definitions and their merge into the game. Three of its tabs (New, Edit,
/// Delete) share one frame and one set of fields; the fourth has the merge.
class frmTGLTools : public Form {
 public:
  explicit frmTGLTools(Application& app);

  void Load() override;
  void Unload() override;

  Image imgTabBorder{this};       ///< Runs below the tabs.
  Image imgButtonSelected{this};  ///< Marks the open tab.
  Button lblNewTGL{this}, lblEditTGL{this}, lblDeleteTGL{this}, lblGameTGL{this};

  Frame fraShipTGL{this}, fraGameTGL{this};

  // Behind the controls.
  std::array<Image, 2> imgBoxL{Image{&fraShipTGL}, Image{&fraGameTGL}};
  std::array<Image, 2> imgBoxR{Image{&fraShipTGL}, Image{&fraGameTGL}};
  Image imgLabel{&fraShipTGL}, imgLongLabel{&fraGameTGL};
  std::array<Image, 2> imgCommandBorder{Image{&fraShipTGL}, Image{&fraGameTGL}};

  Label lblShipName{&fraShipTGL};
  ComboBox cboShipNames{&fraShipTGL};
  Label lblDefinitions{&fraShipTGL};
  FileListBox FileList;   ///< The definitions.
  FileListBox FileList1;  ///< Never seen: the game's ship plug-ins.
  Label lblLongName{&fraShipTGL};
  TextBox txtLongName{&fraShipTGL};
  Label lblDescription{&fraShipTGL};
  TextBox txtDescription{&fraShipTGL};
  Label lblWeapons{&fraShipTGL};
  TextBox txtWeapons{&fraShipTGL};
  Label lblShields{&fraShipTGL};
  TextBox txtShields{&fraShipTGL};
  Label lblHull{&fraShipTGL};
  TextBox txtHull{&fraShipTGL};
  Label lblTactics{&fraShipTGL};
  TextBox txtTactics{&fraShipTGL};
  Button lblNew{&fraShipTGL}, lblEdit{&fraShipTGL}, lblDelete{&fraShipTGL}, lblExit{&fraShipTGL};

  Label lblMerge{&fraGameTGL};
  FileListBox File2;  ///< The definitions again, of which several can be selected.
  Button lblUpdateGame{&fraGameTGL}, lblUpdateAllGameTGL{&fraGameTGL}, lblExit1{&fraGameTGL};
  MediaPlayer MediaPlayer1;  ///< Seen on the fourth tab.

  Frame fraProgress{this};
  Label Label15{&fraProgress};
  Frame fraUpdateProgress{&fraProgress};
  tarvo::ProgressBar ProgressBar{&fraUpdateProgress};
  Label lblFile{&fraUpdateProgress};

  Timer Load_Timer{this, 15};
  ScreenSkin Skin;

  void lblNewTGL_Click();
  void lblEditTGL_Click();
  void lblDeleteTGL_Click();
  void lblGameTGL_Click();

  /// Writes the fields as the definition of the ship that cboShipNames names; a definition of that
  /// name is replaced whole. Gives true when it stands on the disk; a failure is told and noted.
  bool SaveShipTGL();

  /// SaveShipTGL after a question.
  void lblEdit_Click();

  /// Fills the fields from the definition of the ship that cboShipNames names. What is none is
  /// told, and its deletion offered; one that can't be read is told alone.
  void LoadShipTGL();

  /// Deletes the selected definition after a plain "Yes". The game's files stay as they are.
  void DeleteShipTGL();

  /// Fills cboShipNames with the ships that have a plug-in in the game.
  void FillShipNames();

  /// Takes the ships that have a definition out of cboShipNames.
  void DropDefinedShips();

  /// Merges the selected definitions of File2 into the game, and lets the ships' plug-ins take
  /// their texts from there. A ship that fails is told, and the next one follows.
  void UpdateShipTGLs();
  void lblUpdateGame_Click();
  void lblUpdateAllGameTGL_Click();

  /// The plug-ins that the last UpdateShipTGLs left as they are, having no place for the change.
  std::vector<Text> UnpatchedPlugins;

 private:
  struct Tab;

  /// How an update of the game goes; definitions and plug-ins by their file names.
  struct MergeRun {
    std::vector<Text> Merged, Left;
    std::vector<Text> PatchedAlone;  ///< Plug-ins that were changed though the merge failed.
    bool IsFull = false;             ///< The disk is.
  };

  TabStrip Tabs() {
    return {imgTabBorder, imgButtonSelected, {&lblNewTGL, &lblEditTGL, &lblDeleteTGL, &lblGameTGL}};
  }
  void LayOut();
  void LayOutFields();
  void LayOutCommands();
  void LayOutGame();
  void NameControls();
  void LoadVideo();
  void MakeDraft();
  void Connect();
  void Open(const Tab& tab);
  void OpenDefinitions(const Tab& tab, Button& command);
  void ResetFields();
  void ShowTexts(const ShipTexts& texts);
  void EnableFields(bool enabled);
  void EnableDefinition();
  std::array<TextBox*, 6> Fields();
  void PickDefinition();
  void MarkName();
  void BeginCommand();
  void ShowFolder(FileListBox& list, const Text& folder);
  void ReadListsAnew();
  void Merge(const std::vector<Text>& definitions, MergeRun& run);
  void TellOfHalves(const MergeRun& run);
  bool PatchPlugin(const Text& ship);
  void ShowMerged(const std::vector<Text>& definitions);
  void Select(bool selected);
  ShipTexts TextsOfFields() const;

  Application& app_;
  Draft draft_{app_, u"TGL Tools"};
  Text status_;  ///< The status line of the open tab.
};

}  // namespace tarvo
