#include "platform/InstalledData.h"

#include <algorithm>
#include <array>
#include <iomanip>
#include <map>
#include <sstream>

#include "platform/FileCopies.h"
#include "text/Paths.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

constexpr std::array<TextView, 3> kFoldersOfTheUser = {u"Tarvos", u"ShipTGLs", u"QBMenus"};

/// What belongs to the programs alone, where they lie beside their data.
constexpr std::array<TextView, 3> kFoldersOfThePrograms = {u"Fonts", u"Licences", u"platforms"};

/// An installed file when its content was last compared with the user's copy.
struct Entry {
  FileStamp Stamp;
  std::uint64_t Hash = 0;

  friend bool operator==(const Entry&, const Entry&) = default;
};

/// By paths below the folder, such as "Backup\Galaxy.py".
using Entries = std::map<Text, Entry>;
using Stamps = std::map<Text, FileStamp>;

bool IsPlainName(TextView name) {
  const auto isControl = [](char16_t unit) { return unit < u' '; };
  return !name.empty() && name != u"." && name != u".." && std::ranges::none_of(name, isControl);
}

/// A path of plain names that leads into a folder, and into none of the user's.
bool IsDataPath(TextView path) {
  const TextView first = path.substr(0, path.find(u'\\'));
  const auto isFirst = [&](TextView folder) { return MatchesPattern(first, folder); };
  if (first == path || std::ranges::any_of(kFoldersOfTheUser, isFirst) ||
      std::ranges::any_of(kFoldersOfThePrograms, isFirst)) {
    return false;
  }
  while (true) {
    const std::size_t end = path.find(u'\\');
    if (!IsPlainName(path.substr(0, end))) return false;
    if (end == TextView::npos) return true;
    path.remove_prefix(end + 1);
  }
}

std::string RecordText(const Entries& entries) {
  std::ostringstream text;
  text << "# What was copied here from the installed program: hash, size, time of change, file.\n";
  for (const auto& [path, entry] : entries) {
    text << std::hex << std::setw(16) << std::setfill('0') << entry.Hash << std::dec << ' '
         << entry.Stamp.Size << ' ' << entry.Stamp.Changed << ' ' << Utf8FromText(path) << '\n';
  }
  return text.str();
}

/// Lines that make no sense are passed over: their files count as the user's.
Entries ParseRecord(const std::string& record) {
  Entries entries;
  std::istringstream lines(record);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream fields(line);
    Entry entry;
    std::string path;
    fields >> std::hex >> entry.Hash >> std::dec >> entry.Stamp.Size >> entry.Stamp.Changed;
    if (!fields || fields.get() != ' ' || !std::getline(fields, path)) continue;
    if (Text name = TextFromUtf8(path); IsDataPath(name)) entries[std::move(name)] = entry;
  }
  return entries;
}

class Copying {
 public:
  Copying(Files& files, TextView source, TextView target)
      : files_(files), source_(source), target_(target) {}

  std::vector<PlatformError> Run() {
    // Unless all of it was seen, nothing may count as gone.
    if (!Try([&] { ListFolders({}); })) return failures_;
    const bool isRecordKnown = Try([&] { ReadRecord(); });
    bool isUpToDate = false;
    if (!Try([&] { isUpToDate = isRecordKnown && IsUpToDate(); }) || isUpToDate) return failures_;
    for (const auto& old : before_) {
      if (installed_.contains(old.first)) continue;
      Follow(old.first, [&] { return RemoveOld(old.first, old.second); });
    }
    for (const auto& file : installed_) {
      Follow(file.first, [&] { return Refresh(file.first, file.second); });
    }
    // What the record says of a file must not reach the disk before the file.
    const auto finish = [&] {
      files_.Sync(target_);
      WriteRecord();
    };
    if (isRecordKnown && now_ != before_) Try(finish);
    return failures_;
  }

 private:
  template <class Step>
  bool Try(Step&& step) {
    try {
      step();
      return true;
    } catch (const PlatformError& error) {
      failures_.push_back(error);
      return false;
    }
  }

  /// Records what `step` gives for a file. When it fails the record stays, so that the next time
  /// takes it up again.
  template <class Step>
  void Follow(const Text& path, Step&& step) {
    std::optional<Entry> entry = Known(path);
    Try([&] { entry = step(); });
    if (entry) now_[path] = *entry;
  }

  std::optional<Entry> Known(const Text& path) const {
    const auto found = before_.find(path);
    return found == before_.end() ? std::nullopt : std::optional(found->second);
  }

  std::uint64_t HashOfFile(TextView path) { return HashOf(ReadWhole(files_, path).Bytes()); }

  Text Source(TextView path) const { return JoinPath(source_, path); }
  Text Target(TextView path) const { return JoinPath(target_, path); }

  void ListFolders(const Text& below) {
    const Text folder = below.empty() ? source_ : Source(below);
    for (const Text& name : files_.FolderNames(folder)) {
      const Text path = below + name + u"\\";
      if (!IsDataPath(path + u"file")) continue;
      for (const Text& file : files_.FileNames(Source(path))) {
        const auto stamp = files_.Stamp(Source(path + file));
        if (stamp && IsPlainName(file)) installed_[path + file] = *stamp;
      }
      ListFolders(path);
    }
  }

  void ReadRecord() {
    const Text path = Target(kInstalledRecord);
    if (!files_.FileExists(path)) return;
    before_ = ParseRecord(ReadWhole(files_, path).Bytes());
  }

  /// A file of no bytes is what a power cut leaves of a new one.
  bool IsThere(const Text& path, const FileStamp& installed) {
    const auto stamp = files_.Stamp(Target(path));
    return stamp && (stamp->Size != 0 || installed.Size == 0);
  }

  bool IsUpToDate() {
    const auto isCurrent = [&](const auto& file) {
      const std::optional<Entry> entry = Known(file.first);
      return entry && entry->Stamp == file.second && IsThere(file.first, file.second);
    };
    return installed_.size() == before_.size() && std::ranges::all_of(installed_, isCurrent);
  }

  Entry Refresh(const Text& path, const FileStamp& stamp) {
    const std::optional<Entry> old = Known(path);
    const bool isNew = !old || old->Stamp != stamp;
    const Entry entry{stamp, isNew ? HashOfFile(Source(path)) : old->Hash};
    const auto isOutdated = [&] {
      return old && old->Hash != entry.Hash && HashOfFile(Target(path)) == old->Hash;
    };
    if (!IsThere(path, stamp) || (isNew && isOutdated())) Copy(path);
    return entry;
  }

  std::optional<Entry> RemoveOld(const Text& path, const Entry& old) {
    const Text file = Target(path);
    if (files_.FileExists(file) && HashOfFile(file) == old.Hash) files_.Remove(file);
    return {};
  }

  void Copy(const Text& path) {
    const Text to = Target(path);
    MakeFolders(files_, to.substr(0, to.rfind(u'\\')));
    CopyOneFile(files_, Source(path), to, NewFile::Later);
  }

  void WriteRecord() { WriteWhole(files_, Target(kInstalledRecord), RecordText(now_)); }

  Files& files_;
  Text source_;
  Text target_;
  Stamps installed_;
  Entries before_;
  Entries now_;
  std::vector<PlatformError> failures_;
};

}  // namespace

std::vector<PlatformError> CopyInstalledData(Files& files, TextView source, TextView target) {
  return Copying(files, source, target).Run();
}

}  // namespace tarvo
