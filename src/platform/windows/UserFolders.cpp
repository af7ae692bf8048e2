#include "platform/windows/UserFolders.h"

#include <shlobj.h>

#include "platform/windows/FileState.h"
#include "platform/windows/HostPaths.h"

namespace tarvo {
namespace {

/// A folder below that of the user's programs on this computer.
std::string BelowLocalData(std::wstring_view name) {
  wchar_t* folder = nullptr;
  const bool isKnown =
      SHGetKnownFolderPath(FOLDERID_LocalAppData, KF_FLAG_DONT_VERIFY, nullptr, &folder) == S_OK;
  const std::wstring local = isKnown ? folder : L"";
  CoTaskMemFree(folder);
  return local.empty() ? std::string() : NarrowHostPath(JoinHostPath(local, name));
}

}  // namespace

std::vector<std::string> DefaultJournalFolders() {
  constexpr std::wstring_view kName = L"Tarvo Packager\\Journal";
  std::wstring temporary(MAX_PATH + 1, L'\0');
  temporary.resize(GetTempPathW(static_cast<DWORD>(temporary.size()), temporary.data()));
  while (temporary.ends_with(L'\\')) temporary.pop_back();
  return {BelowLocalData(kName),
          temporary.empty() ? std::string() : NarrowHostPath(JoinHostPath(temporary, kName))};
}

std::string DefaultProgramFolder() {
  return BelowLocalData(L"Tarvo Packager");
}

int MakeFolders(const std::wstring& hostPath) {
  if (const auto state = StateOf(hostPath)) return state->IsFolder() ? 0 : ERROR_DIRECTORY;
  const auto code = static_cast<int>(GetLastError());
  if (code != ERROR_FILE_NOT_FOUND && code != ERROR_PATH_NOT_FOUND) return code;
  const std::wstring above = HostFolderOf(hostPath);
  if (above.size() >= hostPath.size()) return code;
  if (const int failed = MakeFolders(above)) return failed;
  if (CreateDirectoryW(hostPath.c_str(), nullptr)) return 0;
  const auto made = static_cast<int>(GetLastError());
  return made == ERROR_ALREADY_EXISTS ? 0 : made;
}

}  // namespace tarvo
