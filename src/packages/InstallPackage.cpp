#include <algorithm>
#include <set>

#include "packages/PackageFormat.h"
#include "packages/PackageReader.h"
#include "packages/frmPackager.h"
#include "platform/Files.h"
#include "platform/Guarded.h"
#include "platform/Sound.h"
#include "shiptgl/UpdateGameTGL.h"
#include "state/CommonUtilities.h"
#include "state/Dialogue.h"
#include "state/PendingWork.h"
#include "state/ReadProgress.h"
#include "state/Shell.h"
#include "text/FileNames.h"
#include "text/LetterCase.h"
#include "text/Lines.h"
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
    const tarvo::PackageList list = ReadPackageList(*package_);
    ReadProgress progress(app_, package_->Size());
    entries_ = EntriesOf(list.List);
    for (const Text& entry : entries_) {
      if (const auto reason = UnsafeReason(entry)) {
        throw RaisedError(u"Package", entry + u": " + *reason);
      }
    }
    bodies_ = FindBodies(*package_, list.BodiesStart, entries_.size(), app_.State.ReadChunkSize,
                         [&] { progress.Advance(); });
    isWritten_.resize(entries_.size());
  }

  /// A body that holds the marker was cut there, and all behind it get wrong bytes. Where no body
  /// shows it, what stands behind the last one does.
  void WarnOfCutFiles() {
    const auto cut = std::ranges::find_if(
        bodies_, [&](const PackageBody& body) { return !IsFramed(*package_, body); });
    const bool isKnown = cut != bodies_.end();
    if (!isKnown && !HoldsMarker(*package_, SectionEnd(bodies_.back()))) return;
    const std::vector<Text> wrong(entries_.begin() + (isKnown ? cut - bodies_.begin() : 0),
                                  entries_.end());
    const Text whose =
        isKnown ? wrong.front() + u" holds" : Text(u"One of its Files seems to hold");
    app_.dialogue.PacMsg(whose +
                             u" the Text that ends a File in a Tarvo!!!  It is cut there, and "
                             u"those behind it get wrong Bytes.  These are not to be trusted:\n" +
                             FirstLines(wrong),
                         Title::Warning);
  }

  /// False, and told, when a full disk has ended it.
  bool Write(const Text& package) {
    const Text note = BeginWork(app_, WorkKind::Install, package);
    TellingTogether(app_, [&] { WriteFiles(); });
    if (isFull_) return TellOfFullDisk();
    app_.shell->ShowStatus(u"Bringing all Files to the Disk...");
    EndWork(app_, note);
    app_.shell->ShowStatus(u"All Files are on the Disk.");
    ShowFailures(app_);
    return true;
  }

 private:
  void WriteFiles() {
    for (; done_ < entries_.size() && !isFull_; ++done_) {
      const std::size_t failures = app_.Failures.size();
      if (IsTGLEntry(entries_[done_])) {
        InstallShipTGL(entries_[done_], bodies_[done_]);
      } else {
        InstallGameFile(entries_[done_], bodies_[done_]);
      }
      isFull_ = app_.Failures.size() > failures && IsDiskFull(app_);
    }
  }

  bool TellOfFullDisk() {
    std::vector<Text> written, left;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
      (isWritten_[i] ? written : left).push_back(entries_[i]);
    }
    Text words = u"The Disk is full!!!  The Installation ends here.";
    if (!written.empty()) words += u"\n\nThese Files have been written:\n" + FirstLines(written);
    if (!left.empty()) words += u"\n\nThese Files have not:\n" + FirstLines(left);
    app_.dialogue.PacMsg(words, Title::Critical);
    return false;
  }

  /// A ship's definition: it goes to the other definitions, and into the game. A database of the
  /// program folder that is no ship's definition is asked about by itself, whatever was answered
  /// before.
  void InstallShipTGL(const Text& entry, const PackageBody& body) {
    Text answer;
    if (!IsDefinition(entry) && !MayReplace(entry, Title::Question, answer)) return;
    if (!WriteBody(entry, body)) return;
    UpdateGameTGL(app_, ShipOfTGLEntry(entry));
  }

  static bool IsDefinition(const Text& entry) {
    constexpr TextView kFolder = u"\\shiptgls\\";
    return FoldCase(entry).starts_with(kFolder) && entry.rfind(u'\\') + 1 == kFolder.size();
  }

  void InstallGameFile(const Text& entry, const PackageBody& body) {
    CreateGameFolders(entry);
    if (overwriteAnswer_ == u"All" || MayReplace(entry, Title::Warning, overwriteAnswer_)) {
      WriteBody(entry, body);
    }
  }

  /// Asks the user before a file is replaced. One that can't be looked at isn't written, and told.
  bool MayReplace(const Text& entry, Title title, Text& answer) {
    const Text path = screen_.RootedPath(entry);
    try {
      if (!files_.FileExists(path)) return true;
    } catch (const PlatformError& error) {
      TellCantWrite(app_, path, error);
      return false;
    }
    const auto question = [](const Text& file) {
      return u"File " + file + u" already exists!!!  Would you like to Overwrite???";
    };
    answer = app_.dialogue.PacInputInAnyCase(question(BareName(entry)), question(entry), title);
    return answer == u"Yes" || answer == u"All";
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
  bool WriteBody(const Text& entry, const PackageBody& body) {
    const Text path = screen_.RootedPath(entry);
    isWritten_[done_] = true;
    if (body.Length == 0) return true;
    try {
      const auto file = files_.Replace(path, NewFile::Later);
      if (file->CopyFrom(*package_, body.Start, body.Length) != body.Length) {
        throw MalformedPackage(body.Start, u"the package has been cut while it was read");
      }
      file->Commit();
      return true;
    } catch (const PlatformError& error) {
      isWritten_[done_] = false;
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
  std::vector<bool> isWritten_;
  std::size_t done_ = 0;  ///< Entries that have had their turn.
  bool isFull_ = false;   ///< The disk is.
  std::set<Text> made_;
  Text overwriteAnswer_;
};

void frmPackager::InstallPackage() {
  if (cboFileName.Text().empty()) {
    app_.dialogue.PacMsg(u"You did not enter a File Name!!!", Title::Warning);
    return;
  }
  // No package has a name that leads elsewhere.
  bool isMissing = !FaultOfFileName(cboFileName.Text()).empty();
  if (!isMissing &&
      !NotingFailures(app_, [&] { isMissing = !app_.machine.files.FileExists(PackagePath()); })) {
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
  unpacked_ = cboFileName.Text();
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
  const bool hasGame = NotingFailures(app_, [&] {
    if (app_.State.GamePath.empty()) throw RaisedError(u"Package", u"no game's folder is known");
  });
  const Text package = BareName(PackagePath());
  const bool read = hasGame && NotingFailures(app_, package, [&] {
                      run.emplace(*this, PackagePath());
                      run->Read();
                    });
  PlayEffect(app_, u"BackgroundBeep.wav", kPlay);
  bool written = false;
  return read &&
         NotingFailures(app_, package,
                        [&] {
                          run->WarnOfCutFiles();
                          written = run->Write(cboFileName.Text());
                        }) &&
         written;
}

/// A package that can't be read leaves nothing at hand.
void frmPackager::ListPackage() {
  PlayEffect(app_, u"Click.wav", kPlayUnlessBusy);
  const bool dropped = draft_.Drop();
  ClearList();
  app_.State.ReadChunkSize = kListChunk;
  const bool read = NotingFailures(app_, BareName(PackagePath()), [&] {
    PackageList = ReadPackageList(*app_.machine.files.Open(PackagePath())).List;
  });
  app_.State.ReadChunkSize = kChunkAfterList;
  if (read) listOf_ = cboFileName.Text();
  for (const Text& entry : EntriesOf(PackageList)) lstFile.Add(BareName(entry));
  draft_.Settle();
  if (dropped) draft_.TellDropped(kStatus);
}

}  // namespace tarvo
