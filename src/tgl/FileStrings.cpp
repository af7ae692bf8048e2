#include "tgl/FileStrings.h"

#include <bit>

#include "text/CodePage.h"

namespace tarvo {
namespace {

char16_t UnitAt(const char* bytes) {
  return static_cast<char16_t>(static_cast<unsigned char>(bytes[0]) |
                               static_cast<unsigned char>(bytes[1]) << 8);
}

bool IsInFileOrder(StringType type) {
  return type == StringType::SixteenBit && std::endian::native == std::endian::little;
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

bool HoldsTerminator(FileTextView string, StringType type) {
  for (std::size_t at = 0; at < string.size(); at += UnitBytes(type)) {
    if (type == StringType::SingleByte ? string[at] == 0 : UnitAt(string.data() + at) == 0) {
      return true;
    }
  }
  return false;
}

FileTextView StringView(TextView text, StringType type, FileText& store) {
  if (IsInFileOrder(type)) {
    return {reinterpret_cast<const char*>(text.data()), text.size() * UnitBytes(type)};
  }
  const std::size_t start = store.size();
  if (type == StringType::SingleByte) {
    store += FileTextFromText(text);
  } else {
    for (const char16_t unit : text) {
      store += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
    }
  }
  return FileTextView(store).substr(start);
}

std::size_t BytesToStore(TextView text, StringType type) {
  return IsInFileOrder(type) ? 0 : text.size() * UnitBytes(type);
}

}  // namespace tarvo
