#pragma once

#include <string>

namespace tarvo {

/// Renames a file unless something stands at `to`; then, as for any failure, gives its code
/// (EEXIST), and 0 otherwise. On a file system that can do it neither at once nor through a second
/// link, what comes to stand at `to` in the instant between look and renaming is lost.
int RenameWithoutReplacing(const std::string& from, const std::string& to);

}  // namespace tarvo
