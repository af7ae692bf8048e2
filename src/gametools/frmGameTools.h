#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "controls/Button.h"
#include "controls/ComboBox.h"
#include "controls/FileListBox.h"
#include "controls/Form.h"
#include "controls/Frame.h"
#include "controls/Image.h"
#include "controls/Label.h"
#include "controls/ListBox.h"
#include "controls/Placing.h"
#include "controls/ProgressBar.h"
#include "controls/RowPanel.h"
#include "controls/Shape.h"
#include "controls/TextBox.h"
#include "controls/Timer.h"
#include "platform/Files.h"
#include "ships/ShipCheck.h"
#include "skin/ScreenSkin.h"
#include "sounds/WeaponNames.h"
#include "state/Application.h"
#include "state/Draft.h"
#include "state/FileFacts.h"

namespace tarvo {

class TGLFile;

/// The screen that works on what is installed in the game: ship plug-ins, sound plug-ins, the
/// Quick Battle menus with their ships, and the check of a ship's files.
class frmGameTools : public Form {
 public:
  explicit frmGameTools(Application& app);
  ~frmGameTools() override;

  void Load() override;
  void Unload() override;

  // The tab strip.
  Image imgTabBorder{this};       ///< Runs below the tabs.
  Image imgButtonSelected{this};  ///< Marks the chosen tab.
  Button lblShipPlugin{this}, lblSoundPlugin{this}, lblMenus{this}, lblChecker{this};

  Frame fraShipInfo{this}, fraSound{this}, fraMenus{this}, fraIntegrity{this};

  // Behind their controls.
  std::array<Image, 4> imgBoxL{Image{&fraSound}, Image{&fraShipInfo}, Image{&fraIntegrity},
                               Image{&fraMenus}};
  std::array<Image, 4> imgBoxR{Image{&fraSound}, Image{&fraShipInfo}, Image{&fraIntegrity},
                               Image{&fraMenus}};
  std::array<Image, 3> imgLongLabel{Image{&fraSound}, Image{&fraShipInfo}, Image{&fraIntegrity}};
  std::array<Image, 5> imgLabel{Image{&fraSound}, Image{&fraSound}, Image{&fraShipInfo},
                                Image{&fraMenus}, Image{&fraMenus}};
  std::array<Image, 4> imgCommandBorder{Image{&fraSound}, Image{&fraShipInfo}, Image{&fraIntegrity},
                                        Image{&fraMenus}};

  // Ship Plugin
  ComboBox cboShipName{&fraShipInfo}, cboSpecies{&fraShipInfo};
  TextBox txtIconName{&fraShipInfo};
  TextBox txtModName{&fraShipInfo}, txtAuthor{&fraShipInfo}, txtVersion{&fraShipInfo};
  TextBox txtSources{&fraShipInfo}, txtComments{&fraShipInfo};
  FileListBox FileList2;  ///< Ship scripts.
  Button lblMakeShipPlugin{&fraShipInfo}, lblExit{&fraShipInfo};

  // Sound Plugin
  ComboBox cboSoundName{&fraSound};
  ListBox lstWeapons{&fraSound, ListBox::Selection::Single, ListBox::Order::Sorted};
  FileListBox FileListWavs;
  ListBox lstSoundInfo{&fraSound, ListBox::Selection::Single, ListBox::Order::Sorted};
  std::array<Frame, 10> fraVolume{Frame{&fraSound}, Frame{&fraSound}, Frame{&fraSound},
                                  Frame{&fraSound}, Frame{&fraSound}, Frame{&fraSound},
                                  Frame{&fraSound}, Frame{&fraSound}, Frame{&fraSound},
                                  Frame{&fraSound}};  ///< The bar, a tenth of it each.
  Shape VolumeMeter{&fraSound};  ///< Covers the part of the bar above the volume.
  Button imgButtonL{&fraSound}, imgButtonR{&fraSound};
  Button lblPlaySound{&fraSound}, lblAddSound{&fraSound}, lblRemoveSound{&fraSound};
  Button lblMakeSoundPlugin{&fraSound}, lblExit2{&fraSound};
  FileListBox FileList5;  ///< Never seen: the folder under scan.

