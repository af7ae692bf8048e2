#include "platform/posix/NameLookup.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <memory>

#include "platform/PlatformError.h"
#include "platform/posix/HostPaths.h"
#include "platform/posix/SystemCalls.h"
#include "text/LetterCase.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

constexpr std::size_t kFoldersKept = 8;

/// Longer than a tick of any file system's clock but those that count in seconds.
constexpr auto kTick = std::chrono::milliseconds(50);

constexpr auto kLongestTrust = std::chrono::milliseconds(500);

[[noreturn]] void Fail(TextView operation, const std::string& hostPath) {
  throw PlatformError(Text(operation), GamePathOf(hostPath), errno);
}

bool Stands(const std::string& hostPath) {
  struct stat state;
  if (lstat(hostPath.c_str(), &state) == 0) return true;
  if (!SaysNothingThere(errno)) Fail(u"look at", hostPath);
  return false;
}

bool SameTime(const timespec& a, const timespec& b) {
  return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

bool LongAgo(const timespec& time) {
  const auto since = std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
  return std::chrono::system_clock::now().time_since_epoch() - since > kTick;
}

Text Folded(const std::string& name) {
  return FoldCase(TextFromUtf8(name));
}

}  // namespace

std::string NameLookup::Resolve(const std::string& root, const std::vector<std::string>& parts) {
  return ResolveFirst(root, parts, parts.size());
}

std::string NameLookup::ResolveFirst(const std::string& root, const std::vector<std::string>& parts,
                                     std::size_t count) {
  if (count == 0) return root;
  std::string exact = root;
  for (std::size_t i = 0; i < count; ++i) exact = JoinHostPath(exact, parts[i]);
  if (Stands(exact)) return exact;
  const std::string folder = ResolveFirst(root, parts, count - 1);
  return JoinHostPath(folder, Find(folder, parts[count - 1]));
}

std::string NameLookup::Find(const std::string& folder, const std::string& name) {
  if (Stands(JoinHostPath(folder, name))) return name;
  const Text folded = Folded(name);
  for (int attempt = 0; attempt < 2; ++attempt) {
    Folder* const names = Current(folder);
    if (!names) return name;
    const auto found = names->Names.lower_bound({folded, {}});
    if (found == names->Names.end() || found->first != folded) return name;
    if (Stands(JoinHostPath(folder, found->second))) return found->second;
    folders_.pop_front();
  }
  return name;
}

NameLookup::Folder* NameLookup::Current(const std::string& folder) {
  struct stat state;
  if (stat(folder.c_str(), &state) != 0) {
    if (!SaysNothingThere(errno)) Fail(u"look at", folder);
    return nullptr;
  }
  if (!S_ISDIR(state.st_mode)) return nullptr;
  const auto kept = Kept(state);
  if (kept != folders_.end()) {
    folders_.splice(folders_.begin(), folders_, kept);
    Folder& names = folders_.front();
    const auto trust = std::min<std::chrono::nanoseconds>(20 * names.ReadFor, kLongestTrust);
    const bool fresh = names.Settled || std::chrono::steady_clock::now() - names.ReadAt < trust;
    if (fresh && SameTime(names.Changed, state.st_mtim)) return &names;
    folders_.pop_front();
  }
  return Read(folder, state);
}

NameLookup::Folder* NameLookup::Read(const std::string& folder, const struct stat& state) {
  const auto start = std::chrono::steady_clock::now();
  // The time of change was taken before the names: what comes in between shows at the next call.
  const bool settled = LongAgo(state.st_mtim);
  const OpenFolder stream(folder);
  if (!stream.IsOpen()) {
    if (!SaysNothingThere(errno)) Fail(u"list", folder);
    return nullptr;
  }
  Folder names{state.st_dev, state.st_ino, state.st_mtim, settled, start, {}, {}};
  while (const dirent* entry = stream.Next()) {
    const std::string name = entry->d_name;
    if (name != "." && name != "..") names.Names.emplace(Folded(name), name);
  }
  if (errno != 0) Fail(u"list", folder);
  names.ReadFor = std::chrono::steady_clock::now() - start;
  folders_.push_front(std::move(names));
  if (folders_.size() > kFoldersKept) folders_.pop_back();
  return &folders_.front();
}

std::list<NameLookup::Folder>::iterator NameLookup::Kept(const struct stat& state) {
  return std::find_if(folders_.begin(), folders_.end(), [&](const Folder& folder) {
    return folder.Device == state.st_dev && folder.Inode == state.st_ino;
  });
}

NameLookup::Folder* NameLookup::Restamp(const std::string& folder) {
  struct stat state;
  if (folders_.empty() || stat(folder.c_str(), &state) != 0) return nullptr;
  const auto kept = Kept(state);
  if (kept == folders_.end()) return nullptr;
  kept->Changed = state.st_mtim;
  kept->Settled = false;
  return &*kept;
}

void NameLookup::Added(const std::string& folder, const std::string& name) {
  if (Folder* const names = Restamp(folder)) names->Names.emplace(Folded(name), name);
}

void NameLookup::Removed(const std::string& folder, const std::string& name) {
  if (Folder* const names = Restamp(folder)) names->Names.erase({Folded(name), name});
}

void NameLookup::Touched(const std::string& folder) {
  Restamp(folder);
}

}  // namespace tarvo
