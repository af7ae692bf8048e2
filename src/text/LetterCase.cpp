#include "text/LetterCase.h"

#include <algorithm>

namespace tarvo {
namespace {

bool Between(char16_t unit, char16_t first, char16_t last) {
  return unit >= first && unit <= last;
}

/// Latin Extended-A holds its letters in pairs of capital and small, in three runs.
bool IsEvenCapital(char16_t unit) {
  return Between(unit, 0x100, 0x137) || Between(unit, 0x14A, 0x177);
}
bool IsOddCapital(char16_t unit) {
  return Between(unit, 0x139, 0x148) || Between(unit, 0x179, 0x17E);
}

char16_t Fold(char16_t unit) {
  const auto plus = [unit](int distance) { return static_cast<char16_t>(unit + distance); };
  if (unit < 0x80) return Between(unit, u'A', u'Z') ? plus(32) : unit;
  if (Between(unit, 0xC0, 0xDE)) return unit == 0xD7 ? unit : plus(32);
  if (unit == 0x130 || unit == 0x131) return unit;
  if (unit == 0x178) return 0xFF;
  if (IsEvenCapital(unit)) return unit % 2 == 0 ? plus(1) : unit;
  if (IsOddCapital(unit)) return unit % 2 == 1 ? plus(1) : unit;
  if (Between(unit, 0x391, 0x3AB)) return unit == 0x3A2 ? unit : plus(32);
  if (Between(unit, 0x410, 0x42F)) return plus(32);
  if (Between(unit, 0x400, 0x40F)) return plus(80);
  return unit;
}

}  // namespace

Text FoldCase(TextView text) {
  Text folded(text);
  std::transform(folded.begin(), folded.end(), folded.begin(), Fold);
  return folded;
}

bool EqualIgnoringCase(TextView a, TextView b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char16_t x, char16_t y) { return Fold(x) == Fold(y); });
}

bool LessIgnoringCase(TextView a, TextView b) {
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                      [](char16_t x, char16_t y) { return Fold(x) < Fold(y); });
}

}  // namespace tarvo
