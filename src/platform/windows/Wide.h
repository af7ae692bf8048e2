#pragma once

#include <string>
#include <string_view>

#include "text/Text.h"

namespace tarvo {

/// The system's wide texts are UTF-16, as a Text is; only the types differ.
inline std::wstring Wide(TextView text) {
  return {text.begin(), text.end()};
}

inline Text TextFromWide(std::wstring_view wide) {
  return {wide.begin(), wide.end()};
}

}  // namespace tarvo
