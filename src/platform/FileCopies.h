#pragma once

#include "platform/Files.h"
#include "text/Text.h"

namespace tarvo {

/// Files as a whole, by their game paths. All of it throws PlatformError.

/// Makes `to` a copy of `from`, by atomic replacement: whole, or not at all.
void CopyOneFile(Files& files, TextView from, TextView to);

/// True when both files hold the same bytes.
bool SameBytes(Files& files, TextView a, TextView b);

/// Makes the folders of a path that are missing; another program may make them meanwhile.
void MakeFolders(Files& files, const Text& folder);

}  // namespace tarvo
