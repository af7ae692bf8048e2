#pragma once

#include <array>
#include <memory>
#include <optional>

#include "controls/Button.h"
#include "controls/ComboBox.h"
#include "controls/DirListBox.h"
#include "controls/DriveListBox.h"
#include "controls/FileListBox.h"
#include "controls/Form.h"
#include "controls/Frame.h"
#include "controls/Image.h"
#include "controls/Label.h"
#include "controls/ListBox.h"
#include "controls/ProgressBar.h"
#include "controls/Timer.h"
#include "platform/Files.h"
#include "skin/ScreenSkin.h"
#include "state/Application.h"
#include "state/Draft.h"

namespace tarvo {

/// The screen on which the user picks the files of a ship mod, makes a package of them, and
/// installs packages.
class frmPackager : public Form {
 public:
  explicit frmPackager(Application& app);
  ~frmPackager() override;

  void Load() override;
  void Unload() override;

  Frame fraTarvo{this};

  // Behind the controls.
  Image imgBoxL{&fraTarvo}, imgBoxR{&fraTarvo};
  Image imgLongLabel{&fraTarvo}, imgLabel{&fraTarvo};
  std::array<Image, 3> imgCommandBorder{Image{&fraTarvo}, Image{&fraTarvo}, Image{&fraTarvo}};

  Label Label1{&fraTarvo};
  Button lblModels{&fraTarvo}, lblScripts{&fraTarvo}, lblPlugins{&fraTarvo}, lblTGL{&fraTarvo};
  DriveListBox lstDrive;
  DirListBox lstDir;
  FileListBox lstFileSelect;
  Button lblAdd{&fraTarvo}, lblAddAll{&fraTarvo};
  ListBox lstFile{&fraTarvo, ListBox::Selection::Toggle};
  Button lblRemove{&fraTarvo};
  Label Label2{&fraTarvo};
  ComboBox cboFileName{&fraTarvo};
  FileListBox lstTarvo;  ///< Never seen: the names of the packages for cboFileName.
  Button lblSave{&fraTarvo}, lblTest{&fraTarvo}, lblExit{&fraTarvo};
  Frame fraProgress{&fraTarvo};
  Label Label15{&fraProgress};
  Frame fraUpdateProgress{&fraProgress};
  ProgressBar TarvoProgress{&fraUpdateProgress};
  Label lblFile{&fraUpdateProgress};
  Timer Load_Timer{this, 15};
  ScreenSkin Skin;

  /// The files of the package at hand, each followed by CR LF. Entry number n is item number n of
  /// lstFile.
  Text PackageList;

  /// Adds the selected files of lstFileSelect to the package at hand. What can't come out of a
  /// package again is named in the status line.
  void AddFiles();
  /// Selects every file of lstFileSelect and adds them all.
  void AddAllFiles();
  /// Takes the selected files of lstFile out of the package at hand.
  void RemoveFiles();

  /// Writes PackageList's files into the package that cboFileName names. A package of that name
  /// is replaced, as a whole or not at all.
  void MakePackage();

  /// Writes the files of the package that cboFileName names into the game. A package with an
  /// unsafe entry, or with a body missing, is refused before anything is written. The package at
  /// hand stays what it was.
  void InstallPackage();

  /// Shows the list of the package that cboFileName names; an empty one, with the reason noted,
  /// where it can't be read.
  void ListPackage();

 private:
  class Installation;

  void LayOut();
  void LayOutLists();
  void LayOutCommands();
  void NameControls();
  void Connect();
  static constexpr TextView kStatus = u"Create your Ship Mod Package here...";

  void MakeDraft();
  void ReadPackageNames();
  void ClearList();
  bool MayGoOn();
  std::optional<Text> ReasonAgainst(const Text& entry) const;
  void ShowShortcut(const Text& root, TextView below);
  Text EntryOf(const Text& fileName) const;
  void ShowProgress(TextView file);
  void BeginCommand();
  bool WritePackage();
  void WriteWholePackage();
  std::optional<Text> AppendEntry(FileReplacement& package, const Text& entry);
  std::unique_ptr<FileReader> OpenSource(const Text& entry);
  bool RunInstallation();
  void WarnOfUnpackable(const std::vector<Text>& lines);
  Text PackagePath() const;
  Text RootedPath(const Text& entry) const;

  Application& app_;
  Text listOf_;    ///< The package whose list is shown; empty for the user's own choice of files.
  Text unpacked_;  ///< The package that was installed last.
  Draft draft_{app_, u"Packager"};
};

}  // namespace tarvo
