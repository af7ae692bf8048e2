#include "text/Utf8.h"

#include <algorithm>
#include <cstddef>

namespace tarvo {
namespace {

constexpr char32_t kInvalid = 0xFFFFFFFF;

bool IsHighSurrogate(char16_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}
bool IsLowSurrogate(char16_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// Length in bytes that the lead byte announces; 0 for a byte that can't lead.
std::size_t SequenceLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 0;
}

/// Reads one character at the start of `bytes`; kInvalid when there is none.
char32_t Decode(std::string_view bytes, std::size_t length) {
  if (length == 0 || length > bytes.size()) return kInvalid;
  const auto lead = static_cast<unsigned char>(bytes[0]);
  if (length == 1) return lead;
  char32_t value = lead & (0xFFu >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    const auto next = static_cast<unsigned char>(bytes[i]);
    if ((next & 0xC0) != 0x80) return kInvalid;
    value = value << 6 | (next & 0x3F);
  }
  const bool overlong = (length == 3 && value < 0x800) || (length == 4 && value < 0x10000);
  const bool surrogate = value >= 0xD800 && value <= 0xDFFF;
  return overlong || surrogate || value > 0x10FFFF ? kInvalid : value;
}

/// How many bytes or units at the start are ASCII.
std::size_t AsciiLength(std::string_view bytes) {
  const auto end = std::find_if(bytes.begin(), bytes.end(),
                                [](char byte) { return static_cast<signed char>(byte) < 0; });
  return static_cast<std::size_t>(end - bytes.begin());
}

std::size_t AsciiLength(TextView text) {
  const auto end =
      std::find_if(text.begin(), text.end(), [](char16_t unit) { return unit > 0x7F; });
  return static_cast<std::size_t>(end - text.begin());
}

void AppendUtf16(Text& text, char32_t value) {
  if (value < 0x10000) {
    text += static_cast<char16_t>(value);
    return;
  }
  value -= 0x10000;
  text += static_cast<char16_t>(0xD800 + (value >> 10));
  text += static_cast<char16_t>(0xDC00 + (value & 0x3FF));
}

void AppendUtf8(std::string& bytes, char32_t value) {
  const auto add = [&](char32_t byte) { bytes += static_cast<char>(byte); };
  if (value < 0x80) {
    add(value);
  } else if (value < 0x800) {
    add(0xC0 | value >> 6);
    add(0x80 | (value & 0x3F));
  } else if (value < 0x10000) {
    add(0xE0 | value >> 12);
    add(0x80 | (value >> 6 & 0x3F));
    add(0x80 | (value & 0x3F));
  } else {
    add(0xF0 | value >> 18);
    add(0x80 | (value >> 12 & 0x3F));
    add(0x80 | (value >> 6 & 0x3F));
    add(0x80 | (value & 0x3F));
  }
}

}  // namespace

Text TextFromUtf8(std::string_view bytes) {
  Text text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    if (const std::size_t plain = AsciiLength(bytes)) {
      const std::size_t start = text.size();
      text.resize(start + plain);
      std::copy_n(bytes.begin(), plain, text.begin() + static_cast<std::ptrdiff_t>(start));
      bytes.remove_prefix(plain);
      continue;
    }
    const auto lead = static_cast<unsigned char>(bytes[0]);
    const std::size_t length = SequenceLength(lead);
    const char32_t value = Decode(bytes, length);
    if (value == kInvalid) {
      text += static_cast<char16_t>(0xDC00 + lead);
      bytes.remove_prefix(1);
    } else {
      AppendUtf16(text, value);
      bytes.remove_prefix(length);
    }
  }
  return text;
}

std::string Utf8FromText(TextView text) {
  const std::size_t plain = AsciiLength(text);
  std::string bytes(plain, '\0');
  std::transform(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(plain), bytes.begin(),
                 [](char16_t unit) { return static_cast<char>(unit); });
  for (std::size_t i = plain; i < text.size(); ++i) {
    const char16_t unit = text[i];
    if (IsHighSurrogate(unit) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
      AppendUtf8(bytes, 0x10000 + ((char32_t{unit} - 0xD800) << 10) + (text[i + 1] - 0xDC00));
      ++i;
    } else if (unit >= 0xDC80 && unit <= 0xDCFF) {
      bytes += static_cast<char>(unit - 0xDC00);
    } else {
      AppendUtf8(bytes, IsHighSurrogate(unit) || IsLowSurrogate(unit) ? 0xFFFD : unit);
    }
  }
  return bytes;
}

}  // namespace tarvo
