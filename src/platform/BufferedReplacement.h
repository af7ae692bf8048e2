#pragma once

#include <string>

#include "platform/Files.h"

namespace tarvo {

/// What the replacements of all systems have in common: small writes are gathered, and a write
/// that has failed once is never put in place.
class BufferedReplacement : public FileReplacement {
 public:
  void Write(FileTextView bytes) override;
  std::uint64_t CopyFrom(FileReader& source, std::uint64_t position, std::uint64_t count) override;

 protected:
  /// `path` names the file in errors.
  explicit BufferedReplacement(TextView path) : path_(path) {}

  /// Writes behind what was written before, or ends in FailWriting.
  virtual void WriteOut(FileTextView bytes) = 0;

  void Flush();
  void CheckUnfailed();

  [[noreturn]] void Fail(TextView operation, int code) const;
  [[noreturn]] void FailWriting(int code);

 private:
  Text path_;
  std::string buffer_;
  int failure_ = 0;  ///< The code of the first failed write: what stands there is incomplete.
};

}  // namespace tarvo
