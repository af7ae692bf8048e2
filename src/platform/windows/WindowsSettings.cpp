#include "platform/windows/WindowsSettings.h"

#include "platform/PlatformError.h"
#include "platform/windows/RegistryValues.h"
#include "platform/windows/Wide.h"

namespace tarvo {
namespace {

Text KeyPath(TextView application, TextView section) {
  return u"Software\\" + Text(application) + u"\\" + Text(section);
}

Text ShownPath(TextView keyPath, TextView key) {
  return u"HKEY_CURRENT_USER\\" + Text(keyPath) + u"\\" + Text(key);
}

}  // namespace

Text WindowsSettings::Read(TextView application, TextView section, TextView key,
                           TextView fallback) {
  const Text path = KeyPath(application, section);
  HKEY handle = nullptr;
  if (RegOpenKeyExW(HKEY_CURRENT_USER, Wide(path).c_str(), 0, KEY_QUERY_VALUE, &handle) !=
      ERROR_SUCCESS) {
    return Text(fallback);
  }
  const OpenedKey opened(handle);
  try {
    const auto value = ReadRegistryValue(opened.Get(), key, ShownPath(path, key));
    return value && value->Type == REG_SZ ? value->String : Text(fallback);
  } catch (const PlatformError&) {
    return Text(fallback);
  }
}

void WindowsSettings::Write(TextView application, TextView section, TextView key, TextView text) {
  const Text path = KeyPath(application, section);
  const auto check = [&](LSTATUS status) {
    if (status != ERROR_SUCCESS) throw PlatformError(u"write", ShownPath(path, key), status);
  };
  HKEY handle = nullptr;
  check(RegCreateKeyExW(HKEY_CURRENT_USER, Wide(path).c_str(), 0, nullptr, 0, KEY_SET_VALUE,
                        nullptr, &handle, nullptr));
  const OpenedKey opened(handle);
  const std::wstring value = Wide(text);
  check(RegSetValueExW(opened.Get(), Wide(key).c_str(), 0, REG_SZ,
                       reinterpret_cast<const BYTE*>(value.c_str()),
                       static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t))));
}

}  // namespace tarvo
