#include "platform/posix/PosixLocale.h"

#include <langinfo.h>

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <system_error>

#include "text/CodePage.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

/// Words of a locale: UTF-8 but for locales of old, which are taken as Western.
Text Decoded(const char* bytes) {
  const Text text = TextFromUtf8(bytes);
  const bool isUtf8 = std::none_of(text.begin(), text.end(),
                                   [](char16_t unit) { return unit >= 0xDC80 && unit <= 0xDCFF; });
  return isUtf8 ? text : TextFromFileText(bytes);
}

}  // namespace

PosixLocale::PosixLocale() : locale_(newlocale(LC_ALL_MASK, "C", nullptr)) {
  if (!locale_) throw std::system_error(errno, std::generic_category(), "newlocale");
  for (const int category : {LC_CTYPE_MASK, LC_TIME_MASK, LC_NUMERIC_MASK}) {
    if (const locale_t changed = newlocale(category, "", locale_)) locale_ = changed;
  }
}

PosixLocale::~PosixLocale() {
  freelocale(locale_);
}

Text PosixLocale::ShortDate() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char date[128];
  const std::size_t length = strftime_l(date, sizeof date, "%x", &local, locale_);
  date[length] = '\0';
  return Decoded(date);
}

char16_t PosixLocale::DecimalMark() {
  const Text mark = Decoded(nl_langinfo_l(RADIXCHAR, locale_));
  return mark.empty() ? u'.' : mark.front();
}

}  // namespace tarvo