  // Menus
  Frame fraTree{&fraMenus};  ///< The window behind which the tree moves.
  RowPanel fraQBMenu{&fraTree, 120};
  Frame Frame1{&fraMenus};
  Button imgButtonU{&Frame1}, imgButtonD{&Frame1};
  ListBox lstDisabled{&fraMenus, ListBox::Selection::Toggle, ListBox::Order::Sorted};
  ListBox lstEnabled{&fraMenus, ListBox::Selection::Toggle,
                     ListBox::Order::Sorted};                 ///< Never seen.
  ListBox lstSpecies{&fraMenus, ListBox::Selection::Toggle};  ///< Never seen: the custom menus.
  FileListBox FileList1, FileList4;                           ///< Never seen.
  Button lblAddQB{&fraMenus}, lblDeleteQB{&fraMenus};
  Button lblEnable{&fraMenus}, lblDisable{&fraMenus}, lblDelete{&fraMenus}, lblExit3{&fraMenus};

  // Checker
  FileListBox FileList3;  ///< Ship scripts.
  TextBox txtFileDisplay{&fraIntegrity}, txtErrorDisplay{&fraIntegrity};
  Button lblExit1{&fraIntegrity};

  // Over all of them, while an operation runs
  Frame fraProgress{this};
  Image imgBorder{&fraProgress};
  Frame fraUpdateProgress{&fraProgress};
  tarvo::ProgressBar ProgressBar{&fraUpdateProgress};   ///< Follows the operation.
  tarvo::ProgressBar ProgressBar2{&fraUpdateProgress};  ///< Follows the reading of a file.
  Label lblFile{&fraUpdateProgress};

  std::deque<Label> labels;  ///< The words beside and above the controls.

  Timer Load_Timer{this, 15}, Scroll_Timer{this, 10};
  ScreenSkin Skin;

  // --- fields of the screen ---
  std::int16_t SoundVolume = 100;
  /// Row of the menu that was opened last, or was found for a ship.
  std::int16_t SelectedMenu = 0;
  /// Row of the ship that was clicked last; 0 for none. The row of this number shows as chosen,
  /// and so do those of all ships that a command would take.
  Property<int>& SelectedShip = fraQBMenu.ChosenShip;
  Text ScrollDirection;  ///< "Up", "Down", "Left" or "Right".
  bool CustomMenuChosen = false;
  bool PointsInVolumes = false;  ///< Whatever the decimal mark of the system is.
  bool QuietMake = false;

  // --- the screen: frmGameTools.cpp, frmGameToolsLayout.cpp ---
  void lblShipPlugin_Click();
  void lblSoundPlugin_Click();
  void lblMenus_Click();
  void lblChecker_Click();

  // --- ship plug-ins and ship scripts: ShipPlugin.cpp ---

  /// Writes the plug-in of the fields, and offers to make a ship script where there is none. What
  /// can't be written is noted, and the fields stay.
  void MakeShipPlugin();

  /// Reads the plug-in that cboShipName names into the fields. A value that can't be told shows an
  /// empty field; a menu that can't be told, the choice that the user must make.
  void LoadShipPlugin();
  void PickShipScript();
  void ShipNameChanged();

  // --- lists of ships: ShipLists.cpp ---

  /// ListShips, then ScanEnabledShips.
  void RefreshShipLists();

  /// Fills lstEnabled and lstDisabled, and reads all file lists anew. Changes no file. A plug-in
  /// whose ending has other letter case, "x.PY", is a ship like any other; a ship with several
  /// such files stands in a list once.
  void ListShips();
  void FillShipList();

  // --- check of a ship's files: ShipChecker.cpp ---

  /// The scripts of FileList3, bare file names, by the ships' names. Letter case counts but in the
  /// ending.
  std::unordered_map<Text, Text> ShipScripts() const;

  /// Looks up what a ship script names, a bare file name; the critical errors are counted in
  /// MissingFileCount. Changes no file.
  std::vector<CheckedReference> CheckShipScript(const Text& fileName);

  /// Reports on the script that is picked in FileList3.
  void CheckShipFiles();

  /// Checks every ship of lstEnabled and disables those that fail. A ship of which a file couldn't
  /// be looked at, or lies in a folder that is missing as a whole, stays as it is.
  void ScanEnabledShips();

  // --- states of ships: ShipStates.cpp ---
  // They work on what is selected in the two lists, and on the ship clicked last in the tree. A
  // ship with both an enabled and a disabled plug-in is left as it is, in the lists that it stands
  // in, and a warning names both files. A ship that can't be renamed for another reason stays where
  // it is too, unless its plug-in has gone; the failure is noted.

  void DisableShips();

  /// Ends in a scan of all enabled ships.
  void EnableShips();

