#pragma once

#include "text/Text.h"

namespace tarvo {

/// The bridge between the two kinds of text is code page Windows-1252, taken as a one-to-one map
/// of all 256 byte values: the five bytes that the page leaves undefined (81, 8D, 8F, 90, 9D)
/// stand for the 16-bit unit of the same value.

/// Gives one 16-bit unit for each byte. Never fails.
Text TextFromFileText(FileTextView bytes);

/// Gives one byte for each 16-bit unit; a unit that the page lacks becomes "?". Never fails.
FileText FileTextFromText(TextView text);

/// True when `text` comes back unchanged from FileTextFromText and TextFromFileText.
bool FitsCodePage(TextView text);

/// The characters of `text` that the page lacks, each once, with blanks between them.
Text OutsideCodePage(TextView text);

}  // namespace tarvo
