#pragma once

#include <string>
#include <vector>

#include "platform/Registry.h"

namespace tarvo {

/// HKEY_LOCAL_MACHINE as the Wine prefixes of the user have it, in the view of a 32-bit program.
///
/// A value is that of the first prefix that has it; a text that names a folder counts only where
/// the folder exists, as long as any prefix has one that does. Folders come as game paths, led
/// through the drives of their prefix, without a backslash at the end. The files are read anew for
/// each key that is opened; what a running Wine program has just written may not be in them yet.
class WineRegistry : public Registry {
 public:
  /// `prefixes`: folders of the host, the first to be asked in front; usually UsualWinePrefixes().
  explicit WineRegistry(std::vector<std::string> prefixes) : prefixes_(std::move(prefixes)) {}

  std::unique_ptr<RegistryKey> OpenKey(std::uint32_t root, TextView keyPath) override;
  std::vector<Text> ProgramDrives() override;

 private:
  std::vector<std::string> prefixes_;
};

}  // namespace tarvo
