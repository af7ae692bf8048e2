#include "platform/windows/WindowsFileReader.h"

#include <algorithm>
#include <limits>

#include "platform/PlatformError.h"

namespace tarvo {

WindowsFileReader::WindowsFileReader(const std::wstring& hostPath, TextView path)
    : path_(path),
      file_(CreateFileW(hostPath.c_str(), GENERIC_READ,
                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr)) {
  LARGE_INTEGER size;
  if (!file_.IsOpen() || !GetFileSizeEx(file_.Get(), &size)) {
    throw PlatformError(u"open", path_, LastSystemError());
  }
  size_ = static_cast<std::uint64_t>(size.QuadPart);
}

std::size_t WindowsFileReader::ReadAt(std::uint64_t position, std::span<char> block) {
  constexpr auto kLast = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  constexpr std::size_t kMostAtOnce = 1 << 30;
  std::size_t filled = 0;
  while (filled < block.size() && position + filled <= kLast) {
    OVERLAPPED at{};
    at.Offset = static_cast<DWORD>(position + filled);
    at.OffsetHigh = static_cast<DWORD>((position + filled) >> 32);
    const auto wanted = static_cast<DWORD>(std::min(block.size() - filled, kMostAtOnce));
    DWORD count = 0;
    if (!ReadFile(file_.Get(), block.data() + filled, wanted, &count, &at)) {
      const int code = LastSystemError();
      if (code == ERROR_HANDLE_EOF) break;
      throw PlatformError(u"read", path_, code);
    }
    if (count == 0) break;
    filled += count;
  }
  return filled;
}

}  // namespace tarvo
