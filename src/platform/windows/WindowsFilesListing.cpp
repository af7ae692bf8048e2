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

/// True for an entry of the wanted kind; links count as what they lead to.
bool IsOfKind(const std::wstring& folder, const WIN32_FIND_DATAW& entry, bool folders) {
  const bool isLink = (entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  if (!isLink) return IsFolder(entry) == folders;
  const std::optional<FileState> state = StateOf(JoinHostPath(folder, entry.cFileName));
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

void RemoveFile(const std::wstring& hostPath, TextView path) {
  CheckDeletable(hostPath, path);
  if (!DeleteFileW(hostPath.c_str())) throw PlatformError(u"delete", Text(path), LastSystemError());
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
  std::vector<Text> names;
  do {
    Text name = TextFromWide(entry.cFileName);
    if (IsShown(name) && IsOfKind(parts->Path, entry, folders)) names.push_back(std::move(name));
  } while (FindNextFileW(search, &entry));
  const int code = LastSystemError();
  FindClose(search);
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

void WindowsFiles::Remove(TextView pathOrPattern) {
  const std::size_t separator = pathOrPattern.find_last_of(u"\\/");
  const std::size_t nameAt = separator == TextView::npos ? 0 : separator + 1;
  if (pathOrPattern.find_first_of(u"*?", nameAt) != TextView::npos) {
    return RemoveMatching(pathOrPattern, nameAt);
  }
  const std::optional<HostParts> parts = SplitGamePath(pathOrPattern);
  if (!parts || parts->EndsInSeparator) {
    throw PlatformError(u"delete", Text(pathOrPattern), ERROR_INVALID_NAME);
  }
  RemoveFile(parts->Path, pathOrPattern);
}

/// Nothing goes when one of the files is read-only.
void WindowsFiles::RemoveMatching(TextView pattern, std::size_t nameAt) {
  const TextView folder = pattern.substr(0, nameAt);
  std::vector<std::wstring> paths;
  try {
    for (const Text& name : Listed(folder, false)) {
      if (!MatchesPattern(name, pattern.substr(nameAt))) continue;
      paths.push_back(JoinHostPath(SplitGamePath(folder)->Path, Wide(name)));
    }
  } catch (const PlatformError& error) {
    throw PlatformError(u"delete", Text(pattern), error.Code);
  }
  if (paths.empty()) throw PlatformError(u"delete", Text(pattern), ERROR_FILE_NOT_FOUND);
  for (const std::wstring& path : paths) CheckDeletable(path, pattern);
  for (const std::wstring& path : paths) RemoveFile(path, pattern);
}

}  // namespace tarvo
