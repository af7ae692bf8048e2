#pragma once

#include <optional>

#include "text/WholeText.h"

namespace tarvo {

/// The text of a ship plug-in that takes the ship's name and description from the game's text
/// databases: the lines for them, which the plug-in carries as comments, become code, and the line
/// with a typed-in description becomes a comment. A text that was patched before stays the same.
///
/// Nothing where the plug-in lacks the row "# Uncomment these if you have TGL" or, behind that, a
/// description.
std::optional<FileText> PatchForTGL(const WholeText& plugin, FileTextView ship);

}  // namespace tarvo
