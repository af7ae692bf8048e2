#pragma once

#include <memory>
#include <string>

#include "platform/Settings.h"

namespace tarvo {

struct PosixState;

/// Settings in an INI file: a section "[Application/Section]", in it "Key = text". What lines and
/// names of such a file can't hold is escaped, as %HH for an ASCII character and %uHHHH for a
/// 16-bit unit. Entries of others are kept. Letter case of names is ignored.
///
/// A file that can't be read counts as empty for Read; Write doesn't replace it, but throws. So
/// does it when another process holds the settings for more than a second.
class IniSettings : public Settings {
 public:
  /// `hostPath` is usually DefaultSettingsFile(). The file and its folders are made by the first
  /// Write. `state` has the journal of temporary files.
  explicit IniSettings(std::string hostPath, std::shared_ptr<PosixState> state)
      : hostPath_(std::move(hostPath)), state_(std::move(state)) {}

  Text Read(TextView application, TextView section, TextView key, TextView fallback) override;
  void Write(TextView application, TextView section, TextView key, TextView text) override;

 private:
  Text ShownPath() const;

  std::string hostPath_;
  std::shared_ptr<PosixState> state_;
};

}  // namespace tarvo
