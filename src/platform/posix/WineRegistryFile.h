#pragma once

#include <map>
#include <optional>
#include <string_view>

#include "platform/Registry.h"

namespace tarvo {

/// The values of a key by their folded names; the default value's name is empty.
using WineValues = std::map<Text, RegistryValue>;

/// Reads one key out of the text of a registry file of Wine. Nothing when the file has no such
/// key, or no registry in it; letter case is ignored. Lines that make no sense are passed over.
///
/// Strings come as they stand, also those of type 2 (REG_EXPAND_SZ), which have their text in
/// String beside the bytes in Data.
std::optional<WineValues> ReadWineKey(std::string_view file, TextView keyPath);

}  // namespace tarvo
