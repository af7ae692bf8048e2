#include "platform/windows/RegistryValues.h"

#include "platform/PlatformError.h"
#include "platform/windows/Wide.h"

namespace tarvo {
namespace {

/// The text of a REG_SZ: programs store it with or without a terminator, and of any size.
Text StringOf(const std::string& data) {
  Text text(data.size() / sizeof(char16_t), u'\0');
  data.copy(reinterpret_cast<char*>(text.data()), text.size() * sizeof(char16_t));
  if (text.ends_with(u'\0')) text.pop_back();
  return text;
}

}  // namespace

std::optional<RegistryValue> ReadRegistryValue(HKEY key, TextView valueName, TextView shownPath) {
  const std::wstring name = Wide(valueName);
  std::string data;
  DWORD type = REG_NONE;
  LSTATUS status = ERROR_MORE_DATA;
  // Another program may make it longer between the two calls.
  for (DWORD size = 64; status == ERROR_MORE_DATA; data.resize(size)) {
    data.resize(size);
    status = RegQueryValueExW(key, name.c_str(), nullptr, &type,
                              reinterpret_cast<BYTE*>(data.data()), &size);
  }
  if (status == ERROR_FILE_NOT_FOUND) return {};
  if (status != ERROR_SUCCESS) throw PlatformError(u"read", Text(shownPath), status);
  if (type == REG_SZ) return RegistryValue{type, StringOf(data), {}};
  return RegistryValue{type, {}, std::move(data)};
}

}  // namespace tarvo
