#include "platform/windows/WindowsReplacement.h"

#include <algorithm>

#include "platform/PlatformError.h"
#include "platform/windows/Wide.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

constexpr DWORD kAttributesTakenOver =
    FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

/// What the system says of a file that another program has open. A file that may not be written at
/// all is refused with the second one, but that has shown before.
bool IsHeld(int code) {
  return code == ERROR_SHARING_VIOLATION || code == ERROR_ACCESS_DENIED ||
         code == ERROR_LOCK_VIOLATION || code == ERROR_USER_MAPPED_FILE;
}

/// The path as the disk spells its last name, so that a file keeps its name when it is replaced.
std::wstring AsSpelledOnDisk(const std::wstring& hostPath) {
  WIN32_FIND_DATAW found;
  const HANDLE search = FindFirstFileW(hostPath.c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return hostPath;
  FindClose(search);
  return JoinHostPath(HostFolderOf(hostPath), found.cFileName);
}

}  // namespace

int MoveWhenFree(const std::wstring& from, const std::wstring& to, DWORD flags) {
  const ULONGLONG start = GetTickCount64();
  for (DWORD pause = 1;; pause = std::min<DWORD>(2 * pause, 100)) {
    if (MoveFileExW(from.c_str(), to.c_str(), flags)) return 0;
    const int code = LastSystemError();
    if (!IsHeld(code) || GetTickCount64() - start + pause > 1000) return code;
    Sleep(pause);
  }
}

WindowsReplacement::WindowsReplacement(std::shared_ptr<WindowsState> state, const HostParts& target,
                                       TextView path, NewFile newFile)
    : BufferedReplacement(path), state_(std::move(state)), newFile_(newFile) {
  if (target.EndsInSeparator) Fail(u"replace", ERROR_ACCESS_DENIED);
  FindTarget(target.Path);
  old_ = Standing();
  OpenSibling();
}

void WindowsReplacement::FindTarget(const std::wstring& hostPath) {
  target_ = AsSpelledOnDisk(hostPath);
  if (!IsLink(target_)) return;
  const Handle behind = OpenToLook(target_);
  if (!behind.IsOpen()) Fail(u"replace", LastSystemError());
  const std::wstring place = FinalPath(behind);
  if (place.empty()) Fail(u"replace", LastSystemError());
  target_ = place;
}

/// What stands at the target now; throws when it can't be replaced.
std::optional<FileState> WindowsReplacement::Standing() const {
  const std::optional<FileState> state = StateOf(target_);
  if (!state) {
    const int code = LastSystemError();
    if (code != ERROR_FILE_NOT_FOUND) Fail(u"replace", code);
    return std::nullopt;
  }
  if (state->IsFolder()) Fail(u"replace", ERROR_ACCESS_DENIED);
  if (state->IsReadOnly()) Fail(u"replace", ERROR_ACCESS_DENIED);
  // Renaming would get round a permission that writing into the file needs.
  const Handle file(CreateFileW(target_.c_str(), FILE_WRITE_DATA,
                                FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file.IsOpen() && LastSystemError() == ERROR_ACCESS_DENIED) {
    Fail(u"replace", ERROR_ACCESS_DENIED);
  }
  return state;
}

void WindowsReplacement::OpenSibling() {
  const std::wstring folder = HostFolderOf(target_);
  const std::string name = state_->siblings.Next(NarrowHostPath(folder));
  sibling_ = JoinHostPath(folder, Wide(TextFromUtf8(name)));
  file_ = Handle(CreateFileW(sibling_.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE,
                             nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file_.IsOpen()) {
    const int code = LastSystemError();
    sibling_.clear();
    state_->siblings.Gone();
    Fail(u"replace", code);
  }
}

void WindowsReplacement::WriteOut(FileTextView bytes) {
  constexpr std::size_t kMostAtOnce = 1 << 30;
  while (!bytes.empty()) {
    const auto wanted = static_cast<DWORD>(std::min(bytes.size(), kMostAtOnce));
    DWORD count = 0;
    if (!WriteFile(file_.Get(), bytes.data(), wanted, &count, nullptr)) {
      FailWriting(LastSystemError());
    }
    if (count == 0) FailWriting(ERROR_WRITE_FAULT);
    bytes.remove_prefix(count);
  }
}

/// Brings the sibling to its end, ready to be moved.
void WindowsReplacement::Finish() {
  if (!file_.IsOpen()) return;
  if (IsWaitedFor() && !FlushFileBuffers(file_.Get())) Fail(u"write", LastSystemError());
  file_.Close();
}

void WindowsReplacement::PutInPlace() {
  CheckUnfailed();
  Flush();
  std::optional<FileState> standing = Standing();
  if (standing) old_ = standing;
  Finish();
  int code = 0;
  for (int attempt = 0; attempt < 2; ++attempt) {
    const DWORD marks = old_ ? old_->Attributes & kAttributesTakenOver : 0;
    if (marks != 0 && !SetFileAttributesW(sibling_.c_str(), marks | FILE_ATTRIBUTE_ARCHIVE)) {
      Fail(u"write", LastSystemError());
    }
    const DWORD replacing = standing ? MOVEFILE_REPLACE_EXISTING : 0;
    const DWORD waiting = IsWaitedFor() ? MOVEFILE_WRITE_THROUGH : 0;
    code = MoveWhenFree(sibling_, target_, replacing | waiting);
    if (standing || code != ERROR_ALREADY_EXISTS) break;
    // A file has come to stand there meanwhile: its attributes count.
    standing = Standing();
    if (standing) old_ = standing;
  }
  if (code != 0) Fail(u"replace", code);
}

void WindowsReplacement::Commit() {
  try {
    PutInPlace();
  } catch (...) {
    Drop();
    throw;
  }
  sibling_.clear();
  state_->siblings.Gone();
  if (!IsWaitedFor()) state_->unsynced.insert(target_);
}

void WindowsReplacement::Drop() {
  file_.Close();
  if (sibling_.empty()) return;
  const bool gone = DeleteFileW(sibling_.c_str()) || GetLastError() == ERROR_FILE_NOT_FOUND;
  if (gone) state_->siblings.Gone();
  sibling_.clear();
}

}  // namespace tarvo
