#pragma once

#include <optional>
#include <vector>

#include "text/Text.h"

namespace tarvo {

/// The text of a Tarvo package. docs/formats.md tells the whole format: a banner and an empty line,
/// the list of entries, a line ";", and for each entry its body, CR LF, the marker, CR LF.
///
/// An entry is the path of one file below its root, with one backslash in front. A package list
/// holds entries, each followed by CR LF.

inline constexpr FileTextView kLineEnd = "\r\n";
inline constexpr FileTextView kMarker = "===Next File===";

/// What follows the place of a marker up to the next body: the marker and its CR LF.
inline constexpr std::size_t kMarkerLine = kMarker.size() + kLineEnd.size();

/// The most bytes in front of the first body: what is written is refused beyond it, as what is
/// read.
inline constexpr std::size_t kLongestHead = 8 * 1024 * 1024;

/// All that stands in front of the first body.
FileText PackageHead(TextView packageList, TextView shortDate);

/// What closes a body.
FileText BodyEnd();

/// True when the entry lies below the program folder, because it ends in "TGL" (capitals); all
/// others lie below the game's folder.
bool IsTGLEntry(TextView entry);

/// The name of the ship whose definition an entry that ends in "TGL" is: what is left of it without
/// `\ShipTGLs\`, ".TGL" and backslashes.
Text ShipOfTGLEntry(TextView entry);

/// The entries of a package list in order.
std::vector<Text> EntriesOf(TextView packageList);

/// Why an entry must not be written to below its root, in words that fit behind its name and a
/// colon; nothing when it is safe. A check of the text alone.
std::optional<Text> UnsafeReason(TextView entry);

/// Why a file could not come out of a package again under this entry, in the same form: what
/// UnsafeReason says, and what the framing or the code page can't carry.
std::optional<Text> UnpackableReason(TextView entry);

/// True when the entry, as it comes out of a package again, is one that UnsafeReason refuses.
bool IsRefusedWhenRead(TextView entry);

}  // namespace tarvo
