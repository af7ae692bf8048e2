#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <memory>

#include "platform/NameLists.h"
#include "platform/PlatformError.h"
#include "platform/posix/HostPaths.h"
#include "platform/posix/PosixFiles.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

/// True for an entry of the wanted kind; links count as what they lead to.
bool IsOfKind(DIR* stream, const dirent& entry, bool folders) {
  if (entry.d_type == DT_DIR) return folders;
  if (entry.d_type == DT_REG) return !folders;
  if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return false;
  struct stat state;
  if (fstatat(dirfd(stream), entry.d_name, &state, 0) != 0) return false;
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
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(opendir(host.c_str()), closedir);
  if (!stream) throw PlatformError(u"list", Text(path), errno);
  std::vector<std::string> names;
  errno = 0;
  while (const dirent* entry = readdir(stream.get())) {
    if (IsShown(entry->d_name) && IsOfKind(stream.get(), *entry, folders)) {
      names.emplace_back(entry->d_name);
    }
    errno = 0;
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

void PosixFiles::Remove(TextView pathOrPattern) {
  const std::size_t separator = pathOrPattern.find_last_of(u"\\/");
  const std::size_t nameAt = separator == TextView::npos ? 0 : separator + 1;
  if (pathOrPattern.find_first_of(u"*?", nameAt) == TextView::npos) {
    RemoveFile(FilePath(u"delete", pathOrPattern), pathOrPattern);
  } else {
    RemoveMatching(pathOrPattern, nameAt);
  }
}

/// Nothing goes when one of the files is read-only.
void PosixFiles::RemoveMatching(TextView pattern, std::size_t nameAt) {
  const TextView folder = pattern.substr(0, nameAt);
  const std::string host = FolderPath(u"delete", folder);
  std::vector<std::string> paths;
  try {
    for (const std::string& name : Listed(folder, false)) {
      if (!MatchesPattern(TextFromUtf8(name), pattern.substr(nameAt))) continue;
      paths.push_back(JoinHostPath(host, name));
    }
  } catch (const PlatformError& error) {
    throw PlatformError(u"delete", Text(pattern), error.Code);
  }
  if (paths.empty()) throw PlatformError(u"delete", Text(pattern), ENOENT);
  for (const std::string& path : paths) CheckDeletable(path, pattern);
  for (const std::string& path : paths) RemoveFile(path, pattern);
}

void PosixFiles::RemoveFile(const std::string& hostPath, TextView path) {
  CheckDeletable(hostPath, path);
  if (unlink(hostPath.c_str()) != 0) throw PlatformError(u"delete", Text(path), errno);
  state_->names.Removed(HostFolderOf(hostPath), HostNameOf(hostPath));
}

}  // namespace tarvo
