#include "tgl/FileStrings.h"

#include <cstring>

#include "text/CodePage.h"

namespace tarvo {
namespace {

char16_t UnitAt(const char* bytes) {
  return static_cast<char16_t>(static_cast<unsigned char>(bytes[0]) |
                               static_cast<unsigned char>(bytes[1]) << 8);
}

}  // namespace

FileTextView StringBytes(FileTextView bytes, std::size_t at, StringType type) {
  if (type == StringType::SingleByte) return bytes.data() + at;
  std::size_t end = at;
  while (UnitAt(bytes.data() + end) != 0) end += 2;
  return bytes.substr(at, end - at);
}

Text StringText(FileTextView string, StringType type) {
  if (type == StringType::SingleByte) return TextFromFileText(string);
  Text text(string.size() / 2, u'\0');
  for (std::size_t i = 0; i < text.size(); ++i) text[i] = UnitAt(string.data() + 2 * i);
  return text;
}

void AppendString(FileText& bytes, TextView text, StringType type) {
  if (type == StringType::SingleByte) {
    bytes += FileTextFromText(text);
    bytes += '\0';
    return;
  }
  const std::size_t start = bytes.size();
  bytes.resize(start + 2 * text.size() + 2);
  char* to = bytes.data() + start;
  for (const char16_t unit : text) {
    *to++ = static_cast<char>(unit & 0xFF);
    *to++ = static_cast<char>(unit >> 8);
  }
}

}  // namespace tarvo
