#include "platform/posix/WineRegistryFile.h"

#include <charconv>

#include "text/LetterCase.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

constexpr std::uint32_t kExpandString = 2;
constexpr std::uint32_t kDword = 4;

/// Cuts the first line, without its end, off `text`.
std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = text.find('\n');
  std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

int DigitOf(char digit, int base) {
  int value = -1;
  std::from_chars(&digit, &digit + 1, value, base);
  return value;
}

/// Reads up to `most` digits off the front of `text`; -1 when there is none.
int TakeNumber(std::string_view& text, int base, int most) {
  int number = -1;
  for (; most > 0 && !text.empty(); --most) {
    const int digit = DigitOf(text.front(), base);
    if (digit < 0) break;
    number = (number < 0 ? 0 : number) * base + digit;
    text.remove_prefix(1);
  }
  return number;
}

/// The unit of an escape, whose backslash is off already.
char16_t TakeEscape(std::string_view& text) {
  constexpr std::string_view kLetters = "abtnvfre";
  constexpr std::string_view kControls = "\a\b\t\n\v\f\r\x1b";
  const int octal = TakeNumber(text, 8, 3);
  if (octal >= 0) return static_cast<char16_t>(octal);
  const char letter = text.front();
  text.remove_prefix(1);
  if (letter == 'x') {
    const int hex = TakeNumber(text, 16, 4);
    return hex < 0 ? u'x' : static_cast<char16_t>(hex);
  }
  const std::size_t control = kLetters.find(letter);
  return static_cast<unsigned char>(control == std::string_view::npos ? letter
                                                                      : kControls[control]);
}

/// Takes what stands before `end`, and `end` itself, off `text`; nothing when it never comes.
std::optional<Text> TakeQuoted(std::string_view& text, char end) {
  Text plain;
  while (!text.empty()) {
    const std::size_t run = text.find_first_of(end == '"' ? "\\\"" : "\\]");
    plain += TextFromUtf8(text.substr(0, run));
    if (run == std::string_view::npos) break;
    const bool isEnd = text[run] == end;
    text.remove_prefix(run + 1);
    if (isEnd) return plain;
    if (text.empty()) break;
    plain += TakeEscape(text);
  }
  return std::nullopt;
}

std::string Utf16Bytes(TextView text) {
  std::string bytes;
  for (const char16_t unit : text) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>(unit >> 8);
  }
  return bytes;
}

Text TextOfUtf16Bytes(std::string_view bytes) {
  Text text;
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    const auto low = static_cast<unsigned char>(bytes[at]);
    const auto high = static_cast<unsigned char>(bytes[at + 1]);
    text += static_cast<char16_t>(low | high << 8);
  }
  if (text.ends_with(u'\0')) text.pop_back();
  return text;
}

RegistryValue StringValue(std::uint32_t type, Text text) {
  if (type == kRegistryString) return {type, std::move(text), {}};
  std::string data = Utf16Bytes(text + u'\0');
  if (type != kExpandString) text.clear();
  return {type, std::move(text), std::move(data)};
}

/// The bytes of "00,11,…", which goes on in the following lines, taken off `file`, for as long as
/// a backslash ends the line.
std::optional<std::string> TakeHex(std::string_view line, std::string_view& file) {
  std::string bytes;
  while (!line.empty()) {
    if (line == "\\") {
      line = TakeLine(file);
      while (line.starts_with(' ')) line.remove_prefix(1);
      continue;
    }
    const int byte = TakeNumber(line, 16, 2);
    if (byte < 0) return std::nullopt;
    bytes += static_cast<char>(byte);
    if (line.starts_with(',')) {
      line.remove_prefix(1);
    } else if (!line.empty()) {
      return std::nullopt;
    }
  }
  return bytes;
}

/// The type in "hex(7):" or "str(2):", in hex, taken off `text` up to the colon's end.
std::optional<std::uint32_t> TakeType(std::string_view& text) {
  std::uint32_t type = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), type, 16);
  if (error != std::errc()) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  if (!text.starts_with("):")) return std::nullopt;
  text.remove_prefix(2);
  return type;
}

bool TakeWord(std::string_view& text, std::string_view word) {
  if (!text.starts_with(word)) return false;
  text.remove_prefix(word.size());
  return true;
}

std::optional<RegistryValue> HexValue(std::uint32_t type, std::string_view line,
                                      std::string_view& file) {
  std::optional<std::string> bytes = TakeHex(line, file);
  if (!bytes) return std::nullopt;
  if (type == kRegistryString) return RegistryValue{type, TextOfUtf16Bytes(*bytes), {}};
  Text text = type == kExpandString ? TextOfUtf16Bytes(*bytes) : Text();
  return RegistryValue{type, std::move(text), std::move(*bytes)};
}

std::optional<RegistryValue> DwordValue(std::string_view digits) {
  std::uint32_t number = 0;
  const char* const last = digits.data() + digits.size();
  const auto [end, error] = std::from_chars(digits.data(), last, number, 16);
  if (error != std::errc() || end != last) return std::nullopt;
  std::string data;
  for (int shift = 0; shift < 32; shift += 8) data += static_cast<char>(number >> shift & 0xFF);
  return RegistryValue{kDword, {}, std::move(data)};
}

/// What stands behind the equals sign of a value's line.
std::optional<RegistryValue> TakeData(std::string_view line, std::string_view& file) {
  std::uint32_t type = kRegistryString;
  if (TakeWord(line, "dword:")) return DwordValue(line);
  if (TakeWord(line, "hex:")) return HexValue(kRegistryBinary, line, file);
  const bool isHex = TakeWord(line, "hex(");
  if (isHex || TakeWord(line, "str(")) {
    const std::optional<std::uint32_t> named = TakeType(line);
    if (!named) return std::nullopt;
    if (isHex) return HexValue(*named, line, file);
    type = *named;
  }
  if (!TakeWord(line, "\"")) return std::nullopt;
  std::optional<Text> text = TakeQuoted(line, '"');
  if (!text) return std::nullopt;
  return StringValue(type, std::move(*text));
}

/// The values up to the next key.
WineValues TakeValues(std::string_view& file) {
  WineValues values;
  while (!file.empty() && file.front() != '[') {
    std::string_view line = TakeLine(file);
    std::optional<Text> name;
    if (TakeWord(line, "@")) name = Text();
    if (TakeWord(line, "\"")) name = TakeQuoted(line, '"');
    if (!name || !TakeWord(line, "=")) continue;
    std::optional<RegistryValue> value = TakeData(line, file);
    if (value) values.insert_or_assign(FoldCase(*name), std::move(*value));
  }
  return values;
}

}  // namespace

std::optional<WineValues> ReadWineKey(std::string_view file, TextView keyPath) {
  if (!file.starts_with("WINE REGISTRY Version 2")) return std::nullopt;
  while (!file.empty()) {
    std::string_view line = TakeLine(file);
    if (!TakeWord(line, "[")) continue;
    const std::optional<Text> path = TakeQuoted(line, ']');
    if (path && EqualIgnoringCase(*path, keyPath)) return TakeValues(file);
  }
  return std::nullopt;
}

}  // namespace tarvo
