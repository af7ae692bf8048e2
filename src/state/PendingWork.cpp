#include "state/PendingWork.h"

#include <sstream>

#include "platform/Clock.h"
#include "platform/FileCopies.h"
#include "platform/Files.h"
#include "platform/Guarded.h"
#include "state/CommonUtilities.h"
#include "state/NotesFolder.h"
#include "text/Paths.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

constexpr TextView kBegun = u".begun";
constexpr TextView kWritten = u".written";

/// What other programs are told of who holds a folder meanwhile.
constexpr TextView kPurpose = u"Tarvo Packager: Bringing Files to the Disk";

/// A note, whose file holds three lines: the run of the computer, "install" or "package", and the
/// package's name, all in UTF-8.
struct WorkNote {
  Text Path;
  bool IsWritten;
  Text Run;
  WorkKind Kind;
  Text Package;
};

FileText NoteText(const WorkNote& note) {
  const char* const kind = note.Kind == WorkKind::Install ? "install" : "package";
  return Utf8FromText(note.Run) + "\n" + kind + "\n" + Utf8FromText(note.Package) + "\n";
}

WorkNote ReadNote(Files& files, const Text& path) {
  std::istringstream lines(ReadWhole(files, path).Bytes());
  std::string run, kind, package;
  std::getline(lines, run);
  std::getline(lines, kind);
  std::getline(lines, package);
  return {path, path.ends_with(kWritten), TextFromUtf8(run),
          kind == "install" ? WorkKind::Install : WorkKind::Package, TextFromUtf8(package)};
}

/// The notes on the present game, less those that BringToDisk drops meanwhile in another program.
std::vector<WorkNote> ReadNotes(Application& app) {
  std::vector<WorkNote> notes;
  Files& files = app.machine.files;
  const Text folder = NotesFolder(app);
  if (app.State.GamePath.empty() || !files.FolderExists(folder)) return notes;
  const Text start = BareName(NotePath(app, u"-"));
  for (const TextView ending : {kBegun, kWritten}) {
    for (const Text& name : files.FileNames(folder, u"*" + Text(ending))) {
      if (!name.starts_with(start)) continue;
      try {
        notes.push_back(ReadNote(files, JoinPath(folder, name)));
      } catch (const PlatformError& error) {
        if (!SaysNothingThere(error.Code)) throw;
      }
    }
  }
  return notes;
}

/// True for what can still be brought to the disk: a computer that went down has lost the rest.
bool IsOfThisRun(Application& app, const WorkNote& note) {
  return !note.Run.empty() && note.Run == app.machine.clock.RunOfComputer();
}

/// True for work that BringToDisk sees to.
bool IsWaiting(Application& app, const WorkNote& note) {
  return note.IsWritten && IsOfThisRun(app, note);
}

/// The paths of the notes on work that can be brought to the disk.
std::vector<Text> WrittenWork(Application& app) {
  std::vector<Text> paths;
  for (const WorkNote& note : ReadNotes(app)) {
    if (IsWaiting(app, note)) paths.push_back(note.Path);
  }
  return paths;
}

/// The path of a note that doesn't stand yet, without its ending.
Text FreePath(Application& app) {
  Files& files = app.machine.files;
  for (int number = 1;; ++number) {
    const Text path = NotePath(app, u"-" + TextFromUtf8(std::to_string(number)));
    if (files.FileExists(path + Text(kBegun)) || files.FileExists(path + Text(kWritten))) continue;
    return path;
  }
}

void SyncAll(Application& app) {
  for (const Text& folder : {app.State.GamePath, app.ProgramFolder}) {
    app.machine.files.Sync(folder);
  }
}

/// False where another program is at it.
bool SyncWrittenWork(Application& app) {
  const LockAttempt turn = app.machine.files.TryLock(NotesFolder(app), kPurpose);
  if (!turn.Lock) return false;
  for (std::vector<Text> notes; !(notes = WrittenWork(app)).empty();) {
    SyncAll(app);
    for (const Text& note : notes) app.machine.files.Remove(note);
  }
  return true;
}

}  // namespace

Text BeginWork(Application& app, WorkKind kind, const Text& package) {
  try {
    const std::vector<WorkNote> before = ReadNotes(app);
    const Text path = FreePath(app) + Text(kBegun);
    WriteNote(app, path, NoteText({path, false, app.machine.clock.RunOfComputer(), kind, package}));
    for (const WorkNote& note : before) {
      const bool isSame = note.Kind == kind && note.Package == package;
      if (isSame && !IsWaiting(app, note)) app.machine.files.Remove(note.Path);
    }
    return path;
  } catch (const PlatformError& error) {
    if (!SaysNotAllowed(error.Code)) throw;
    return {};
  }
}

void EndWork(Application& app, const Text& note) {
  const bool isLater = app.SyncsLater && !app.machine.clock.RunOfComputer().empty();
  if (note.empty() || !isLater) {
    SyncAll(app);
    if (!note.empty()) RemoveNote(app, note);
    return;
  }
  const TextView path = TextView(note).substr(0, note.size() - kBegun.size());
  app.machine.files.Rename(note, Text(path) + Text(kWritten));
}

void DropWork(Application& app, const Text& note) {
  if (!note.empty()) Guarded([&] { RemoveNote(app, note); });
}

bool HasWrittenWork(Application& app) {
  bool has = false;
  Guarded([&] { has = !WrittenWork(app).empty(); });
  return has;
}

void BringToDisk(Application& app) {
  Guarded([&] {
    if (WrittenWork(app).empty() || !SyncWrittenWork(app)) return;
    // Another program may be about to write a note.
    if (app.machine.files.TryLock(app.ProgramFolder, kPurpose).Lock) RemoveEmptyNotesFolder(app);
  });
}

UnfinishedWork FindUnfinishedWork(Application& app) {
  UnfinishedWork work;
  NotingFailures(app, [&] {
    for (const WorkNote& note : ReadNotes(app)) {
      if (IsWaiting(app, note)) continue;
      if (note.Kind == WorkKind::Install) {
        work.Installs.push_back(note.Package);
      } else if (IsOfThisRun(app, note)) {
        RemoveNote(app, note.Path);  // A killed program leaves no half of a package.
      } else {
        work.Packages.push_back(note.Package);
      }
    }
  });
  return work;
}

void ForgetUnfinishedWork(Application& app) {
  NotingFailures(app, [&] {
    for (const WorkNote& note : ReadNotes(app)) {
      if (!IsWaiting(app, note)) RemoveNote(app, note.Path);
    }
  });
}

}  // namespace tarvo
