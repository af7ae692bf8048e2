#pragma once

#include "text/Text.h"

namespace tarvo {

/// Both are for a thread with a user interface, whose COM is set up. They give false when the
/// system has no program for it, or the user refuses to let one start.

/// Opens a web address, a mailto: address or a file in the user's own program.
bool OpenInShell(TextView addressOrFile);

/// Starts a program, named by its path, in its own folder.
bool StartInShell(TextView program);

}  // namespace tarvo
