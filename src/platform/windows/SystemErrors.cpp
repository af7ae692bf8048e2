#include <windows.h>

#include "platform/PlatformError.h"
#include "platform/windows/Wide.h"

namespace tarvo {

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
