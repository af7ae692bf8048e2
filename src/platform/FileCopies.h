#pragma once

#include "platform/Files.h"
#include "text/WholeText.h"

namespace tarvo {

/// Files as a whole, by their game paths. All of it throws PlatformError.

/// Reads a file to its end.
WholeText ReadWhole(Files& files, TextView path);

/// Makes `to` a copy of `from`, by atomic replacement: whole, or not at all.
void CopyOneFile(Files& files, TextView from, TextView to, NewFile newFile);

/// Writes a file, by atomic replacement.
void WriteWhole(Files& files, TextView path, FileTextView bytes);

/// The 64-bit FNV-1a hash of bytes.
std::uint64_t HashOf(FileTextView bytes);

/// True when both files hold the same bytes.
bool SameBytes(Files& files, TextView a, TextView b);

/// Makes the folders of a path that are missing; another program may make them meanwhile.
void MakeFolders(Files& files, const Text& folder);

}  // namespace tarvo
