#include "platform/ProgramFolder.h"
#include "platform/windows/Handle.h"
#include "platform/windows/HostPaths.h"
#include "platform/windows/UserFolders.h"

namespace tarvo {
namespace {

/// The folder of the program's file; empty when the system can't tell.
Text FolderOfProgram() {
  std::wstring file(MAX_PATH, L'\0');
  constexpr std::size_t kLongestPath = 32768;
  while (file.size() <= kLongestPath) {
    const auto room = static_cast<DWORD>(file.size());
    const DWORD length = GetModuleFileNameW(nullptr, file.data(), room);
    if (length < room) return GamePathOf(HostFolderOf(file.substr(0, length)));
    file.resize(2 * file.size());
  }
  return {};
}

}  // namespace

/// Rights here come from lists and from how the program was started, so a file is tried.
bool CanWriteIn(TextView folder) {
  const std::optional<HostParts> parts = SplitGamePath(folder);
  if (!parts) return false;
  const std::wstring name = L".tarvo-try-" + std::to_wstring(GetCurrentProcessId()) + L".tmp";
  const Handle file(CreateFileW(JoinHostPath(parts->Path, name).c_str(), GENERIC_WRITE | DELETE, 0,
                                nullptr, CREATE_NEW, FILE_FLAG_DELETE_ON_CLOSE, nullptr));
  return file.IsOpen();
}

int MakeUserFolder(TextView folder) {
  const std::optional<HostParts> parts = SplitGamePath(folder);
  return parts ? MakeFolders(parts->Path) : ERROR_INVALID_NAME;
}

FoundProgramFolder OpenProgramFolder(Files& files) {
  const std::wstring user = WideHostPath(DefaultProgramFolder());
  return OpenProgramFolderAt(files, {FolderOfProgram(), {}, GamePathOf(user)});
}

}  // namespace tarvo