  /// Asks first. A file that can't be deleted ends it, and is noted.
  void DeleteShips();

  // --- Quick Battle menus: QBMenus.cpp ---
  void LoadQBMenus();
  Text GetSpeciesName(int index);  ///< `index` counts from 1; empty when there is no such menu.
  void FindShipMenu(const Text& strShipName);
  Text MenuToDelete() const;  ///< What DeleteQBMenu would delete; empty for nothing.
  /// Gives false, with the failure noted, when not all of them could be moved.
  bool MoveMenuShipsToOther(const Text& menuName);
  void AddQBMenu();
  void DeleteQBMenu();
  void cboSpecies_Click();

  // --- the tree of menus and ships: QBMenuTree.cpp ---
  void BuildCustomMenuRows();
  void RemoveCustomMenuRows();
  void CloseOpenMenus();
  void lblQBMenu_Click(int index);
  void imgQBMenu_Click(int index);
  void lblQBShip_Click(int index);
  void imgQBShip_Click(int index);
  void OpenQBMenu(int index);
  void CloseQBMenu(int index);
  /// Gives false once a row of the menu has been made, else `first` as it was.
  bool InsertShipRow(int index, const Text& ship, bool first);
  /// Changes nothing when the ship has no row under this menu.
  void RemoveShipRow(int index, const Text& ship);
  bool MenuIsOpen(int index) const;
  int MenuRowCount() const;  ///< The hidden end row counts.
  const Text& MenuCaption(int index) const;
  Text ShipCaption(int index) const;  ///< Empty for row 0 and for a row that isn't there.

  // --- what won't reach the game as it stands: Marks.cpp ---

  /// Marks the fields of the plug-ins in which such a text stands.
  void MarkFields();

  /// Why they are marked.
  std::vector<Text> ReasonsOfMarks() const;

  // --- sound plug-ins: SoundPlugin.cpp, SoundLists.cpp ---
  char16_t DecimalMark() const;  ///< In the volumes of new entries.
  void AddSoundEntry();
  void lblRemoveSound_Click();
  void ReadSoundPlugin();
  void cboSoundName_Change();
  void MakeSoundPlugin();
  void FillSoundLists();
  void GetWeaponsList(const Text& strFilePath);
  void lblPlaySound_Click();

 private:
  // Ships
  Text PluginPath(const Text& ship, TextView ending) const;
  Text ScriptPath(const Text& fileName) const;
  bool WriteShipPlugin();
  void RefuseShip(const Text& fault);
  void TellOfPlugin(const Text& ship);
  bool HasScript(const Text& ship) const;
  bool WriteShipScript(const Text& ship, const Text& path);
  bool MakeShipScript(const Text& ship);
  struct LearntScript {
    std::vector<ShipReference> References;
    bool HasText = false;
  };
  static LearntScript LearnScript(const FileText& text) {
    return {ShipReferences(text), !text.empty()};
  }
  FileAnswers LookUp(const ShipReference& reference, const Text& own);
  template <class Use>
  void LookUpAll(const Text& fileName, Use&& use);
  bool MustBeDisabled(const Text& script);
  void ScanShip(std::size_t row, const Text& script);
  std::vector<Text> EnabledShips() const;
  void TellSwitchedOff(const std::vector<Text>& before);
  void TellOfUnjudged(const std::unordered_set<Text>& enabled);
  void ShowWhatIsDeleted();
  void SelectShipOfTree();
  std::vector<int> OpenMenus() const;
  std::vector<int> TakeOutOfTree(const Text& ship);
  void ShowAnew(const std::vector<int>& menus);
  bool RenamePlugin(const Text& ship, TextView from, TextView to);
  bool DisablePlugin(const Text& ship);
  void DisableShip(std::size_t row);
  void EnableShip(std::size_t row);
  void DeleteEnabledShips();
  void DeleteFilesOf(const Text& ship, const std::vector<Text>& files);
  void DeleteDisabledShips();

  Application& app_;
  std::vector<Text> withoutScript_;  ///< The plug-ins for which the last scan found no script.
  FileFacts<LearntScript> scripts_{app_, LearnScript, ShowsAllReferences};

