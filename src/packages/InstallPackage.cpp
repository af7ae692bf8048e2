#include <set>

#include "packages/PackageFormat.h"
#include "packages/PackageReader.h"
#include "packages/frmPackager.h"
#include "platform/Files.h"
#include "platform/Guarded.h"
#include "platform/Sound.h"
#include "shiptgl/UpdateGameTGL.h"
#include "state/ChangeTogether.h"
#include "state/CommonUtilities.h"
#include "state/Dialogue.h"
#include "state/ReadProgress.h"
#include "state/Shell.h"
#include "text/LetterCase.h"
#include "text/Paths.h"

namespace tarvo {
namespace {

constexpr std::uint32_t kInstallChunk = 262332;
constexpr std::uint32_t kListChunk = 1048576;
constexpr std::uint32_t kChunkAfterList = 16384;

}  // namespace

/// One run of the installer.
class frmPackager::Installation {
 public:
  Installation(frmPackager& screen, const Text& packagePath)
      : screen_(screen),
        app_(screen.app_),
        files_(screen.app_.machine.files),
        package_(files_.Open(packagePath)) {}

  /// Reads the package through, driving the bar. Raises an error, with nothing written, for a
  /// package that is malformed or holds an unsafe entry.
  void Read() {
    if (app_.State.GamePath.empty()) throw RaisedError(u"Package", u"no game's folder is known");
    const tarvo::PackageList list = ReadPackageList(*package_);
    ReadProgress progress(app_, package_->Size());
    screen_.draft_.Drop();
    screen_.PackageList = list.List;
    screen_.draft_.Settle();
    entries_ = EntriesOf(list.List);
    for (const Text& entry : entries_) {
      if (const auto reason = UnsafeReason(entry)) {
        throw RaisedError(u"Package", entry + u": " + *reason);
      }
    }
    bodies_ = FindBodies(*package_, list.BodiesStart, entries_.size(), app_.State.ReadChunkSize,
                         [&] { progress.Advance(); });
  }

  void Write(const Text& package) {
    BeginInstall(app_, package);
    for (std::size_t i = 0; i < entries_.size(); ++i) {
      if (IsTGLEntry(entries_[i])) {
        InstallShipTGL(entries_[i], bodies_[i]);
      } else {
        InstallGameFile(entries_[i], bodies_[i]);
      }
    }
    app_.shell->ShowStatus(u"Bringing all Files to the Disk...");
    for (const Text& folder : {app_.State.GamePath, app_.ProgramFolder}) files_.Sync(folder);
    EndInstall(app_, package);
    app_.shell->ShowStatus(u"All Files are on the Disk.");
    ShowFailures(app_);
  }

 private:
  /// A ship's definition: it goes to the other definitions, and into the game. A database of the
  /// program folder that is no ship's definition isn't replaced without a question.
  void InstallShipTGL(const Text& entry, const PackageBody& body) {
    const bool isDefinition = FoldCase(entry).starts_with(u"\\shiptgls\\");
    if (!isDefinition && !MayWrite(entry)) return;
    if (!WriteBody(screen_.RootedPath(entry), body)) return;
    UpdateGameTGL(app_, ShipOfTGLEntry(entry));
  }

  void InstallGameFile(const Text& entry, const PackageBody& body) {
    CreateGameFolders(entry);
    if (MayWrite(entry)) WriteBody(screen_.RootedPath(entry), body);
  }

  /// Asks the user before a file is replaced. One that can't be looked at isn't written, and told.
  bool MayWrite(const Text& entry) {
    if (overwriteAnswer_ == u"All") return true;
    const Text path = screen_.RootedPath(entry);
    try {
      if (!files_.FileExists(path)) return true;
    } catch (const PlatformError& error) {
      TellCantWrite(app_, path, error);
      return false;
    }
    overwriteAnswer_ = app_.dialogue.PacInput(
        u"File " + BareName(entry) + u" already exists!!!  Would you like to Overwrite???",
        Title::Warning);
    return overwriteAnswer_ == u"Yes" || overwriteAnswer_ == u"All";
  }

