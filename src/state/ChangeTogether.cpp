#include "state/ChangeTogether.h"

#include <algorithm>

#include "platform/FileCopies.h"
#include "platform/Files.h"
#include "platform/Guarded.h"
#include "state/CommonUtilities.h"
#include "state/NotesFolder.h"
#include "state/Shell.h"
#include "state/UnfinishedNote.h"

namespace tarvo {
namespace {

Text ChangeNotePath(Application& app) {
  return NotePath(app, u".change");
}

/// What stands at a path; nothing for no file.
std::optional<FileText> BytesAt(Files& files, const Text& path) {
  if (!files.FileExists(path)) return {};
  return ReadWhole(files, path).Bytes();
}

/// It is on the disk when this returns, a deletion as well: the note goes afterwards.
void PutBytes(Files& files, const Text& path, const std::optional<FileText>& bytes) {
  if (bytes) {
    WriteWhole(files, path, *bytes);
  } else if (files.FileExists(path)) {
    files.Remove(path);
    files.Sync(path.substr(0, path.rfind(u'\\')));
  }
}

std::optional<std::uint64_t> HashOf(const std::optional<FileText>& bytes) {
  return bytes ? std::optional(tarvo::HashOf(*bytes)) : std::nullopt;
}

/// One change. All new files are written before the first takes its place, so that a full disk or a
/// file that can't be written shows while nothing has changed.
class Change {
 public:
  Change(Application& app, const std::vector<FileChange>& changes)
      : app_(app), files_(app.machine.files), changes_(changes) {}

  void Run() {
    Prepare();
    TakeNote();
    try {
      for (; done_ < changes_.size(); ++done_) Apply(done_);
    } catch (const PlatformError&) {
      PutBack();
      throw;
    }
    DropNote();
  }

 private:
  void Prepare() {
    for (const FileChange& change : changes_) {
      before_.push_back(BytesAt(files_, change.Path));
      replacements_.push_back(change.Bytes ? files_.Replace(change.Path) : nullptr);
      if (change.Bytes) replacements_.back()->Write(*change.Bytes);
    }
  }

  /// Without a folder for notes it is done all the same, one file after the other.
  void TakeNote() {
    std::vector<NotedFile> noted;
    for (std::size_t i = 0; i < changes_.size(); ++i) {
      noted.push_back({changes_[i].Path, HashOf(before_[i]), changes_[i].Bytes});
    }
    try {
      note_ = ChangeNotePath(app_);
      WriteNote(app_, note_, NoteText(noted));
    } catch (const PlatformError& error) {
      if (!SaysNotAllowed(error.Code)) throw;
      note_.clear();
    }
  }

  void Apply(std::size_t i) {
    if (replacements_[i]) {
      replacements_[i]->Commit();
    } else {
      PutBytes(files_, changes_[i].Path, {});
    }
  }

  /// The file that failed may have been changed as well.
  void PutBack() {
    try {
      for (std::size_t i = std::min(done_ + 1, changes_.size()); i-- > 0;) {
        if (BytesAt(files_, changes_[i].Path) == before_[i]) continue;
        PutBytes(files_, changes_[i].Path, before_[i]);
      }
    } catch (const PlatformError& error) {
      NoteFailure(app_, error);
      return;
    }
    DropNote();
  }

  /// A note that can't be deleted is found to be done with by the next start.
  void DropNote() {
    if (!note_.empty()) Guarded([&] { RemoveNote(app_, note_); });
  }

  Application& app_;
  Files& files_;
  const std::vector<FileChange>& changes_;
  std::vector<std::optional<FileText>> before_;
  std::vector<std::unique_ptr<FileReplacement>> replacements_;
  Text note_;             ///< Its path; empty where there is none.
  std::size_t done_ = 0;  ///< Files that stand as they are to be.
};

/// Completes what a note tells; gives the files that were still to be changed.
std::vector<Text> Complete(Application& app, const std::vector<NotedFile>& noted) {
  Files& files = app.machine.files;
  std::vector<Text> changed;
  for (const NotedFile& file : noted) {
    const std::optional<FileText> now = BytesAt(files, file.Path);
    if (now == file.After) continue;
    if (HashOf(now) != file.Before) {
      app.shell->TellAside(file.Path + u" was to be changed together with others, and has been " +
                           u"changed by somebody else since: it stays as it is.");
      continue;
    }
    PutBytes(files, file.Path, file.After);
    changed.push_back(file.Path);
  }
  return changed;
}

}  // namespace

void ChangeTogether(Application& app, const std::vector<FileChange>& changes) {
  Change(app, changes).Run();
}

bool HasUnfinishedChange(Application& app) {
  bool has = false;
  if (app.State.GamePath.empty()) return false;
  NotingFailures(app, [&] {
    if (!app.machine.files.FolderExists(NotesFolder(app))) return;
    has = app.machine.files.FileExists(ChangeNotePath(app));
  });
  return has;
}

void FinishChange(Application& app) {
  if (!HasUnfinishedChange(app)) return RemoveEmptyNotesFolder(app);
  NotingFailures(app, [&] {
    const Text path = ChangeNotePath(app);
    const auto noted = ParseNote(ReadWhole(app.machine.files, path).Bytes());
    if (noted) {
      for (const Text& file : Complete(app, *noted)) {
        app.shell->TellAside(u"A change that was cut short has been completed: " + file);
      }
    }
    RemoveNote(app, path);
  });
}

}  // namespace tarvo
