#pragma once

#include <optional>
#include <string>

#include "platform/Settings.h"

namespace tarvo {

/// Settings in an INI file: a section "[Application/Section]", in it "Key = text". What lines and
/// names of such a file can't hold is escaped, as %HH for an ASCII character and %uHHHH for a
/// 16-bit unit. Entries of others are kept. Letter case of names is ignored.
///
/// A file that can't be read counts as empty for Read; Write doesn't replace it, but throws.
class IniSettings : public Settings {
 public:
  /// `hostPath` is usually DefaultSettingsFile(). The file and its folders are made by the first
  /// Write.
  explicit IniSettings(std::string hostPath) : hostPath_(std::move(hostPath)) {}

  Text Read(TextView application, TextView section, TextView key, TextView fallback) override;
  void Write(TextView application, TextView section, TextView key, TextView text) override;

 private:
  Text ShownPath() const;

  std::string hostPath_;
};

}  // namespace tarvo
