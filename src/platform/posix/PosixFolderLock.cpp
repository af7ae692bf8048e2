#include "platform/posix/PosixFolderLock.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/PlatformError.h"
#include "platform/posix/HostPaths.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/SystemCalls.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

std::string LockPath(const std::string& folder) {
  return JoinHostPath(folder, kLockName);
}

/// Gives 0, or the code of the failure: EAGAIN when another one has the lock.
int Locked(int descriptor) {
  struct flock range {};
  range.l_type = F_WRLCK;
  range.l_whence = SEEK_SET;
  range.l_start = kLockedByte;
  range.l_len = 1;
  if (Uninterrupted([&] { return fcntl(descriptor, F_OFD_SETLK, &range); }) == 0) return 0;
  return errno == EACCES ? EAGAIN : errno;
}

Text HolderOf(int descriptor) {
  char words[256];
  const ssize_t count = Uninterrupted([&] { return pread(descriptor, words, sizeof words, 0); });
  return count <= 0 ? Text() : TextFromUtf8({words, static_cast<std::size_t>(count)});
}

/// The words are a courtesy: on a full disk there are none.
void WriteHolder(int descriptor, TextView purpose) {
  const std::string words = Utf8FromText(purpose);
  if (Uninterrupted([&] { return ftruncate(descriptor, 0); }) != 0) return;
  [[maybe_unused]] const ssize_t written =
      Uninterrupted([&] { return pwrite(descriptor, words.data(), words.size(), 0); });
}

}  // namespace

bool StandsAt(int descriptor, const std::string& hostPath) {
  struct stat open;
  struct stat named;
  return fstat(descriptor, &open) == 0 && lstat(hostPath.c_str(), &named) == 0 &&
         open.st_dev == named.st_dev && open.st_ino == named.st_ino;
}

LockAttempt PosixFolderLock::Try(std::shared_ptr<PosixState> state, const std::string& folder,
                                 TextView path, TextView purpose) {
  const std::string hostPath = LockPath(folder);
  state->siblings.NoteLock(folder);
  const auto fail = [&](int code) {
    state->siblings.Gone();
    throw PlatformError(u"lock", Text(path), code);
  };
  for (int attempt = 0; attempt < 100; ++attempt) {
    Descriptor file = OpenDescriptor(hostPath, O_RDWR | O_CREAT | O_NOFOLLOW, 0666);
    if (!file.IsOpen()) fail(errno);
    const int code = Locked(file.Get());
    if (code == EAGAIN) {
      state->siblings.Gone();
      return {nullptr, HolderOf(file.Get())};
    }
    if (code != 0) fail(code);
    // Whoever held it before may have deleted the file after it was opened here.
    if (!StandsAt(file.Get(), hostPath)) continue;
    fchmod(file.Get(), 0666);  // Another user who shares the folder is to be able to wait for it.
    WriteHolder(file.Get(), purpose);
    return {std::make_unique<PosixFolderLock>(std::move(state), std::move(file), hostPath), {}};
  }
  state->siblings.Gone();
  return {};
}

PosixFolderLock::~PosixFolderLock() {
  // Deleted while it is locked: whoever opens it from now on makes a file of his own.
  if (unlink(hostPath_.c_str()) == 0 || errno == ENOENT) state_->siblings.Gone();
}

bool PosixFolderLock::RemoveAbandoned(const std::string& folder) {
  const std::string hostPath = LockPath(folder);
  const Descriptor file = OpenDescriptor(hostPath, O_RDWR | O_NOFOLLOW);
  if (!file.IsOpen()) return SaysNothingThere(errno);
  if (Locked(file.Get()) != 0 || !StandsAt(file.Get(), hostPath)) return true;
  return unlink(hostPath.c_str()) == 0 || errno == ENOENT;
}

LockAttempt PosixFiles::TryLock(TextView folder, TextView purpose) {
  return PosixFolderLock::Try(state_, FolderPath(u"lock", folder), folder, purpose);
}

}  // namespace tarvo
