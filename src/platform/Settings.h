#pragma once

#include "text/Text.h"

namespace tarvo {

/// Texts that outlive the process, addressed by application name, section and key.
class Settings {
 public:
  virtual ~Settings() = default;

  /// `fallback` comes back when the key is missing or the store can't be read.
  virtual Text Read(TextView application, TextView section, TextView key, TextView fallback) = 0;

  /// Throws PlatformError when the store can't be written; it then holds what it held before.
  virtual void Write(TextView application, TextView section, TextView key, TextView text) = 0;
};

}  // namespace tarvo
