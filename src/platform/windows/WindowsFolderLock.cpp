#include "platform/windows/WindowsFolderLock.h"

#include "platform/PlatformError.h"
#include "platform/windows/FileState.h"
#include "platform/windows/HostPaths.h"
#include "platform/windows/Wide.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

std::wstring LockPath(const std::wstring& folder) {
  return JoinHostPath(folder, Wide(TextFromUtf8(kLockName)));
}

Handle Opened(const std::wstring& path, DWORD disposition) {
  return Handle(CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, kShareAll, nullptr,
                            disposition, FILE_ATTRIBUTE_HIDDEN, nullptr));
}

/// Gives 0, or the code of the failure: ERROR_LOCK_VIOLATION when another one has the lock.
int Locked(const Handle& file) {
  OVERLAPPED place{};
  place.Offset = static_cast<DWORD>(kLockedByte);
  const DWORD flags = LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY;
  if (LockFileEx(file.Get(), flags, 0, 1, 0, &place)) return 0;
  const int code = LastSystemError();
  return code == ERROR_IO_PENDING ? ERROR_LOCK_VIOLATION : code;
}

/// True when the open file is the one that stands at the path.
bool StandsAt(const Handle& file, const std::wstring& path) {
  const Handle named = OpenToLook(path);
  BY_HANDLE_FILE_INFORMATION a;
  BY_HANDLE_FILE_INFORMATION b;
  return named.IsOpen() && GetFileInformationByHandle(file.Get(), &a) &&
         GetFileInformationByHandle(named.Get(), &b) &&
         a.dwVolumeSerialNumber == b.dwVolumeSerialNumber && a.nFileIndexHigh == b.nFileIndexHigh &&
         a.nFileIndexLow == b.nFileIndexLow;
}

Text HolderOf(const Handle& file) {
  char words[256];
  DWORD count = 0;
  if (!ReadFile(file.Get(), words, sizeof words, &count, nullptr)) return {};
  return TextFromUtf8({words, count});
}

/// The words are a courtesy: on a full disk there are none.
void WriteHolder(const Handle& file, TextView purpose) {
  const std::string words = Utf8FromText(purpose);
  DWORD written = 0;
  if (!SetEndOfFile(file.Get())) return;
  WriteFile(file.Get(), words.data(), static_cast<DWORD>(words.size()), &written, nullptr);
}

bool Delete(const Handle& file) {
  FILE_DISPOSITION_INFO gone{TRUE};
  return SetFileInformationByHandle(file.Get(), FileDispositionInfo, &gone, sizeof gone);
}

}  // namespace

LockAttempt WindowsFolderLock::Try(std::shared_ptr<WindowsState> state, const std::wstring& folder,
                                   TextView path, TextView purpose) {
  const std::wstring lockPath = LockPath(folder);
  state->siblings.NoteLock(NarrowHostPath(folder));
  const auto busy = [&](Text holder) {
    state->siblings.Gone();
    return LockAttempt{nullptr, std::move(holder)};
  };
  const auto fail = [&](int code) {
    state->siblings.Gone();
    throw PlatformError(u"lock", Text(path), code);
  };
  Handle file = Opened(lockPath, OPEN_ALWAYS);
  if (!file.IsOpen()) {
    const int code = LastSystemError();
    // A lock that is being deleted stands, and can't be opened.
    const bool stands = StateOf(lockPath) || !SaysNothingThere(LastSystemError());
    if (code == ERROR_ACCESS_DENIED && stands) return busy({});
    fail(code);
  }
  const int code = Locked(file);
  if (code == ERROR_LOCK_VIOLATION) return busy(HolderOf(file));
  if (code != 0) fail(code);
  // Whoever held it before may have deleted the file after it was opened here.
  if (!StandsAt(file, lockPath)) return busy({});
  WriteHolder(file, purpose);
  return {std::make_unique<WindowsFolderLock>(std::move(state), std::move(file)), {}};
}

WindowsFolderLock::~WindowsFolderLock() {
  // Deleted while it is locked: whoever opens it from now on makes a file of his own.
  if (Delete(file_)) state_->siblings.Gone();
}

bool WindowsFolderLock::RemoveAbandoned(const std::wstring& folder) {
  const std::wstring lockPath = LockPath(folder);
  const Handle file = Opened(lockPath, OPEN_EXISTING);
  if (!file.IsOpen()) return SaysNothingThere(LastSystemError());
  return Locked(file) != 0 || !StandsAt(file, lockPath) || Delete(file);
}

}  // namespace tarvo
