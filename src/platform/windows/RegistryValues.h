#pragma once

#include <windows.h>

#include <optional>

#include "platform/Registry.h"

namespace tarvo {

/// An open key of the registry, closed with the object.
class OpenedKey {
 public:
  explicit OpenedKey(HKEY key) : key_(key) {}
  OpenedKey(const OpenedKey&) = delete;
  OpenedKey& operator=(const OpenedKey&) = delete;
  ~OpenedKey() { RegCloseKey(key_); }

  HKEY Get() const { return key_; }

 private:
  HKEY key_;
};

/// A value of a key; nothing when there is none of that name. What it is called in failures is
/// `shownPath`. Throws PlatformError when there is one that can't be read.
std::optional<RegistryValue> ReadRegistryValue(HKEY key, TextView valueName, TextView shownPath);

}  // namespace tarvo
