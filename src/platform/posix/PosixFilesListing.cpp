#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/NameLists.h"
#include "platform/PlatformError.h"
#include "platform/posix/HostPaths.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/SystemCalls.h"
#include "text/Paths.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

/// True for an entry of the wanted kind; links count as what they lead to, and are of neither kind
/// where they lead nowhere or round in a circle. What else keeps one from being looked at is
/// thrown.
bool IsOfKind(const OpenFolder& stream, const dirent& entry, bool folders, TextView path) {
  if (entry.d_type == DT_DIR) return folders;
  if (entry.d_type == DT_REG) return !folders;
  if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return false;
  struct stat state;
  if (fstatat(stream.Handle(), entry.d_name, &state, 0) != 0) {
    if (SaysNothingThere(errno) || errno == ELOOP) return false;
    throw PlatformError(u"look at", JoinPath(path, TextFromUtf8(entry.d_name)), errno);
  }
  return folders ? S_ISDIR(state.st_mode) : S_ISREG(state.st_mode);
}

/// True for names that game paths can tell and that aren't our own temporaries.
bool IsShown(std::string_view name) {
  if (name == "." || name == ".." || Siblings::IsSibling(name)) return false;
  return name.find('\\') == std::string_view::npos;
}

/// Throws unless a file stands there that isn't read-only, or a link that leads nowhere.
void CheckDeletable(const std::string& hostPath, TextView path) {
  struct stat state;
  if (lstat(hostPath.c_str(), &state) != 0) throw PlatformError(u"delete", Text(path), errno);
  if (S_ISLNK(state.st_mode) && stat(hostPath.c_str(), &state) != 0) return;
  if (S_ISDIR(state.st_mode)) throw PlatformError(u"delete", Text(path), EISDIR);
  if ((state.st_mode & 0222) == 0) throw PlatformError(u"delete", Text(path), EACCES);
}

}  // namespace

/// The names in a folder, in the bytes of the host and in no order.
std::vector<std::string> PosixFiles::Listed(TextView path, bool folders) {
  const std::string host = FolderPath(u"list", path);
  const OpenFolder stream(host);
  if (!stream.IsOpen()) throw PlatformError(u"list", Text(path), errno);
  std::vector<std::string> names;
  while (const dirent* entry = stream.Next()) {
    if (IsShown(entry->d_name) && IsOfKind(stream, *entry, folders, path)) {
      names.emplace_back(entry->d_name);
    }
  }
  if (errno != 0) throw PlatformError(u"list", Text(path), errno);
  return names;
}

std::vector<Text> PosixFiles::FileNames(TextView folder, TextView pattern) {
  std::vector<Text> names;
  for (const std::string& entry : Listed(folder, false)) {
    Text name = TextFromUtf8(entry);
    if (MatchesAnyPattern(name, pattern)) names.push_back(std::move(name));
  }
  return SortedNames(std::move(names));
}

std::vector<Text> PosixFiles::FolderNames(TextView folder) {
  std::vector<Text> names;
  for (const std::string& entry : Listed(folder, true)) names.push_back(TextFromUtf8(entry));
  return SortedNames(std::move(names));
}

void PosixFiles::Remove(TextView path) {
  const std::string host = FilePath(u"delete", path);
  CheckDeletable(host, path);
  if (unlink(host.c_str()) != 0) throw PlatformError(u"delete", Text(path), errno);
  state_->names.Removed(HostFolderOf(host), HostNameOf(host));
}

}  // namespace tarvo
