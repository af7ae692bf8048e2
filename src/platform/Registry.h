#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "text/Text.h"

namespace tarvo {

/// HKEY_LOCAL_MACHINE, the one root key that the program reads.
constexpr std::uint32_t kLocalMachine = 0x80000002;

/// The types of registry values that the program tells apart; the numbers are Windows' own.
constexpr std::uint32_t kRegistryString = 1;  // REG_SZ
constexpr std::uint32_t kRegistryBinary = 3;  // REG_BINARY

struct RegistryValue {
  std::uint32_t Type;
  Text String;       ///< Of a REG_SZ, without its terminator; a folder as a game path.
  std::string Data;  ///< The bytes of every other type.
};

/// An open key.
class RegistryKey {
 public:
  virtual ~RegistryKey() = default;

  /// Nothing when the key has no value of that name. Throws PlatformError when there is one that
  /// can't be read. Letter case of the name is ignored.
  virtual std::optional<RegistryValue> Query(TextView valueName) = 0;

  /// The same value of every registry that the user has, the first to be asked in front. Those that
  /// name a folder which doesn't exist are left out.
  virtual std::vector<RegistryValue> QueryAll(TextView valueName) {
    std::vector<RegistryValue> values;
    if (auto value = Query(valueName)) values.push_back(*std::move(value));
    return values;
  }
};

/// Reads of the registry, in the view of a 32-bit program. Letter case is ignored.
class Registry {
 public:
  virtual ~Registry() = default;

  /// Throws PlatformError when the key isn't there or can't be opened.
  virtual std::unique_ptr<RegistryKey> OpenKey(std::uint32_t root, TextView keyPath) = 0;

  /// The drives that these registries have to themselves, as game paths of folders: those of Wine's
  /// prefixes. A real computer's own drives aren't among them, which are too large to be searched.
  virtual std::vector<Text> ProgramDrives() { return {}; }
};

}  // namespace tarvo
