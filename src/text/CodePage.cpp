#include "text/CodePage.h"

#include <algorithm>
#include <array>

namespace tarvo {
namespace {

/// The units of the bytes 80 to 9F; all other bytes stand for the unit of their own value.
constexpr std::array<char16_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char16_t UnitOf(unsigned char byte) {
  return byte >= 0x80 && byte < 0xA0 ? kUpperControls[byte - 0x80] : byte;
}

/// The byte of a unit, or -1 where the page lacks it.
int ByteOf(char16_t unit) {
  if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF)) return unit;
  const auto found = std::find(kUpperControls.begin(), kUpperControls.end(), unit);
  if (found == kUpperControls.end()) return -1;
  return 0x80 + static_cast<int>(found - kUpperControls.begin());
}

}  // namespace

Text TextFromFileText(FileTextView bytes) {
  Text text(bytes.size(), u'\0');
  std::transform(bytes.begin(), bytes.end(), text.begin(),
                 [](char byte) { return UnitOf(static_cast<unsigned char>(byte)); });
  return text;
}

FileText FileTextFromText(TextView text) {
  FileText bytes(text.size(), '\0');
  std::transform(text.begin(), text.end(), bytes.begin(), [](char16_t unit) {
    const int byte = ByteOf(unit);
    return byte < 0 ? '?' : static_cast<char>(byte);
  });
  return bytes;
}

Text OutsideCodePage(TextView text) {
  Text found;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (ByteOf(text[at]) >= 0) continue;
    const bool isPair =
        (text[at] & 0xFC00) == 0xD800 && at + 1 < text.size() && (text[at + 1] & 0xFC00) == 0xDC00;
    const TextView character = text.substr(at, isPair ? 2 : 1);
    if (isPair) ++at;
    if (found.find(character) != Text::npos) continue;
    found += (found.empty() ? u"" : u" ") + Text(character);
  }
  return found;
}

bool FitsCodePage(TextView text) {
  return std::all_of(text.begin(), text.end(), [](char16_t unit) { return ByteOf(unit) >= 0; });
}

}  // namespace tarvo
