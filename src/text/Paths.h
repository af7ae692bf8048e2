#pragma once

#include "text/Text.h"

namespace tarvo {

/// Game paths as texts: a drive, a colon, and parts separated by backslashes.

/// What stands behind the last backslash.
Text BareName(TextView path);

/// `path` without the backslashes at its end, but for a drive's root ("Z:\" and "Z:" give "Z:\").
Text FolderWithoutTail(TextView path);

/// `root` and `part` with exactly one backslash between them.
Text JoinPath(TextView root, TextView part);

}  // namespace tarvo
