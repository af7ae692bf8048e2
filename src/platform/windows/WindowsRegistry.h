#pragma once

#include "platform/Registry.h"

namespace tarvo {

/// The registry of the machine, in the view of a 32-bit program.
class WindowsRegistry : public Registry {
 public:
  std::unique_ptr<RegistryKey> OpenKey(std::uint32_t root, TextView keyPath) override;
};

}  // namespace tarvo
