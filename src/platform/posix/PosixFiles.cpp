#include "platform/posix/PosixFiles.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include "platform/PlatformError.h"
#include "platform/posix/Descriptor.h"
#include "platform/posix/HostPaths.h"
#include "platform/posix/PosixFileReader.h"
#include "platform/posix/RenameFile.h"
#include "platform/posix/SystemCalls.h"
#include "text/LetterCase.h"

namespace tarvo {
namespace {

constexpr mode_t kWriteBits = 0222;

[[noreturn]] void Fail(TextView operation, TextView path, int code) {
  throw PlatformError(Text(operation), Text(path), code);
}

/// What stands at a path, links followed. Throws when there is nothing.
struct stat Look(const std::string& hostPath, TextView path) {
  struct stat state;
  if (stat(hostPath.c_str(), &state) != 0) Fail(u"look at", path, errno);
  return state;
}

bool EndsInSeparator(TextView path) {
  return !path.empty() && (path.back() == u'\\' || path.back() == u'/');
}

mode_t CurrentMask() {
  const mode_t mask = umask(077);
  umask(mask);
  return mask;
}

/// The mode of a file that was read-only: writing for its owner, and for group and others where
/// they may read and the mask leaves it.
mode_t Writable(mode_t mode) {
  const mode_t readers = mode & 0044;
  return mode | S_IWUSR | ((readers >> 1) & ~CurrentMask());
}

/// True when both paths are names of one and the same file, as they are in a folder of the host
/// that ignores case itself.
bool IsSameFile(const std::string& a, const std::string& b) {
  struct stat stateA;
  struct stat stateB;
  if (a == b) return true;
  if (lstat(a.c_str(), &stateA) != 0 || lstat(b.c_str(), &stateB) != 0) return false;
  return stateA.st_dev == stateB.st_dev && stateA.st_ino == stateB.st_ino && stateA.st_nlink == 1;
}

}  // namespace

/// What stands at a path, links followed; false when there is nothing. Most paths are spelled as
/// the disk spells them, so that is tried before any name is looked up.
bool PosixFiles::StateOf(TextView path, struct stat& state) {
  const std::optional<std::string> spelled = SpelledHostPath(path);
  if (spelled && stat(spelled->c_str(), &state) == 0) return true;
  const std::optional<HostParts> parts = SplitGamePath(path);
  if (!parts) return false;
  if (stat(state_->names.Resolve("/", parts->Names).c_str(), &state) == 0) return true;
  if (!SaysNothingThere(errno)) Fail(u"look at", path, errno);
  return false;
}

/// The host's path of a file. What ends in a separator keeps it, so that the system refuses files.
std::string PosixFiles::FilePath(TextView operation, TextView path) {
  struct stat state;
  std::optional<std::string> spelled = SpelledHostPath(path);
  if (spelled && lstat(spelled->c_str(), &state) == 0) return std::move(*spelled);
  const std::optional<HostParts> parts = SplitGamePath(path);
  if (!parts) Fail(operation, path, ENOENT);
  const std::string host = state_->names.Resolve("/", parts->Names);
  return parts->EndsInSeparator ? JoinHostPath(host, "") : host;
}

std::string PosixFiles::FolderPath(TextView operation, TextView path) {
  const std::optional<HostParts> parts = SplitGamePath(path);
  if (!parts) Fail(operation, path, ENOENT);
  return state_->names.Resolve("/", parts->Names);
}

bool PosixFiles::FileExists(TextView path) {
  struct stat state;
  return !EndsInSeparator(path) && StateOf(path, state) && S_ISREG(state.st_mode);
}

bool PosixFiles::FolderExists(TextView path) {
  struct stat state;
  return StateOf(path, state) && S_ISDIR(state.st_mode);
}

std::optional<FileStamp> PosixFiles::Stamp(TextView path) {
  struct stat state;
  if (EndsInSeparator(path) || !StateOf(path, state) || !S_ISREG(state.st_mode)) return {};
  constexpr std::int64_t kNanoseconds = 1'000'000'000;
  return FileStamp{static_cast<std::uint64_t>(state.st_size),
                   state.st_ctim.tv_sec * kNanoseconds + state.st_ctim.tv_nsec};
}

std::uint64_t PosixFiles::FileSize(TextView path) {
  const struct stat state = Look(FilePath(u"look at", path), path);
  if (S_ISDIR(state.st_mode)) Fail(u"look at", path, EISDIR);
  return static_cast<std::uint64_t>(state.st_size);
}

unsigned PosixFiles::Attributes(TextView path) {
  const struct stat state = Look(FolderPath(u"look at", path), path);
  return (state.st_mode & kWriteBits) == 0 ? kReadOnlyFile : kNormalFile;
}

void PosixFiles::SetAttributes(TextView path, unsigned attributes) {
  const std::string host = FilePath(u"look at", path);
  const struct stat state = Look(host, path);
  if (S_ISDIR(state.st_mode)) Fail(u"change", path, EISDIR);
  const bool isReadOnly = (state.st_mode & kWriteBits) == 0;
  const bool wanted = (attributes & kReadOnlyFile) != 0;
  if (isReadOnly == wanted) return;
  const mode_t mode = state.st_mode & 07777;
  if (chmod(host.c_str(), wanted ? mode & ~kWriteBits : Writable(mode)) != 0) {
    Fail(u"change", path, errno);
  }
}

std::unique_ptr<FileReader> PosixFiles::Open(TextView path) {
  const std::optional<std::string> spelled = SpelledHostPath(path);
  Descriptor file = spelled ? PosixFileReader::TryOpen(*spelled) : Descriptor();
  if (!file.IsOpen()) file = PosixFileReader::TryOpen(FilePath(u"open", path));
  return std::make_unique<PosixFileReader>(std::move(file), path);
}

std::unique_ptr<FileReplacement> PosixFiles::Replace(TextView path, NewFile newFile) {
  return std::make_unique<PosixReplacement>(state_, FilePath(u"replace", path), path, newFile);
}

void PosixFiles::MakeEmptyFile(TextView path) {
  const std::string host = FilePath(u"write", path);
  struct stat state;
  if (stat(host.c_str(), &state) == 0) {
    if (S_ISDIR(state.st_mode)) Fail(u"write", path, EISDIR);
    return;
  }
  Descriptor file = OpenDescriptor(host, O_WRONLY | O_CREAT, 0666);
  if (!file.IsOpen()) Fail(u"write", path, errno);
  if (const int code = file.Close()) Fail(u"write", path, code);
  state_->names.Added(HostFolderOf(host), HostNameOf(host));
}

void PosixFiles::MakeFolder(TextView path) {
  const std::string host = FolderPath(u"make folder", path);
  if (mkdir(host.c_str(), 0777) != 0) Fail(u"make folder", path, errno);
  state_->names.Added(HostFolderOf(host), HostNameOf(host));
  state_->newFolders.insert(host);
}

void PosixFiles::RemoveFolder(TextView path) {
  const std::string host = FolderPath(u"delete folder", path);
  struct stat state;
  if (lstat(host.c_str(), &state) != 0) Fail(u"delete folder", path, errno);
  const bool isLink = S_ISLNK(state.st_mode);
  if (isLink && !FolderExists(path)) Fail(u"delete folder", path, ENOTDIR);
  if ((isLink ? unlink(host.c_str()) : rmdir(host.c_str())) != 0) {
    Fail(u"delete folder", path, errno);
  }
  state_->names.Removed(HostFolderOf(host), HostNameOf(host));
}

Text PosixFiles::RealPath(TextView path) {
  const std::string host = FolderPath(u"look at", path);
  const std::unique_ptr<char, void (*)(void*)> real(realpath(host.c_str(), nullptr), std::free);
  if (!real) Fail(u"look at", path, errno);
  Text told = GamePathOf(real.get());
  if (told.empty()) Fail(u"look at", path, EINVAL);
  return told;
}

void PosixFiles::Sync(TextView folder) {
  const std::string host = FolderPath(u"sync", folder);
  const Descriptor handle = OpenDescriptor(host, O_RDONLY | O_DIRECTORY);
  if (!handle.IsOpen() || Uninterrupted([&] { return syncfs(handle.Get()); }) != 0) {
    Fail(u"sync", folder, errno);
  }
}

void PosixFiles::Rename(TextView from, TextView to) {
  const std::string source = FilePath(u"rename", from);
  struct stat state;
  if (lstat(source.c_str(), &state) != 0) Fail(u"rename", from, errno);
  if (stat(source.c_str(), &state) == 0 && S_ISDIR(state.st_mode)) Fail(u"rename", from, EISDIR);
  std::string target = FilePath(u"rename", to);
  int code = 0;
  if (IsSameFile(source, target)) {
    // Found without regard to case: what stands there is the file itself.
    target = JoinHostPath(HostFolderOf(source), SplitGamePath(to)->Names.back());
    code = rename(source.c_str(), target.c_str()) == 0 ? 0 : errno;
  } else {
    code = RenameWithoutReplacing(source, target);
  }
  if (code == EEXIST) Fail(u"rename", to, code);
  if (code != 0) Fail(u"rename", from, code);
  state_->names.Removed(HostFolderOf(source), HostNameOf(source));
  state_->names.Added(HostFolderOf(target), HostNameOf(target));
}

}  // namespace tarvo
