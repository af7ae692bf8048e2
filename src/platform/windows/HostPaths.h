#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "text/Text.h"

namespace tarvo {

/// Game paths are paths of Windows. The calls of the system get them whole and with the prefix
/// "\\?\", so that they may be longer than 260 units and mean what they say.

/// A game path as the system takes it.
struct HostParts {
  std::wstring Path;             ///< Without a separator at the end, but for a drive's root.
  bool EndsInSeparator = false;  ///< The path can only mean a folder.
};

/// Nothing for a path that can't lead anywhere: without a root, on a device, or with a character
/// that no name can have. A slash separates as a backslash does; a path that begins with one
/// separator lies on the drive of the working folder.
std::optional<HostParts> SplitGamePath(TextView path);

/// Without the prefix, as users know it.
Text GamePathOf(std::wstring_view hostPath);

/// Paths of the host that come and go as texts in UTF-8.
std::wstring WideHostPath(std::string_view hostPath);
std::string NarrowHostPath(std::wstring_view hostPath);

/// `folder` and `name` with a backslash between them.
std::wstring JoinHostPath(std::wstring_view folder, std::wstring_view name);

/// What stands before the last backslash (with it for a drive's root), and what stands behind it.
std::wstring HostFolderOf(std::wstring_view hostPath);
std::wstring HostNameOf(std::wstring_view hostPath);

/// A path made whole by the system: relative to the working folder, without "." and "..". Empty
/// when it can't be.
std::wstring FullPath(const std::wstring& path);

}  // namespace tarvo
