#pragma once

#include <cstdint>

#include "text/Text.h"

namespace tarvo {

/// The names of strings as keys, which ignore letter case: as they stand in a file, byte by byte,
/// so that nothing is made of the very many that are never asked for.

/// The folded unit that a byte of a name stands for.
char16_t FoldedUnit(char byte);

/// The name that begins at `at` in a file that ends in kEndBytes 0 bytes.
FileTextView NameIn(const FileText& file, std::uint32_t at);

bool SameKey(FileTextView a, FileTextView b);

/// A hash of the key. That of a name in a file and that of its folded text are the same.
std::uint32_t HashOfKey(FileTextView name);
std::uint32_t HashOfKey(TextView foldedName);

}  // namespace tarvo
