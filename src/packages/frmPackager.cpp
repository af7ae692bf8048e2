#include "packages/frmPackager.h"

#include "controls/ControlErrors.h"
#include "controls/Placing.h"
#include "packages/PackageFormat.h"
#include "platform/Files.h"
#include "platform/Guarded.h"
#include "platform/Sound.h"
#include "state/CommonUtilities.h"
#include "state/Dialogue.h"
#include "state/GameLock.h"
#include "state/Shell.h"
#include "text/FileNames.h"
#include "text/LetterCase.h"
#include "text/Lines.h"
#include "text/Paths.h"

namespace tarvo {
namespace {

constexpr TextView kPackageEnding = u".Tarvo";

/// The part of `folder` behind the length of `root`, with no backslash at its end.
Text FolderBelow(const Text& folder, const Text& root) {
  Text rootPath = root;
  while (rootPath.ends_with(u'\\')) rootPath.pop_back();
  Text below = folder.size() > rootPath.size() ? folder.substr(rootPath.size()) : Text();
  while (below.ends_with(u'\\')) below.pop_back();
  return below;
}

}  // namespace

frmPackager::frmPackager(Application& app)
    : Form(Style::Child, app.MainForm),
      lstDrive(&fraTarvo, app.machine.files),
      lstDir(&fraTarvo, app.machine.files),
      lstFileSelect(&fraTarvo, app.machine.files, ListBox::Selection::Toggle),
      lstTarvo(&fraTarvo, app.machine.files, ListBox::Selection::Single, u"*.Tarvo"),
      Skin(app, u"frmPackager"),
      app_(app) {
  LayOut();
  NameControls();
  Connect();
  MakeDraft();
  HelpPage = u"packager.html";
  app_.ProgressBars[u"Packager"] = &TarvoProgress;
}

frmPackager::~frmPackager() {
  // A screen made anew before this one was freed has handed in its own bar.
  const auto bar = app_.ProgressBars.find(u"Packager");
  if (bar != app_.ProgressBars.end() && bar->second == &TarvoProgress) {
    app_.ProgressBars.erase(bar);
  }
}

void frmPackager::Load() {
  const Text drive = app_.State.GamePath.substr(0, 2);
  Skin.Load();
  BeginCommand();
  Move(1180, 1740, 6900, 0);
  fraTarvo.BackColour = kBlack;
  Guarded([&] { lstDrive.SetDrive(drive); });
  Guarded([&] { lstDir.SetPath(app_.State.GamePath); });
  ReadPackageNames();
  app_.dialogue.PacTip(u"Create your Ship Mod Package here!!!", PacTipOf::Screen);
  app_.State.CurrentScreen = u"Packager";
  draft_.Settle();
}

void frmPackager::Unload() {
  app_.shell->WorkScreenClosed();
  draft_.Leave();
}

void frmPackager::MakeDraft() {
  const auto show = [this](const std::vector<Text>& entries) {
    ClearList();
    for (const Text& entry : entries) {
      PackageList += entry + u"\r\n";
      lstFile.Add(BareName(entry));
    }
  };
  draft_.Add(cboFileName, Draft::Kind::Beside);
  draft_.Add(
      {[this] { return lstFile.Count() == 0 ? std::vector<Text>() : EntriesOf(PackageList); },
       show});
  OnEscape = [this] { return draft_.HoldsEscape(); };
  OnUndo = [this](bool typed) { return draft_.Undo(typed); };
}

void frmPackager::NameControls() {
  Skin.Name(u"imgLongLabel", imgLongLabel);
  Skin.Name(u"imgLabel", imgLabel);
  Skin.Name(u"imgCommandBorder", imgCommandBorder);
  Skin.Name(u"imgBoxL", imgBoxL);
  Skin.Name(u"imgBoxR", imgBoxR);
  Skin.Name(u"imgButton", {{&lblModels}, {&lblScripts}, {&lblPlugins}, {&lblTGL}});
  Skin.Name(u"imgCommand",
            {{&lblSave}, {&lblAddAll}, {&lblExit}, {&lblAdd}, {&lblRemove}, {&lblTest}});
  for (Image& border : imgCommandBorder) Skin.NameSurface(u"imgCommandBorder", border);
}

void frmPackager::Connect() {
  const auto click = [this] { PlayEffect(app_, u"Click.wav", kPlayUnlessBusy); };
  lstDrive.OnChange = [this, click] {
    click();
    Guarded([&] { lstDir.SetPath(lstDrive.Drive().substr(0, 2) + u"\\"); });
  };
  lstDir.OnChange = [this, click] {
    click();
    NotingFailures(app_, [&] { lstFileSelect.SetPath(lstDir.Path()); });
  };
  lstFile.OnClick = click;
  lstFileSelect.OnClick = click;
  const auto command = [this](void (frmPackager::*routine)()) {
    return [this, routine] {
      BeginCommand();
      (this->*routine)();
    };
  };
  cboFileName.OnClick = command(&frmPackager::ListPackage);
  cboFileName.OnDropDown = [this] { ReadPackageNames(); };
  cboFileName.OnChange = [this] {
    const bool wasMarked = cboFileName.Marked;
    cboFileName.Mark(FaultOfFileName(cboFileName.Text()));
    if (cboFileName.Marked || wasMarked) {
      app_.shell->ShowStatus(cboFileName.Marked ? cboFileName.Hint.Get() : Text(kStatus));
    }
  };
  lblModels.OnClick = [this] { ShowShortcut(app_.State.GamePath, u"\\data\\Models\\Ships\\"); };
  lblScripts.OnClick = [this] { ShowShortcut(app_.State.GamePath, u"\\scripts\\ships\\"); };
  lblPlugins.OnClick = [this] { ShowShortcut(app_.State.GamePath, u"\\scripts\\Custom\\Ships\\"); };
  lblTGL.OnClick = [this] { ShowShortcut(app_.ProgramFolder, u"\\ShipTGLs\\"); };
  lblAdd.OnClick = [this] { AddFiles(); };
  lblAddAll.OnClick = [this] { AddAllFiles(); };
  lblRemove.OnClick = [this] { RemoveFiles(); };
  lblSave.OnClick = command(&frmPackager::MakePackage);
  lblTest.OnClick = [this] {
    BeginCommand();
    LockingGame(app_, u"Unpak Test", [&] { InstallPackage(); });
  };
  CancelButton = &lblExit;
  lblExit.OnClick = [this, click] {
    click();
    app_.screens.Close(*this);
  };
  Load_Timer.OnTimer = [this] { Unroll(*this, Load_Timer, 5055); };
}

/// Offers the packages that stand on the disk now; the line stays as it is.
void frmPackager::ReadPackageNames() {
  const Text packages = app_.ProgramFolder + u"\\Tarvos\\";
  NotingFailures(app_, [&] {
    if (app_.machine.files.FolderExists(packages)) lstTarvo.SetPath(packages);
  });
  while (cboFileName.Count() > 0) cboFileName.RemoveAt(cboFileName.Count() - 1);
  for (std::size_t row = 0; row < lstTarvo.Count(); ++row) {
    const Text& name = lstTarvo.Item(row);
    cboFileName.Add(name.substr(0, name.size() - kPackageEnding.size()));
  }
}

void frmPackager::ClearList() {
  lstFile.Clear();
  PackageList.clear();
  listOf_.clear();
  unpacked_.clear();
}

/// Asks where the files that are shown are known not to be those of the package that is named.
bool frmPackager::MayGoOn() {
  const Text& name = cboFileName.Text();
  const bool differs = !name.empty() && (listOf_.empty() ? EqualIgnoringCase(name, unpacked_)
                                                         : !EqualIgnoringCase(name, listOf_));
  if (!differs) return true;
  const Text shown = listOf_.empty() ? Text(u"your own Choice") : u"those of \"" + listOf_ + u"\"";
  const Text words = u"The Files shown are " + shown + u", not those of \"" + name + u"\"!!!  ";
  const Text answer =
      app_.dialogue.PacInputInAnyCase(words + u"Would you like to go on with them???",
                                      words + u"Go on with them all the same???", Title::Question);
  if (answer != u"Yes") return false;
  listOf_ = name;
  return true;
}

/// A folder that doesn't exist leaves the lists as they were, and the status line says so.
void frmPackager::ShowShortcut(const Text& root, TextView below) {
  const Text folder = FolderWithoutTail(JoinPath(root, below));
  const bool shown = Guarded([&] {
    if (!app_.machine.files.FolderExists(folder)) throw PathNotFound(u"frmPackager", folder);
    lstDrive.SetDrive(folder.substr(0, 2));
    lstDir.SetPath(folder);
  });
  app_.shell->ShowStatus(shown ? Text(kStatus) : u"There is no Folder " + folder);
}

Text frmPackager::EntryOf(const Text& fileName) const {
  const Text& root = IsTGLEntry(fileName) ? app_.ProgramFolder : app_.State.GamePath;
  return FolderBelow(lstFileSelect.Path(), root) + u"\\" + fileName;
}

/// Why the entry of a file of the folder at hand won't lead back to that file.
std::optional<Text> frmPackager::ReasonAgainst(const Text& entry) const {
  const bool isTGL = IsTGLEntry(entry);
  const Text root = FolderWithoutTail(isTGL ? app_.ProgramFolder : app_.State.GamePath);
  const Text folder = FolderWithoutTail(lstFileSelect.Path());
  if (EqualIgnoringCase(folder, root) ||
      FoldCase(folder).starts_with(FoldCase(JoinPath(root, u"\\")))) {
    return UnpackableReason(entry);
  }
  return isTGL ? u"it doesn't lie in the program's folder" : u"it doesn't lie in the game's folder";
}

void frmPackager::AddFiles() {
  BeginCommand();
  PlayEffect(app_, u"CommandBeep.wav", kPlay);
  std::vector<Text> doubtful;
  const std::size_t before = lstFile.Count();
  for (std::size_t row = 0; row < lstFileSelect.Count(); ++row) {
    if (!lstFileSelect.Selected(row)) continue;
    const Text& name = lstFileSelect.Item(row);
    const Text entry = EntryOf(name);
    PackageList += entry + u"\r\n";
    lstFile.Add(name);
    if (const auto reason = ReasonAgainst(entry)) doubtful.push_back(name + u": " + *reason);
  }
  if (!doubtful.empty()) {
    app_.shell->ShowStatus(u"Can't come out of a Tarvo again:" + FirstLines(doubtful, u"  "));
  }
  if (lstFile.Count() > before) lstFile.BringIntoSight(lstFile.Count() - 1);
  lstFile.Refresh();
  NotingFailures(app_, [&] { lstFileSelect.Reload(); });
}

void frmPackager::AddAllFiles() {
  PlayEffect(app_, u"CommandBeep.wav", kPlay);
  for (std::size_t row = 0; row < lstFileSelect.Count(); ++row) {
    lstFileSelect.SetSelected(row, true);
  }
  AddFiles();
}

void frmPackager::RemoveFiles() {
  PlayEffect(app_, u"CommandBeep.wav", kPlay);
  if (!MayGoOn()) return;
  const std::vector<Text> entries = EntriesOf(PackageList);
  Text kept;
  for (std::size_t row = 0; row < entries.size(); ++row) {
    const bool selected = row < lstFile.Count() && lstFile.Selected(row);
    if (!selected) kept += entries[row] + u"\r\n";
  }
  for (std::size_t row = lstFile.Count(); row-- > 0;) {
    if (lstFile.Selected(row)) lstFile.RemoveAt(row);
  }
  lstFile.Refresh();
  PackageList = std::move(kept);
  if (PackageList.empty()) ClearList();
}

void frmPackager::BeginCommand() {
  app_.Failures.clear();
  app_.shell->ShowStatus(kStatus);
}

void frmPackager::ShowProgress(TextView file) {
  fraProgress.Visible = true;
  lblFile.Caption = Text(file);
  const auto steps = static_cast<std::int64_t>(lstFile.Count()) + 1;
  Guarded([&] { TarvoProgress.SetRange(1, steps, 1); });
  fraProgress.Refresh();
}

Text frmPackager::PackagePath() const {
  return app_.ProgramFolder + u"\\Tarvos\\" + cboFileName.Text() + Text(kPackageEnding);
}

Text frmPackager::RootedPath(const Text& entry) const {
  return JoinPath(IsTGLEntry(entry) ? app_.ProgramFolder : app_.State.GamePath, entry);
}

}  // namespace tarvo
