#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/FileCopies.h"
#include "platform/Files.h"
#include "platform/Windows.h"
#include "state/CommonUtilities.h"
#include "state/Foundation.h"
#include "state/GameLock.h"
#include "state/Shell.h"
#include "text/LetterCase.h"
#include "text/Paths.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

constexpr TextView kPlugins = u"\\scripts\\Plugins";
constexpr TextView kCustom = u"\\scripts\\Plugins\\Custom";
constexpr TextView kShips = u"\\scripts\\Custom\\Ships";
constexpr TextView kAutoload = u"\\scripts\\Custom\\AutoLoad";

/// Its presence tells that the game has the old layout. No place is left for it in the new one.
constexpr TextView kMarkerName = u"Custom.py";

Text KeptFolder(const Application& app) {
  return app.ProgramFolder + u"\\Backup\\Old layout";
}

/// Stands from the first deletion of an upgrade to its end, and holds the game's folder: with the
/// marker gone, what is left of the old folders is still ours to remove.
Text NotePath(const Application& app) {
  return KeptFolder(app) + u"\\Unfinished.txt";
}

FileText NoteBytes(const Application& app) {
  return Utf8FromText(app.State.GamePath) + "\r\n";
}

Text Numbered(const Text& name, int number) {
  if (number == 1) return name;
  const std::size_t dot = std::min(name.rfind(u'.'), name.size());
  return name.substr(0, dot) + u" (" + TextFromUtf8(std::to_string(number)) + u")" +
         name.substr(dot);
}

bool IsMarkerName(TextView name) {
  return EqualIgnoringCase(name, kMarkerName);
}

/// One upgrade. First everything is copied, and nothing deleted; then every file of the old folders
/// goes as soon as its copy has been compared with it once more. Links of the user are never
/// followed on the way: a linked folder goes as a link, and what it leads to stays.
class Upgrade {
 public:
  explicit Upgrade(Application& app) : app_(app), files_(app.machine.files) {}

  /// Gives the number of files that were kept.
  std::size_t Run() {
    FindPlaces();
    Bring(kCustom, kShips);
    Bring(kPlugins, kAutoload);
    KeepTheRest();
    WriteNote();
    BringToDisk();
    DeleteOld();
    BringToDisk();
    files_.Remove(NotePath(app_));
    return kept_.size();
  }

 private:
  Text InGame(TextView below) const { return app_.State.GamePath + Text(below); }

  void FindPlaces() {
    const Text plugins = InGame(kPlugins);
    if (files_.FolderExists(plugins) && !IsLink(plugins)) old_ = files_.RealPath(plugins);
    MakeFolders(files_, KeptFolder(app_));
    CheckElsewhere(KeptFolder(app_));
  }

  /// True when the last part of the path is a link.
  bool IsLink(const Text& path) {
    const Text parent = files_.RealPath(path.substr(0, path.rfind(u'\\')));
    return !EqualIgnoringCase(files_.RealPath(path), JoinPath(parent, BareName(path)));
  }

  /// Throws when a path leads into the folder that is to be deleted.
  void CheckElsewhere(const Text& path) {
    if (old_.empty()) return;
    const Text real = FoldCase(files_.RealPath(path));
    const Text old = FoldCase(old_);
    if (real != old && !real.starts_with(old + u"\\")) return;
    throw RaisedError(u"UpgradeOldLayout", path + u" leads into " + InGame(kPlugins));
  }

  /// Copies the scripts of an old folder to the new one.
  void Bring(TextView from, TextView to) {
    if (!files_.FolderExists(InGame(from))) return;
    const std::vector<Text> names = files_.FileNames(InGame(from), u"*.py");
    if (names.empty()) return;
    if (!files_.FolderExists(InGame(to))) {
      throw PlatformError(u"open", InGame(to), kNoSuchFile);
    }
    CheckElsewhere(InGame(to));
    for (const Text& name : names) {
      if (from == kCustom && IsMarkerName(name)) continue;
      BringFile(JoinPath(InGame(from), name), JoinPath(to, name));
    }
  }

  void BringFile(const Text& from, const Text& below) {
    const Text to = InGame(below);
    if (files_.FileExists(to)) {
      CheckElsewhere(to);
      if (SameBytes(files_, from, to)) return;
      Keep(to, below, NewFile::OnDisk);
      ClearReadOnly(app_, to);
    }
    CopyOneFile(files_, from, to, NewFile::Later);
  }

  /// Keeps everything of the old folders that has no copy in a new one.
  void KeepTheRest() {
    if (!old_.empty()) Walk(InGame(kPlugins), Text(kPlugins));
    const Text brought = JoinPath(kShips, kMarkerName);
    if (files_.FileExists(JoinPath(InGame(kCustom), kMarkerName)) &&
        files_.FileExists(InGame(brought))) {
      CheckElsewhere(InGame(brought));
      KeepForDeletion(InGame(brought), brought);
    }
  }

  void Walk(const Text& folder, const Text& below) {
    for (const Text& name : files_.FileNames(folder)) {
      KeepForDeletion(JoinPath(folder, name), JoinPath(below, name));
    }
    for (const Text& name : files_.FolderNames(folder)) {
      const Text child = JoinPath(folder, name);
      if (!IsLink(child)) {
        MakeFolders(files_, KeptFolder(app_) + JoinPath(below, name));
        Walk(child, JoinPath(below, name));
      }
      folders_.push_back(child);
    }
  }

