#pragma once

#include <locale.h>

#include "platform/Locale.h"

namespace tarvo {

/// The user's regional settings as the environment names them when the object is made. A category
/// that names an unknown locale is that of locale "C". The locale of the process stays as it is.
class PosixLocale : public Locale {
 public:
  PosixLocale();
  PosixLocale(const PosixLocale&) = delete;
  PosixLocale& operator=(const PosixLocale&) = delete;
  ~PosixLocale() override;

  Text ShortDate() override;
  char16_t DecimalMark() override;

 private:
  locale_t locale_;
};

}  // namespace tarvo
