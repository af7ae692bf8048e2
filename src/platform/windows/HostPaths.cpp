#include "platform/windows/HostPaths.h"

#include <windows.h>

#include <algorithm>

#include "platform/HostMachine.h"
#include "platform/windows/Wide.h"
#include "text/Paths.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

constexpr std::wstring_view kPrefix = L"\\\\?\\";
constexpr std::wstring_view kServerPrefix = L"\\\\?\\UNC\\";
constexpr std::wstring_view kDevicePrefix = L"\\\\.\\";

bool IsSeparator(wchar_t unit) {
  return unit == L'\\' || unit == L'/';
}

bool HasDrive(std::wstring_view path) {
  if (path.size() < 2 || path[1] != L':') return false;
  const wchar_t small = path[0] | 0x20;
  return small >= L'a' && small <= L'z';
}

bool HasImpossibleUnit(std::wstring_view path) {
  return std::any_of(path.begin(), path.end(), [](wchar_t unit) {
    return unit < L' ' || std::wstring_view(L":*?\"<>|").find(unit) != std::wstring_view::npos;
  });
}

std::wstring WithPrefix(const std::wstring& full) {
  if (full.starts_with(kPrefix)) return full;
  if (full.starts_with(L"\\\\")) return std::wstring(kServerPrefix) + full.substr(2);
  return std::wstring(kPrefix) + full;
}

}  // namespace

std::wstring FullPath(const std::wstring& path) {
  std::wstring full(MAX_PATH, L'\0');
  for (int attempt = 0; attempt < 2; ++attempt) {
    const DWORD length =
        GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    const bool fits = length < full.size();
    full.resize(length);
    if (fits) return full;
  }
  return {};
}

std::optional<HostParts> SplitGamePath(TextView path) {
  std::wstring wide = Wide(path);
  const std::wstring_view rest = std::wstring_view(wide).substr(HasDrive(wide) ? 2 : 0);
  const bool isDriveAlone = rest.empty() && HasDrive(wide);
  if (isDriveAlone)
    wide += L'\\';
  else if (rest.empty() || !IsSeparator(rest[0]) || HasImpossibleUnit(rest))
    return std::nullopt;
  std::wstring full = FullPath(wide);
  if (full.empty() || full.starts_with(kDevicePrefix)) return std::nullopt;
  const bool endsInSeparator = IsSeparator(wide.back());
  const bool isRoot = full.size() == 3 && HasDrive(full);
  while (!isRoot && full.ends_with(L'\\')) full.pop_back();
  return HostParts{WithPrefix(full), endsInSeparator};
}

Text GamePathOf(std::wstring_view hostPath) {
  if (hostPath.starts_with(kServerPrefix)) {
    return u"\\\\" + TextFromWide(hostPath.substr(kServerPrefix.size()));
  }
  if (hostPath.starts_with(kPrefix)) hostPath.remove_prefix(kPrefix.size());
  return TextFromWide(hostPath);
}

std::wstring WideHostPath(std::string_view hostPath) {
  const std::wstring full = FullPath(Wide(TextFromUtf8(hostPath)));
  return full.empty() ? full : WithPrefix(full);
}

std::string NarrowHostPath(std::wstring_view hostPath) {
  return Utf8FromText(GamePathOf(hostPath));
}

std::wstring JoinHostPath(std::wstring_view folder, std::wstring_view name) {
  std::wstring path(folder);
  if (!path.ends_with(L'\\')) path += L'\\';
  return path.append(name);
}

std::wstring HostFolderOf(std::wstring_view hostPath) {
  const std::size_t slash = hostPath.rfind(L'\\');
  if (slash == std::wstring_view::npos) return std::wstring(hostPath);
  const bool isRoot = slash > 0 && hostPath[slash - 1] == L':';
  return std::wstring(hostPath.substr(0, isRoot ? slash + 1 : slash));
}

std::wstring HostNameOf(std::wstring_view hostPath) {
  const std::size_t slash = hostPath.rfind(L'\\');
  return std::wstring(slash == std::wstring_view::npos ? hostPath : hostPath.substr(slash + 1));
}

std::string HostPath(TextView gamePath) {
  const std::optional<HostParts> parts = SplitGamePath(gamePath);
  return parts ? NarrowHostPath(parts->Path) : std::string();
}

Text GamePathFromArgument(std::string_view argument) {
  const std::wstring path = Wide(TextFromUtf8(argument));
  // A drive alone means its root, as in a game path, and not the working folder there.
  const bool isDriveAlone = path.size() == 2 && HasDrive(path);
  return FolderWithoutTail(GamePathOf(isDriveAlone ? path : FullPath(path)));
}

}  // namespace tarvo
