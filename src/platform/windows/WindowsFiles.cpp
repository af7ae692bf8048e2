#include "platform/windows/WindowsFiles.h"

#include "platform/HostMachine.h"
#include "platform/PlatformError.h"
#include "platform/windows/HostPaths.h"
#include "platform/windows/WindowsFileReader.h"
#include "platform/windows/WindowsFolderLock.h"

namespace tarvo {
namespace {

constexpr DWORD kMarks = kReadOnlyFile | kHiddenFile | kSystemFile | kArchiveFile;
static_assert(kMarks == (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                         FILE_ATTRIBUTE_ARCHIVE));

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

[[noreturn]] void Fail(TextView operation, TextView path, int code = LastSystemError()) {
  throw PlatformError(Text(operation), Text(path), code);
}

HostParts PartsOf(TextView operation, TextView path) {
  std::optional<HostParts> parts = SplitGamePath(path);
  if (!parts) Fail(operation, path, ERROR_INVALID_NAME);
  return std::move(*parts);
}

/// The host's path of what may not be a folder.
std::wstring FilePath(TextView operation, TextView path) {
  const HostParts parts = PartsOf(operation, path);
  if (parts.EndsInSeparator) Fail(operation, path, ERROR_INVALID_NAME);
  return parts.Path;
}

std::wstring FolderPath(TextView operation, TextView path) {
  return PartsOf(operation, path).Path;
}

/// What stands at a path. Throws when there is nothing.
FileState Look(TextView path) {
  const std::optional<FileState> state = StateOf(FolderPath(u"look at", path));
  if (!state) Fail(u"look at", path);
  return *state;
}

/// What stands at a path; nothing where nothing does.
std::optional<FileState> Standing(TextView path) {
  const std::optional<HostParts> parts = SplitGamePath(path);
  if (!parts) return std::nullopt;
  const std::optional<FileState> state = StateOf(parts->Path);
  if (!state && !SaysNothingThere(LastSystemError())) Fail(u"look at", path);
  return state;
}

std::optional<FileState> FileAt(TextView path) {
  const bool endsInSeparator = path.ends_with(u'\\') || path.ends_with(u'/');
  const std::optional<FileState> state = endsInSeparator ? std::nullopt : Standing(path);
  return state && !state->IsFolder() ? state : std::nullopt;
}

}  // namespace

std::unique_ptr<Files> OpenFiles(std::string journalFolder) {
  return std::make_unique<WindowsFiles>(std::vector{std::move(journalFolder)});
}

WindowsFiles::WindowsFiles(std::vector<std::string> journalFolders)
    : state_(std::make_shared<WindowsState>(std::move(journalFolders))) {}

bool WindowsFiles::FileExists(TextView path) {
  return FileAt(path).has_value();
}

bool WindowsFiles::FolderExists(TextView path) {
  const std::optional<FileState> state = Standing(path);
  return state && state->IsFolder();
}

std::optional<FileStamp> WindowsFiles::Stamp(TextView path) {
  const std::optional<FileState> state = FileAt(path);
  return state ? std::optional(FileStamp{state->Size, state->Changed}) : std::nullopt;
}

std::uint64_t WindowsFiles::FileSize(TextView path) {
  const FileState state = Look(path);
  if (state.IsFolder()) Fail(u"look at", path, ERROR_ACCESS_DENIED);
  return state.Size;
}

unsigned WindowsFiles::Attributes(TextView path) {
  return Look(path).Attributes & kMarks;
}

void WindowsFiles::SetAttributes(TextView path, unsigned attributes) {
  const std::wstring host = FilePath(u"change", path);
  const std::optional<FileState> state = StateOf(host);
  if (!state) Fail(u"look at", path);
  if (state->IsFolder()) Fail(u"change", path, ERROR_ACCESS_DENIED);
  const DWORD marks = attributes & kMarks;
  if (!SetFileAttributesW(host.c_str(), marks == 0 ? FILE_ATTRIBUTE_NORMAL : marks)) {
    Fail(u"change", path);
  }
}

std::unique_ptr<FileReader> WindowsFiles::Open(TextView path) {
  return std::make_unique<WindowsFileReader>(FilePath(u"open", path), path);
}

std::unique_ptr<FileReplacement> WindowsFiles::Replace(TextView path, NewFile newFile) {
  return std::make_unique<WindowsReplacement>(state_, PartsOf(u"replace", path), path, newFile);
}

void WindowsFiles::MakeEmptyFile(TextView path) {
  const std::wstring host = FilePath(u"write", path);
  if (const std::optional<FileState> state = StateOf(host)) {
    if (state->IsFolder()) Fail(u"write", path, ERROR_ACCESS_DENIED);
    return;
  }
  const Handle file(CreateFileW(host.c_str(), GENERIC_WRITE, kShareAll, nullptr, OPEN_ALWAYS,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file.IsOpen()) Fail(u"write", path);
}

void WindowsFiles::MakeFolder(TextView path) {
  const std::wstring host = FolderPath(u"make folder", path);
  if (!CreateDirectoryW(host.c_str(), nullptr)) Fail(u"make folder", path);
}

void WindowsFiles::RemoveFolder(TextView path) {
  const std::wstring host = FolderPath(u"delete folder", path);
  if (!RemoveDirectoryW(host.c_str())) Fail(u"delete folder", path);
}

Text WindowsFiles::RealPath(TextView path) {
  const Handle file = OpenToLook(FolderPath(u"look at", path));
  if (!file.IsOpen()) Fail(u"look at", path);
  const std::wstring place = FinalPath(file);
  if (place.empty()) Fail(u"look at", path);
  return GamePathOf(place);
}

/// A whole file system is for administrators alone to bring to the disk, so it is done file by file
/// for what may still be on its way. What has gone meanwhile needs none of it.
void WindowsFiles::Sync(TextView folder) {
  if (!FolderExists(folder)) Fail(u"sync", folder, ERROR_PATH_NOT_FOUND);
  while (!state_->unsynced.empty()) {
    const auto next = state_->unsynced.begin();
    const Handle file(CreateFileW(next->c_str(), GENERIC_WRITE, kShareAll, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
    const int code = file.IsOpen() && FlushFileBuffers(file.Get()) ? 0 : LastSystemError();
    const bool isGone = code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND;
    if (code != 0 && !isGone) Fail(u"sync", GamePathOf(*next), code);
    state_->unsynced.erase(next);
  }
}

void WindowsFiles::Rename(TextView from, TextView to) {
  const std::wstring source = FilePath(u"rename", from);
  const std::wstring target = FilePath(u"rename", to);
  const std::optional<FileState> state = StateOf(source);
  if (!state && !IsLink(source)) Fail(u"rename", from);
  if (state && state->IsFolder()) Fail(u"rename", from, ERROR_ACCESS_DENIED);
  const int code = MoveWhenFree(source, target, 0);
  if (code == ERROR_ALREADY_EXISTS || code == ERROR_FILE_EXISTS) {
    Fail(u"rename", to, ERROR_ALREADY_EXISTS);
  }
  if (code != 0) Fail(u"rename", from, code);
  if (state_->unsynced.erase(source) > 0) state_->unsynced.insert(target);
}

LockAttempt WindowsFiles::TryLock(TextView folder, TextView purpose) {
  return WindowsFolderLock::Try(state_, FolderPath(u"lock", folder), folder, purpose);
}

std::vector<Text> WindowsFiles::Drives() {
  std::vector<Text> drives;
  const DWORD present = GetLogicalDrives();
  for (unsigned drive = 0; drive < 26; ++drive) {
    if ((present >> drive & 1) != 0) drives.push_back({static_cast<char16_t>(u'A' + drive), u':'});
  }
  return drives;
}

}  // namespace tarvo
