#pragma once

#include "text/Text.h"

namespace tarvo {

/// What the user's regional settings say.
class Locale {
 public:
  virtual ~Locale() = default;

  /// Today in the short date format.
  virtual Text ShortDate() = 0;

  /// The character between whole and fraction of a number.
  virtual char16_t DecimalMark() = 0;
};

}  // namespace tarvo
