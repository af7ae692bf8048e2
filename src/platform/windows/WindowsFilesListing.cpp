#include <memory>

#include "platform/NameLists.h"
#include "platform/PlatformError.h"
#include "platform/windows/Wide.h"
#include "platform/windows/WindowsFiles.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

bool IsFolder(const WIN32_FIND_DATAW& entry) {
  return (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// True for an entry of the wanted kind; links count as what they lead to, and are of neither kind
/// where they lead nowhere.
bool IsOfKind(const std::wstring& folder, const WIN32_FIND_DATAW& entry, bool folders) {
  const bool isLink = (entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  if (!isLink) return IsFolder(entry) == folders;
  const std::wstring path = JoinHostPath(folder, entry.cFileName);
  const std::optional<FileState> state = StateOf(path);
  const int code = LastSystemError();
  if (!state && !SaysNothingThere(code)) throw PlatformError(u"look at", GamePathOf(path), code);
  return state && state->IsFolder() == folders;
}

bool IsShown(TextView name) {
  return name != u"." && name != u".." && !Siblings::IsSibling(Utf8FromText(name));
}

/// Throws unless a file stands there that isn't read-only, or a link that leads nowhere.
void CheckDeletable(const std::wstring& hostPath, TextView path) {
  const std::optional<FileState> state = StateOf(hostPath);
  const int code = LastSystemError();
  if (!state && IsLink(hostPath)) return;
  if (!state) throw PlatformError(u"delete", Text(path), code);
  if (state->IsFolder()) throw PlatformError(u"delete", Text(path), ERROR_ACCESS_DENIED);
  if (state->IsReadOnly()) throw PlatformError(u"delete", Text(path), ERROR_ACCESS_DENIED);
}

}  // namespace

/// The names in a folder, in no order. The system would match patterns against short names too, so
/// it is asked for all names.
std::vector<Text> WindowsFiles::Listed(TextView path, bool folders) {
  const std::optional<HostParts> parts = SplitGamePath(path);
  if (!parts) throw PlatformError(u"list", Text(path), ERROR_INVALID_NAME);
  WIN32_FIND_DATAW entry;
  const HANDLE search =
      FindFirstFileExW(JoinHostPath(parts->Path, L"*").c_str(), FindExInfoBasic, &entry,
                       FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
  if (search == INVALID_HANDLE_VALUE) {
    const int code = LastSystemError();
    // The root of an empty drive has no entry at all.
    if (code == ERROR_FILE_NOT_FOUND && StateOf(parts->Path)) return {};
    throw PlatformError(u"list", Text(path), code);
  }
  const std::unique_ptr<void, BOOL(WINAPI*)(HANDLE)> ending(search, FindClose);
  std::vector<Text> names;
  do {
    Text name = TextFromWide(entry.cFileName);
    if (IsShown(name) && IsOfKind(parts->Path, entry, folders)) names.push_back(std::move(name));
  } while (FindNextFileW(search, &entry));
  const int code = LastSystemError();
  if (code != ERROR_NO_MORE_FILES) throw PlatformError(u"list", Text(path), code);
  return names;
}

std::vector<Text> WindowsFiles::FileNames(TextView folder, TextView pattern) {
  std::vector<Text> names = Listed(folder, false);
  std::erase_if(names, [&](const Text& name) { return !MatchesAnyPattern(name, pattern); });
  return SortedNames(std::move(names));
}

std::vector<Text> WindowsFiles::FolderNames(TextView folder) {
  return SortedNames(Listed(folder, true));
}

void WindowsFiles::Remove(TextView path) {
  const std::optional<HostParts> parts = SplitGamePath(path);
  if (!parts || parts->EndsInSeparator) {
    throw PlatformError(u"delete", Text(path), ERROR_INVALID_NAME);
  }
  CheckDeletable(parts->Path, path);
  if (!DeleteFileW(parts->Path.c_str())) {
    throw PlatformError(u"delete", Text(path), LastSystemError());
  }
}

}  // namespace tarvo
