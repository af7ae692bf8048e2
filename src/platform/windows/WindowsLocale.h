#pragma once

#include "platform/Locale.h"

namespace tarvo {

/// The user's regional settings as they are at the time of each call.
class WindowsLocale : public Locale {
 public:
  Text ShortDate() override;
  char16_t DecimalMark() override;
};

}  // namespace tarvo
