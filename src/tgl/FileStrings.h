#pragma once

#include <cstddef>
#include <cstdint>

#include "text/Text.h"

namespace tarvo {

/// How a string stands in a file: one byte a character in code page Windows-1252, ended by a 0
/// byte, or one 16-bit little-endian unit a character, ended by a 0 unit.
enum class StringType { SingleByte = 0, SixteenBit = 1 };

/// Bytes of one character.
constexpr std::size_t UnitBytes(StringType type) {
  return type == StringType::SingleByte ? 1 : 2;
}

/// So many 0 bytes behind the contents of a file make every string in it end, also one that the
/// file cuts short.
constexpr std::size_t kEndBytes = 3;

/// The string that begins at `at`, from 0, without its terminator, which must be there.
FileTextView StringBytes(FileTextView bytes, std::size_t at, StringType type);

/// The text of such bytes.
Text StringText(FileTextView string, StringType type);

/// True when a string of these bytes would end before their end.
bool HoldsTerminator(FileTextView string, StringType type);

/// The bytes of a text: where the machine holds them in the order of the file, the text's own, else
/// made at the end of `store`, which must have room for BytesToStore without moving.
FileTextView StringView(TextView text, StringType type, FileText& store);
std::size_t BytesToStore(TextView text, StringType type);

}  // namespace tarvo
