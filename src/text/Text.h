#pragma once

#include <string>
#include <string_view>

namespace tarvo {

/// Names, paths, captions and what the user types: 16-bit units, as the game's text databases
/// store them.
using Text = std::u16string;
using TextView = std::u16string_view;

/// The contents of a file: one character for each byte, NUL included, so that a length is a
/// length in bytes and a position is a position in the file.
using FileText = std::string;
using FileTextView = std::string_view;

}  // namespace tarvo