  // --- menus and sounds ---
  Text SpeciesPath() const;
  Text QuickBattlePath() const;
  void ReadCustomMenus();
  bool LoadMenus(TGLFile& file);
  bool SaveMenus(std::initializer_list<const TGLFile*> files);
  bool AddMenuStrings(const Text& name);
  void RemoveMenus(TGLFile& species, TGLFile& quickBattle);
  bool CanBeDeleted(int menu) const;
  std::optional<Text> ShipsThatStay();
  bool RemoveSelectedMenus(TGLFile& species, TGLFile& quickBattle);
  bool ShowFolder(FileListBox& list, TextView folder, TextView pattern);
  void Reread(FileListBox& list);
  bool CanBeJudged(const ShipReference& missing);
  void ScanHardpoints();
  Text SoundPluginPath() const;

  std::optional<FileStamp> speciesStamp_;  ///< Of the file that customMenus_ was read from.
  std::vector<Text> customMenus_;
  struct PluginFacts {
    std::vector<bool> InMenu;  ///< By the number of the menu's row.
    FileText GroupLine;
  };
  PluginFacts LearnPlugin(const FileText& text) const;
  const PluginFacts* LookAtPlugin(const Text& path);
  FileFacts<PluginFacts> plugins_{app_, [this](const FileText& text) { return LearnPlugin(text); }};
  FileFacts<std::vector<Text>> weaponNames_{app_, WeaponNames};

  // --- marks and the status line ---
  class FieldsAreFilled;
  Text FaultOfSpecies() const;
  Text FaultOfVolumes() const;
  std::vector<const Control*> MarkedFields() const;
  void FieldChanged(const Control& field);
  static Text SelectedIn(std::initializer_list<const ListBox*> lists);
  Text TabLine() const;
  void Tell(Text news);
  void ShowTargets();

  // --- the screen ---
  void LoadSteps();
  TabStrip Tabs() {
    return {
        imgTabBorder, imgButtonSelected, {&lblShipPlugin, &lblSoundPlugin, &lblMenus, &lblChecker}};
  }
  void LayOut();
  void LayOutShipPlugin();
  void LayOutSoundPlugin();
  void LayOutVolume();
  void LayOutMenus();
  void LayOutChecker();
  void LayOutProgress();
  Label& AddHeading(Control& parent, Image& ground, TextView caption, int left, int top, int width);
  Label& AddLabel(Control& parent, TextView caption, int left, int top, int width);
  void NameControls();
  void NameButtons();
  void Connect();
  std::function<void()> Command(void (frmGameTools::*routine)());
  std::function<void()> OnGame(void (frmGameTools::*routine)());
  void BeginCommand();
  void RunInSight(void (frmGameTools::*routine)());
  std::function<void()> Changing(const Button& button, void (frmGameTools::*routine)());
  void ConnectTabs();
  void ConnectLists();
  void ConnectCommands();
  void ConnectTree();
  void ConnectArrow(Button& arrow, TextView direction, int interval);
  void SetFolders();
  struct Tab;
  void ShowTab(const Tab& tab);
  void Scroll();
  void StopAtLimit();
  void StepVolume(int steps);
  void PlayClick();
  void Leave();

  // --- the tree ---
  using TreeRows = std::vector<RowPanel::Row>;
  const TreeRows& MenuRows() const { return fraQBMenu.Rows(RowPanel::Family::Menu); }
  const TreeRows& ShipRows() const { return fraQBMenu.Rows(RowPanel::Family::Ship); }
  void MakeTree();
  void AddMenuRow(const Text& caption, int top);
  bool IsMenu(int index) const;
  bool StandsUnder(const RowPanel::Row& ship, int index) const;
  bool TakeOutShipRow(int index, const Text& ship);
  bool IsSelected(const Text& ship) const;
  bool LetGo(const Text& ship);
  void ClickRow(RowPanel::Place place, bool onCaption);
  void ShowMenuPicture(int index, RowPanel::Picture picture);
  void PointAtRow(RowPanel::Place place);
  void PointAtNoRow();

  void MakeDrafts();

  Draft ship_{app_, u"Ship Plugin"};
  Draft sounds_{app_, u"Sound Plugin"};
  Text soundName_;   ///< The name that lstSoundInfo was made under.
  Text status_;      ///< The status line of the open tab.
  Text news_;        ///< What the last command has to tell in its place.
  int filling_ = 0;  ///< Above 0 while a routine, and not the user, fills the fields.
  /// The ship scripts of FileList2 and FileList3 are those of the game's folder, which stands.
  bool scriptsKnown_ = false;
  bool scrolled_ = false;  ///< The arrow that is held has moved something.
};

}  // namespace tarvo