  void KeepForDeletion(const Text& path, const Text& below) {
    const Text to = NewPlace(below);
    // Two scripts whose names differ in letter case alone have only one place to go to.
    const bool hasCopy = !to.empty() && files_.FileExists(to) && SameBytes(files_, path, to);
    copies_[path] = hasCopy ? to : Keep(path, below, NewFile::Later);
    doomed_.push_back(path);
  }

  /// Where Bring puts a file of the old folders; empty for one that it leaves.
  Text NewPlace(const Text& below) const {
    const Text name = BareName(below);
    const Text folder = below.substr(0, below.rfind(u'\\'));
    if (!MatchesPattern(name, u"*.py")) return {};
    if (EqualIgnoringCase(folder, kPlugins)) return InGame(JoinPath(kAutoload, name));
    const bool isShip = EqualIgnoringCase(folder, kCustom) && !IsMarkerName(name);
    return isShip ? InGame(JoinPath(kShips, name)) : Text();
  }

  /// Copies a file to the kept ones, unless one of them holds its bytes. Gives the copy.
  Text Keep(const Text& path, const Text& below, NewFile newFile) {
    const Text place = KeptFolder(app_) + below;
    const Text folder = place.substr(0, place.rfind(u'\\'));
    MakeFolders(files_, folder);
    for (int number = 1;; ++number) {
      const Text kept = JoinPath(folder, Numbered(BareName(below), number));
      if (files_.FolderExists(kept)) continue;
      const bool stands = files_.FileExists(kept);
      if (stands && !SameBytes(files_, path, kept)) continue;
      if (!stands) CopyOneFile(files_, path, kept, newFile);
      kept_.insert(kept);
      return kept;
    }
  }

  void WriteNote() { WriteWhole(files_, NotePath(app_), NoteBytes(app_)); }

  /// The copies, before the first original goes; and the deletions, before the note goes.
  void BringToDisk() {
    for (const Text& folder : {InGame(kShips), InGame(kAutoload), KeptFolder(app_)}) {
      if (files_.FolderExists(folder)) files_.Sync(folder);
    }
  }

  /// The marker is the last file to go, and its folder and the one above it the last folders.
  void DeleteOld() {
    const Text custom = InGame(kCustom);
    const Text plugins = InGame(kPlugins);
    if (files_.FolderExists(plugins)) folders_.push_back(plugins);
    const auto marker = std::stable_partition(
        doomed_.begin(), doomed_.end(),
        [&](const Text& path) { return !EqualIgnoringCase(path, JoinPath(custom, kMarkerName)); });
    const auto lastFolders = std::stable_partition(
        folders_.begin(), folders_.end(),
        [&](const Text& path) { return !EqualIgnoringCase(path, custom) && path != plugins; });
    for (auto file = doomed_.begin(); file != marker; ++file) Delete(*file);
    for (auto folder = folders_.begin(); folder != lastFolders; ++folder) {
      files_.RemoveFolder(*folder);
    }
    for (auto file = marker; file != doomed_.end(); ++file) Delete(*file);
    for (auto folder = lastFolders; folder != folders_.end(); ++folder) {
      files_.RemoveFolder(*folder);
    }
  }

  void Delete(const Text& path) {
    const Text& copy = copies_.at(path);
    CheckElsewhere(copy);
    if (!SameBytes(files_, path, copy)) {
      throw RaisedError(u"UpgradeOldLayout", copy + u" isn't a copy of " + path);
    }
    const bool isReadOnly = (files_.Attributes(path) & kReadOnlyFile) != 0;
    // The mark of what a link leads to isn't ours to change.
    if (isReadOnly && !IsLink(path)) files_.SetAttributes(path, kNormalFile);
    files_.Remove(path);
  }

  Application& app_;
  Files& files_;
  Text old_;                     ///< The real path of the old folder; empty where it is a link.
  std::map<Text, Text> copies_;  ///< Where the bytes of a file stand beside it.
  std::set<Text> kept_;          ///< What this upgrade has put aside.
  std::vector<Text> doomed_;     ///< The files to delete.
  std::vector<Text> folders_;    ///< The folders to delete, each behind those in it.
};

}  // namespace

void TestOldLayout(Application& app) {
  bool isOld = false;
  NotingFailures(app, [&] {
    isOld = app.machine.files.FileExists(app.State.GamePath + JoinPath(kCustom, kMarkerName));
  });
  if (!isOld && ReadFileText(app, NotePath(app)) != NoteBytes(app)) return;
  LockingGame(app, u"Upgrade", [&] { UpgradeOldLayout(app); });
}

void UpgradeOldLayout(Application& app) {
  std::size_t kept = 0;
  if (!NotingFailures(app, [&] { kept = Upgrade(app).Run(); })) return;
  if (kept > 0) {
    app.shell->ShowStatus(
        TextFromUtf8(std::to_string(kept)) +
        (kept == 1 ? u" file of the old layout is" : u" files of the old layout are") +
        u" kept in " + KeptFolder(app));
  }
  app.machine.windows.ShowMessage(u"Tarvo " + app.State.AppVersion + u" has upgraded your files!",
                                  u"", BoxIcon::Plain);
}

}  // namespace tarvo
