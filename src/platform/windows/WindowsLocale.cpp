#include "platform/windows/WindowsLocale.h"

#include <windows.h>

#include <iterator>

#include "platform/windows/Wide.h"

namespace tarvo {

Text WindowsLocale::ShortDate() {
  wchar_t date[128] = L"";
  GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, date,
                  static_cast<int>(std::size(date)), nullptr);
  return TextFromWide(date);
}

char16_t WindowsLocale::DecimalMark() {
  wchar_t mark[8] = L"";
  GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SDECIMAL, mark,
                  static_cast<int>(std::size(mark)));
  return mark[0] == L'\0' ? u'.' : static_cast<char16_t>(mark[0]);
}

}  // namespace tarvo
