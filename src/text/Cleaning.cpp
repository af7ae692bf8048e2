#include "text/Cleaning.h"

namespace tarvo {

Text Without(TextView text, TextView part) {
  Text rest;
  std::size_t from = 0;
  for (std::size_t at; (at = text.find(part, from)) != TextView::npos; from = at + part.size()) {
    rest += text.substr(from, at - from);
  }
  return rest += text.substr(from);
}

bool IsUnprintable(char16_t unit) {
  return unit < 0x20 || (unit >= 0x7F && unit < 0xA0);
}

}  // namespace tarvo
