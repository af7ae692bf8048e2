#include "packages/PackageFormat.h"
#include "packages/PackageReader.h"
#include "packages/frmPackager.h"
#include "platform/Files.h"
#include "platform/Guarded.h"
#include "platform/Locale.h"
#include "platform/Sound.h"
#include "state/CommonUtilities.h"
#include "state/Dialogue.h"
#include "state/PendingWork.h"
#include "state/Shell.h"
#include "text/FileNames.h"
#include "text/Lines.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

/// Files up to this size are read once and written from memory; larger ones are searched for the
/// marker first and then copied by the kernel.
constexpr std::uint64_t kSmallFile = 128 * 1024;

/// Appends one file to the package; true when it holds the marker. Throws PlatformError when it
/// can't be read to its end.
bool AppendBody(FileReplacement& package, FileReader& source, const Text& path) {
  const auto require = [&](std::uint64_t got) {
    if (got != source.Size()) throw PlatformError(u"read", path, kReadFault);
  };
  if (source.Size() > kSmallFile) {
    const bool holdsMarker = HoldsMarker(source);
    require(package.CopyFrom(source, 0, source.Size()));
    return holdsMarker;
  }
  FileText body(source.Size(), '\0');
  require(source.ReadAt(0, std::span(body)));
  package.Write(body);
  return body.find(kMarker) != FileText::npos;
}

}  // namespace

void frmPackager::MakePackage() {
  PlayEffect(app_, u"CommandBeep.wav", kPlayToEnd);
  if (cboFileName.Text().empty()) {
    app_.dialogue.PacMsg(u"You did not enter a File Name!!!", Title::Warning);
    return;
  }
  const Text fault = FaultOfFileName(cboFileName.Text());
  if (!fault.empty()) {
    app_.dialogue.PacMsg(u"No Tarvo has been made!!!  " + fault, Title::Warning);
    return;
  }
  if (lstFile.Count() == 0) {
    app_.dialogue.PacMsg(u"There are no Files Selected to add to the Tarvo File!!!",
                         Title::Warning);
    return;
  }
  if (!MayGoOn()) return;
  PlayEffect(app_, u"Scroll.wav", kPlayLoop);
  app_.State.CurrentScreen.clear();
  ShowProgress(lblFile.Caption.Get());
  const bool written = WritePackage();
  PlayEffect(app_, u"BackgroundBeep.wav", kPlay);
  app_.dialogue.PacMsg(u"\"" + cboFileName.Text() + u".Tarvo\" has been Created!",
                       Title::Information);
  if (written) {
    const Text path = PackagePath();
    ClearList();
    draft_.Settle();
    cboFileName.SetText({});
    ReadPackageNames();
    cboFileName.Hint = path;
    if (app_.Failures.empty()) app_.shell->ShowStatus(u"The Tarvo lies at " + path);
  }
  fraProgress.Visible = false;
  app_.State.CurrentScreen = u"Packager";
}

/// False, and told, when no package could be made; the user's choice of files is kept then, and an
/// old package of that name stands.
bool frmPackager::WritePackage() {
  Text note;
  Text reason;
  try {
    note = BeginWork(app_, WorkKind::Package, cboFileName.Text());
    WriteWholePackage();
    NotingFailures(app_, [&] { EndWork(app_, note); });
    return true;
  } catch (const PlatformError& error) {
    NoteFailure(app_, error);
    reason = Words(error);
  } catch (const RaisedError& error) {
    NoteFailure(app_, error);
    reason = error.Description;
  }
  DropWork(app_, note);
  app_.dialogue.PacMsg(u"No Tarvo could be made!\n\n" + reason, Title::Critical);
  return false;
}

void frmPackager::WriteWholePackage() {
  std::vector<Text> warnings;
  const FileText head = PackageHead(PackageList, app_.machine.locale.ShortDate());
  if (head.size() > kLongestHead) {
    throw RaisedError(u"Package", u"The list of files is longer than a Tarvo can have.");
  }
  const auto package = app_.machine.files.Replace(PackagePath(), NewFile::Later);
  package->Write(head);
  for (const Text& entry : EntriesOf(PackageList)) {
    lblFile.Caption = entry;
    if (const auto reason = AppendEntry(*package, entry)) {
      warnings.push_back(entry + u": " + *reason);
    }
    Guarded([&] { TarvoProgress.SetValue(TarvoProgress.Value() + 1); });
    fraUpdateProgress.Refresh();
  }
  WarnOfUnpackable(warnings);
  package->Commit();
}

/// Writes the section of one entry; gives the reason when the file can't come out again. A file
/// that has gone gives an empty body, and so does one that no installer would take.
std::optional<Text> frmPackager::AppendEntry(FileReplacement& package, const Text& entry) {
  std::optional<Text> reason = UnpackableReason(entry);
  if (IsRefusedWhenRead(entry)) {
    *reason += u", so it is empty in the Tarvo";
  } else if (const auto source = OpenSource(entry)) {
    const bool holdsMarker = AppendBody(package, *source, RootedPath(entry));
    if (holdsMarker && !reason) reason = u"it holds the text that ends a file in a Tarvo";
  } else {
    reason = u"it has gone, and is empty in the Tarvo";
  }
  package.Write(BodyEnd());
  return reason;
}

std::unique_ptr<FileReader> frmPackager::OpenSource(const Text& entry) {
  try {
    return app_.machine.files.Open(RootedPath(entry));
  } catch (const PlatformError& error) {
    if (!SaysNothingThere(error.Code)) throw;
    NoteFailure(app_, error);
    return {};
  }
}

void frmPackager::WarnOfUnpackable(const std::vector<Text>& lines) {
  if (lines.empty()) return;
  app_.dialogue.PacMsg(
      u"These Files can't come out of the Tarvo again as they are:\n" + FirstLines(lines),
      Title::Warning);
}

}  // namespace tarvo