  /// Makes the folders in front of the entry's last part; one that is there already stays.
  void CreateGameFolders(const Text& entry) {
    for (std::size_t slash = entry.find(u'\\', 1); slash != Text::npos;
         slash = entry.find(u'\\', slash + 1)) {
      const Text folder = entry.substr(0, slash);
      if (!made_.insert(FoldCase(folder)).second) continue;
      Guarded([&] { files_.MakeFolder(screen_.RootedPath(folder + u"\\")); });
    }
  }

  /// Does for a piece of the package what WriteFileText does for a text, but that the disk is
  /// waited for at the end of all.
  bool WriteBody(const Text& path, const PackageBody& body) {
    if (body.Length == 0) return true;
    try {
      const auto file = files_.Replace(path, NewFile::Later);
      if (file->CopyFrom(*package_, body.Start, body.Length) != body.Length) {
        throw MalformedPackage(body.Start, u"the package has been cut while it was read");
      }
      file->Commit();
      return true;
    } catch (const PlatformError& error) {
      TellCantWrite(app_, path, error);
      return false;
    }
  }

  frmPackager& screen_;
  Application& app_;
  Files& files_;
  std::unique_ptr<FileReader> package_;
  std::vector<Text> entries_;
  std::vector<PackageBody> bodies_;
  std::set<Text> made_;
  Text overwriteAnswer_;
};

void frmPackager::InstallPackage() {
  if (cboFileName.Text().empty()) {
    app_.dialogue.PacMsg(u"You did not enter a File Name!!!", Title::Warning);
    return;
  }
  bool isMissing = false;
  if (!NotingFailures(app_, [&] { isMissing = !app_.machine.files.FileExists(PackagePath()); })) {
    app_.dialogue.PacMsg(u"An Error Occured while trying to extract!", Title::Critical);
    return;
  }
  if (isMissing) {
    app_.dialogue.PacMsg(u"That is not a Valid Tarvo File Name!!!", Title::Critical);
    return;
  }
  PlayEffect(app_, u"CommandBeep.wav", kPlayToEnd);
  PlayEffect(app_, u"Scroll.wav", kPlayLoop);
  ShowProgress(PackagePath());
  app_.State.ReadChunkSize = kInstallChunk;
  const bool installed = RunInstallation();
  fraProgress.Visible = false;
  if (installed) {
    app_.dialogue.PacMsg(
        u"Tarvo \"" + cboFileName.Text() + u"\" has been installed into your Game!",
        Title::Information);
  } else {
    app_.dialogue.PacMsg(u"An Error Occured while trying to extract!", Title::Critical);
  }
}

/// False, with the reason noted, when the package is refused or can't be read.
bool frmPackager::RunInstallation() {
  std::optional<Installation> run;
  const bool read = NotingFailures(app_, [&] {
    run.emplace(*this, PackagePath());
    run->Read();
  });
  PlayEffect(app_, u"BackgroundBeep.wav", kPlay);
  return read && NotingFailures(app_, [&] { run->Write(cboFileName.Text()); });
}

void frmPackager::ListPackage() {
  PlayEffect(app_, u"Click.wav", kPlayUnlessBusy);
  const bool dropped = draft_.Drop();
  lstFile.Clear();
  app_.State.ReadChunkSize = kListChunk;
  NotingFailures(
      app_, [&] { PackageList = ReadPackageList(*app_.machine.files.Open(PackagePath())).List; });
  app_.State.ReadChunkSize = kChunkAfterList;
  for (const Text& entry : EntriesOf(PackageList)) lstFile.Add(BareName(entry));
  draft_.Settle();
  if (dropped) draft_.TellDropped(kStatus);
}

}  // namespace tarvo
