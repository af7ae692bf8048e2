#pragma once

#include "platform/Files.h"
#include "text/Text.h"

namespace tarvo {

/// True when something stands at `Filename`: a file, a folder, or, where the last part holds the
/// wildcards * or ?, anything that matches. An empty name gives false. Throws PlatformError when
/// that can't be looked at.
bool helper_FileExists(Files& files, TextView Filename);

/// The system's words for one of its error codes; "Unknown Win32 Error." for an unknown one.
Text SystemWords(int code);

}  // namespace tarvo
