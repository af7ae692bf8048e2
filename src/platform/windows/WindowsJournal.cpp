#include "platform/Journal.h"
#include "platform/windows/FileState.h"
#include "platform/windows/HostPaths.h"
#include "platform/windows/UserFolders.h"
#include "platform/windows/Wide.h"
#include "platform/windows/WindowsFolderLock.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

std::wstring PathIn(const std::string& folder, std::string_view name) {
  return JoinHostPath(WideHostPath(folder), Wide(TextFromUtf8(name)));
}

/// The file is shared with nobody, which is its lock.
class WindowsJournal : public Journal {
 public:
  explicit WindowsJournal(Handle file) : file_(std::move(file)) {}

  std::size_t Append(std::string_view bytes) override {
    DWORD written = 0;
    WriteFile(file_.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    return written;
  }

  std::optional<std::string> ReadAll() override {
    std::string text;
    char block[4096];
    DWORD count = 0;
    while (ReadFile(file_.Get(), block, sizeof block, &count, nullptr)) {
      if (count == 0) return text;
      text.append(block, count);
    }
    return std::nullopt;
  }

  void Delete() override {
    FILE_DISPOSITION_INFO gone{TRUE};
    SetFileInformationByHandle(file_.Get(), FileDispositionInfo, &gone, sizeof gone);
  }

 private:
  Handle file_;
};

std::unique_ptr<Journal> OpenJournal(const std::wstring& path, DWORD access, DWORD disposition) {
  Handle file(CreateFileW(path.c_str(), access | DELETE, 0, nullptr, disposition,
                          FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
  return file.IsOpen() ? std::make_unique<WindowsJournal>(std::move(file)) : nullptr;
}

}  // namespace

std::unique_ptr<Journal> MakeJournal(const std::string& folder, const std::string& name) {
  const std::wstring path = WideHostPath(folder);
  if (path.empty() || MakeFolders(path) != 0) return nullptr;
  return OpenJournal(PathIn(folder, name), GENERIC_READ | GENERIC_WRITE, CREATE_NEW);
}

std::unique_ptr<Journal> TakeAbandonedJournal(const std::string& folder, const std::string& name) {
  const std::wstring path = PathIn(folder, name);
  return IsLink(path) ? nullptr : OpenJournal(path, GENERIC_READ, OPEN_EXISTING);
}

std::optional<std::vector<std::string>> NamesInHostFolder(const std::string& folder) {
  std::vector<std::string> names;
  WIN32_FIND_DATAW found;
  const HANDLE search = FindFirstFileW(PathIn(folder, "*").c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) {
    const DWORD code = GetLastError();
    const bool isGone =
        code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND || code == ERROR_DIRECTORY;
    return isGone ? std::optional(names) : std::nullopt;
  }
  do {
    names.push_back(Utf8FromText(TextFromWide(found.cFileName)));
  } while (FindNextFileW(search, &found));
  const bool isWhole = GetLastError() == ERROR_NO_MORE_FILES;
  FindClose(search);
  return isWhole ? std::optional(names) : std::nullopt;
}

bool RemoveHostFile(const std::string& folder, const std::string& name) {
  return DeleteFileW(PathIn(folder, name).c_str()) || GetLastError() == ERROR_FILE_NOT_FOUND;
}

bool RemoveAbandonedLock(const std::string& folder) {
  return WindowsFolderLock::RemoveAbandoned(WideHostPath(folder));
}

bool IsWholeHostPath(std::string_view path) {
  const bool hasDrive = path.size() > 2 && path[1] == ':' && path[2] == '\\';
  return hasDrive || path.starts_with("\\\\");
}

}  // namespace tarvo
