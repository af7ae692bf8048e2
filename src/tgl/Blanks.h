#pragma once

#include "text/Text.h"

namespace tarvo {

/// `text` without the blanks (U+0020 alone) before and behind it: a part of `text`, not a copy.
inline TextView TrimBlanks(TextView text) {
  const std::size_t first = text.find_first_not_of(u' ');
  if (first == TextView::npos) return {};
  return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

inline bool IsBlank(TextView text) {
  return TrimBlanks(text).empty();
}

}  // namespace tarvo
