#include "platform/windows/FileState.h"

namespace tarvo {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

std::uint64_t Joined(DWORD high, DWORD low) {
  return std::uint64_t{high} << 32 | low;
}

std::int64_t NanosecondsSince1970(const FILETIME& time) {
  constexpr std::int64_t kTicksTo1970 = 116'444'736'000'000'000;
  const auto ticks = static_cast<std::int64_t>(Joined(time.dwHighDateTime, time.dwLowDateTime));
  return (ticks - kTicksTo1970) * 100;
}

template <class Data>
FileState StateFrom(const Data& data) {
  return {data.dwFileAttributes, Joined(data.nFileSizeHigh, data.nFileSizeLow),
          NanosecondsSince1970(data.ftLastWriteTime)};
}

}  // namespace

Handle OpenToLook(const std::wstring& hostPath) {
  return Handle(CreateFileW(hostPath.c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr,
                            OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

bool IsLink(const std::wstring& hostPath) {
  WIN32_FIND_DATAW found;
  const HANDLE search = FindFirstFileW(hostPath.c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return false;
  FindClose(search);
  return (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
         (found.dwReserved0 == IO_REPARSE_TAG_SYMLINK ||
          found.dwReserved0 == IO_REPARSE_TAG_MOUNT_POINT);
}

std::optional<FileState> StateOf(const std::wstring& hostPath) {
  WIN32_FILE_ATTRIBUTE_DATA own;
  if (!GetFileAttributesExW(hostPath.c_str(), GetFileExInfoStandard, &own)) return std::nullopt;
  if ((own.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return StateFrom(own);
  const Handle file = OpenToLook(hostPath);
  BY_HANDLE_FILE_INFORMATION state;
  if (!file.IsOpen() || !GetFileInformationByHandle(file.Get(), &state)) return std::nullopt;
  return StateFrom(state);
}

std::wstring FinalPath(const Handle& file) {
  std::wstring path(MAX_PATH, L'\0');
  for (int attempt = 0; attempt < 2; ++attempt) {
    const auto room = static_cast<DWORD>(path.size());
    const DWORD length = GetFinalPathNameByHandleW(file.Get(), path.data(), room,
                                                   FILE_NAME_NORMALIZED | VOLUME_NAME_DOS);
    path.resize(length < room ? length : length + 1);
    if (length < room) return path;
  }
  return {};
}

}  // namespace tarvo
