#include "platform/windows/WindowsRegistry.h"

#include "platform/PlatformError.h"
#include "platform/windows/RegistryValues.h"
#include "platform/windows/Wide.h"

namespace tarvo {
namespace {

class WindowsKey : public RegistryKey {
 public:
  WindowsKey(HKEY key, Text name) : key_(key), name_(std::move(name)) {}

  std::optional<RegistryValue> Query(TextView valueName) override {
    return ReadRegistryValue(key_.Get(), valueName, name_ + u"\\" + Text(valueName));
  }

 private:
  OpenedKey key_;
  Text name_;
};

/// A root key is named by a number of 32 bits, which the system takes sign-extended.
HKEY RootKey(std::uint32_t root) {
  return reinterpret_cast<HKEY>(static_cast<LONG_PTR>(static_cast<LONG>(root)));
}

}  // namespace

std::unique_ptr<RegistryKey> WindowsRegistry::OpenKey(std::uint32_t root, TextView keyPath) {
  const Text name = (root == kLocalMachine ? u"HKEY_LOCAL_MACHINE\\" : u"") + Text(keyPath);
  HKEY key = nullptr;
  const LSTATUS status =
      RegOpenKeyExW(RootKey(root), Wide(keyPath).c_str(), 0, KEY_READ | KEY_WOW64_32KEY, &key);
  if (status != ERROR_SUCCESS) throw PlatformError(u"open", name, status);
  return std::make_unique<WindowsKey>(key, name);
}

}  // namespace tarvo
