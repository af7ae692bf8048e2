#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "text/Text.h"

namespace tarvo {

/// Game paths and paths of the host, as texts. Drive Z: is the host's root folder; no other drive
/// exists.

/// A game path taken apart.
struct HostParts {
  std::vector<std::string> Names;  ///< In the bytes of the host; empty for the root.
  bool EndsInSeparator = false;    ///< The path can only mean a folder.
};

/// Nothing for a path that can't lead anywhere: on another drive, on a server, without a root, or
/// with a NUL in it. A slash separates as a backslash does.
std::optional<HostParts> SplitGamePath(TextView path);

/// The path of the host with every name as spelled; nothing where SplitGamePath gives nothing, or
/// no name.
std::optional<std::string> SpelledHostPath(TextView path);

/// "/games/bc" as "Z:\games\bc". Empty when a name in it holds a backslash, which a game path
/// can't tell.
Text GamePathOf(std::string_view hostPath);

/// `folder` and `name` with a slash between them.
std::string JoinHostPath(std::string_view folder, std::string_view name);

/// What stands before the last slash ("/" for a name in the root), and what stands behind it.
std::string HostFolderOf(std::string_view hostPath);
std::string HostNameOf(std::string_view hostPath);

}  // namespace tarvo
