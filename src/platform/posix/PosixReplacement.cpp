#include "platform/posix/PosixReplacement.h"

#include <fcntl.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <limits>

#include "platform/PlatformError.h"
#include "platform/posix/HostPaths.h"
#include "platform/posix/PosixFileReader.h"
#include "platform/posix/RenameFile.h"
#include "platform/posix/SystemCalls.h"

namespace tarvo {
namespace {

constexpr int kMostLinks = 40;

/// Up to here a copy goes through the buffer: a write that is shared with its neighbours costs
/// less than a call of its own.
constexpr std::uint64_t kSmallCopy = 16 * 1024;

std::string LinkTarget(const std::string& link) {
  std::string target(PATH_MAX, '\0');
  const ssize_t length = readlink(link.c_str(), target.data(), target.size());
  target.resize(length < 0 ? 0 : static_cast<std::size_t>(length));
  return target;
}

int Renamed(const std::string& from, const std::string& to) {
  return rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

int Synced(int descriptor) {
  return Uninterrupted([&] { return fsync(descriptor); }) == 0 ? 0 : errno;
}

int SyncedFolder(const std::string& folder) {
  const Descriptor handle = OpenDescriptor(folder, O_RDONLY | O_DIRECTORY);
  return handle.IsOpen() ? Synced(handle.Get()) : errno;
}

/// The names of a file's extended attributes, each with a NUL behind it; nothing, with errno set,
/// when they can't be told.
std::optional<std::string> AttributeNames(const std::string& path) {
  while (true) {
    const ssize_t size = listxattr(path.c_str(), nullptr, 0);
    if (size < 0) return std::nullopt;
    std::string names(static_cast<std::size_t>(size), '\0');
    const ssize_t got = listxattr(path.c_str(), names.data(), names.size());
    if (got < 0 && errno == ERANGE) continue;
    if (got < 0) return std::nullopt;
    names.resize(static_cast<std::size_t>(got));
    return names;
  }
}

/// Gives a file one extended attribute of another; 0, or the code of the failure.
int CopyAttribute(const std::string& from, int to, const char* name) {
  std::string value(64 * 1024, '\0');  // The most that the system lets an attribute hold.
  const ssize_t size = getxattr(from.c_str(), name, value.data(), value.size());
  if (size < 0) return errno == ENODATA ? 0 : errno;
  return fsetxattr(to, name, value.data(), static_cast<std::size_t>(size), 0) == 0 ? 0 : errno;
}

}  // namespace

PosixReplacement::PosixReplacement(std::shared_ptr<PosixState> state, const std::string& hostPath,
                                   TextView path, NewFile newFile)
    : BufferedReplacement(path), state_(std::move(state)), newFile_(newFile) {
  FollowLinks(hostPath);
  old_ = Standing();
  OpenSibling();
}

void PosixReplacement::FollowLinks(const std::string& hostPath) {
  target_ = hostPath;
  if (target_.ends_with('/')) Fail(u"replace", EISDIR);
  struct stat state;
  for (int hops = 0;; ++hops) {
    const bool stands = lstat(target_.c_str(), &state) == 0;
    if (!stands && !SaysNothingThere(errno)) Fail(u"replace", errno);
    if (!stands || !S_ISLNK(state.st_mode)) return;
    if (hops == kMostLinks) Fail(u"replace", ELOOP);
    const std::string next = LinkTarget(target_);
    if (next.empty()) Fail(u"replace", errno);
    target_ = next.front() == '/' ? next : JoinHostPath(HostFolderOf(target_), next);
  }
}

/// What stands at the target now; throws when it can't be replaced.
std::optional<struct stat> PosixReplacement::Standing() const {
  struct stat state;
  if (lstat(target_.c_str(), &state) != 0) {
    if (errno != ENOENT) Fail(u"replace", errno);
    return std::nullopt;
  }
  if (S_ISDIR(state.st_mode)) Fail(u"replace", EISDIR);
  if (!S_ISREG(state.st_mode)) Fail(u"replace", EINVAL);
  if ((state.st_mode & 0222) == 0) Fail(u"replace", EACCES);
  // Renaming would get round a permission that writing into the file needs.
  if (faccessat(AT_FDCWD, target_.c_str(), W_OK, AT_EACCESS) != 0) Fail(u"replace", errno);
  return state;
}

void PosixReplacement::OpenSibling() {
  const std::string folder = HostFolderOf(target_);
  sibling_ = JoinHostPath(folder, state_->siblings.Next(folder));
  // What replaces a private file stays private while it grows.
  const mode_t mode = old_ ? 0600 : 0666;
  file_ = OpenDescriptor(sibling_, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, mode);
  if (!file_.IsOpen()) {
    const int code = errno;
    sibling_.clear();
    state_->siblings.Gone();
    Fail(u"replace", code);
  }
  state_->names.Touched(folder);
}

void PosixReplacement::WriteOut(FileTextView bytes) {
  while (!bytes.empty()) {
    const ssize_t count =
        Uninterrupted([&] { return write(file_.Get(), bytes.data(), bytes.size()); });
    if (count <= 0) FailWriting(count < 0 ? errno : EIO);
    Written(static_cast<std::uint64_t>(count));
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

/// Sends the bytes of a file that is waited for on their way as they come, so that the wait at its
/// end is for the last of them alone. Whether that works shows then.
void PosixReplacement::Written(std::uint64_t bytes) {
  constexpr std::uint64_t kStep = 8 * 1024 * 1024;
  written_ += bytes;
  if (!IsWaitedFor() || written_ - started_ < kStep) return;
  sync_file_range(file_.Get(), static_cast<off64_t>(started_),
                  static_cast<off64_t>(written_ - started_), SYNC_FILE_RANGE_WRITE);
  started_ = written_;
}

std::uint64_t PosixReplacement::CopyFrom(FileReader& source, std::uint64_t position,
                                         std::uint64_t count) {
  CheckUnfailed();
  std::uint64_t copied = 0;
  auto* const file = dynamic_cast<PosixFileReader*>(&source);
  if (file && count > kSmallCopy) {
    Flush();
    copied = CopyInKernel(*file, position, count);
  }
  if (copied == count) return copied;
  // What the kernel leaves over, be it for the file systems' sake, for a failure or for the end
  // of the source, shows its reason here.
  return copied + BufferedReplacement::CopyFrom(source, position + copied, count - copied);
}

/// Gives the bytes copied, which may be fewer than there are.
std::uint64_t PosixReplacement::CopyInKernel(PosixFileReader& source, std::uint64_t position,
                                             std::uint64_t count) {
  constexpr auto kLast = static_cast<std::uint64_t>(std::numeric_limits<off_t>::max());
  constexpr std::uint64_t kMostAtOnce = 1 << 30;
  std::uint64_t copied = 0;
  while (copied < count && position + copied < kLast) {
    auto at = static_cast<off64_t>(position + copied);
    const ssize_t step = copy_file_range(source.Handle(), &at, file_.Get(), nullptr,
                                         std::min(count - copied, kMostAtOnce), 0);
    if (step < 0 && errno == EINTR) continue;
    if (step <= 0) break;
    Written(static_cast<std::uint64_t>(step));
    copied += static_cast<std::uint64_t>(step);
  }
  return copied;
}

/// Gives the sibling owner, mode and extended attributes of the file that it replaces, or less
/// where that isn't allowed.
void PosixReplacement::TakeOver(const struct stat& old) {
  mode_t mode = old.st_mode & 07777;
  const int file = file_.Get();
  const bool isSameOwner = fchown(file, old.st_uid, old.st_gid) == 0;
  if (!isSameOwner) {
    mode &= 01777;
    // The group's rights were meant for another group.
    if (fchown(file, static_cast<uid_t>(-1), old.st_gid) != 0) mode &= ~070u | ((mode & 7u) << 3);
  }
  if (fchmod(file, mode) != 0) Fail(u"write", errno);
  TakeOverAttributes(isSameOwner);
}

/// What the system keeps in attributes, rights among them, was meant for the old owner. Attributes
/// of others than users may be for administrators alone to set.
void PosixReplacement::TakeOverAttributes(bool isSameOwner) {
  const std::optional<std::string> names = AttributeNames(target_);
  if (!names && errno != ENOTSUP && errno != ENOENT) Fail(u"write", errno);
  if (!names) return;
  for (std::size_t at = 0; at < names->size(); at = names->find('\0', at) + 1) {
    const std::string_view name = names->c_str() + at;
    const bool isUsers = name.starts_with("user.");
    if (!isUsers && !isSameOwner) continue;
    const int code = CopyAttribute(target_, file_.Get(), name.data());
    if (code != 0 && code != ENOTSUP && (isUsers || code != EPERM)) Fail(u"write", code);
  }
}

/// Brings the sibling to its end, ready to be renamed.
void PosixReplacement::Finish() {
  if (old_) TakeOver(*old_);
  if (IsWaitedFor()) {
    if (const int code = Synced(file_.Get())) Fail(u"write", code);
  }
  if (const int code = file_.Close()) Fail(u"write", code);
}

void PosixReplacement::PutInPlace() {
  CheckUnfailed();
  Flush();
  std::optional<struct stat> standing = Standing();
  if (standing) old_ = standing;
  Finish();
  int code = standing ? Renamed(sibling_, target_) : RenameWithoutReplacing(sibling_, target_);
  if (!standing && code == EEXIST) {
    // A file has come to stand there meanwhile: its mode and owner count.
    file_ = OpenDescriptor(sibling_, O_WRONLY | O_NOFOLLOW);
    if (!file_.IsOpen()) Fail(u"replace", errno);
    standing = Standing();
    if (standing) old_ = standing;
    Finish();
    code = Renamed(sibling_, target_);
  }
  if (code != 0) Fail(u"replace", code);
}

void PosixReplacement::Commit() {
  try {
    PutInPlace();
  } catch (...) {
    Drop();
    throw;
  }
  sibling_.clear();
  state_->siblings.Gone();
  const std::string folder = HostFolderOf(target_);
  state_->names.Added(folder, HostNameOf(target_));
  if (IsWaitedFor()) SyncFolders();
}

/// Brings the file's name to the disk, and those of the folders above it that are new. Should that
/// fail where an old file was replaced, a power cut may bring it back, whole; where there was none
/// the user's only copy may go, so that is a failure though the file stands.
void PosixReplacement::SyncFolders() {
  std::string folder = HostFolderOf(target_);
  int code = SyncedFolder(folder);
  while (code == 0 && state_->newFolders.erase(folder) > 0) {
    folder = HostFolderOf(folder);
    code = SyncedFolder(folder);
  }
  // Some file systems know no such thing.
  if (code != 0 && code != EINVAL && !old_) Fail(u"sync", code);
}

void PosixReplacement::Drop() {
  file_.Close();
  if (sibling_.empty()) return;
  const bool gone = unlink(sibling_.c_str()) == 0 || errno == ENOENT;
  if (gone) state_->siblings.Gone();
  state_->names.Touched(HostFolderOf(sibling_));
  sibling_.clear();
}

}  // namespace tarvo
