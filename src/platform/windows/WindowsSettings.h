#pragma once

#include "platform/Settings.h"

namespace tarvo {

/// Settings in the user's part of the registry: HKEY_CURRENT_USER\Software\APPLICATION\SECTION has
/// a text for each key. Application and section are names without a backslash.
class WindowsSettings : public Settings {
 public:
  Text Read(TextView application, TextView section, TextView key, TextView fallback) override;
  void Write(TextView application, TextView section, TextView key, TextView text) override;
};

}  // namespace tarvo
