#include <windows.h>

#include <algorithm>
#include <iterator>

#include "platform/PlatformError.h"
#include "platform/windows/Wide.h"

namespace tarvo {

bool SaysNothingThere(int code) {
  constexpr int kCodes[] = {
      ERROR_FILE_NOT_FOUND, ERROR_PATH_NOT_FOUND, ERROR_INVALID_NAME, ERROR_BAD_PATHNAME,
      ERROR_DIRECTORY,      ERROR_INVALID_DRIVE,  ERROR_BAD_NETPATH,  ERROR_FILENAME_EXCED_RANGE,
      ERROR_BAD_NET_NAME};
  return std::ranges::find(kCodes, code) != std::end(kCodes);
}

bool SaysNotAllowed(int code) {
  constexpr int kCodes[] = {ERROR_ACCESS_DENIED, ERROR_WRITE_PROTECT, ERROR_NOT_SUPPORTED,
                            ERROR_INVALID_FUNCTION, ERROR_PRIVILEGE_NOT_HELD};
  return std::ranges::find(kCodes, code) != std::end(kCodes);
}

Text SystemErrorText(int code) {
  wchar_t words[1024];
  const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                                      nullptr, static_cast<DWORD>(code), 0, words,
                                      static_cast<DWORD>(std::size(words)), nullptr);
  std::wstring_view text(words, length);
  while (!text.empty() && (text.back() == L'\r' || text.back() == L'\n' || text.back() == L' ')) {
    text.remove_suffix(1);
  }
  return TextFromWide(text);
}

int LastSystemError() {
  return static_cast<int>(GetLastError());
}

}  // namespace tarvo
