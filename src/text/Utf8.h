#pragma once

#include <string>
#include <string_view>

#include "text/Text.h"

namespace tarvo {

/// The bridge to UTF-8, for file names of the host, the terminal and JSON.
///
/// A byte that is no valid UTF-8 (a file name may hold any) becomes the lone low surrogate
/// U+DC80 to U+DCFF, and such a surrogate becomes that byte again, so every sequence of bytes
/// comes back unchanged. Another lone surrogate becomes U+FFFD on the way out.
Text TextFromUtf8(std::string_view bytes);
std::string Utf8FromText(TextView text);

}  // namespace tarvo
