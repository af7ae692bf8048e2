#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tarvo {

/// The terminal and the command line as the system hands them to a program. While it lives,
/// standard output and standard error take UTF-8 and pass all bytes on as they are.
class Terminal {
 public:
  Terminal();
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;
  ~Terminal();

  /// True when a user sees what goes to standard error.
  bool ShowsErrors() const;

  /// The user's next line, in UTF-8; nothing where no user types at the program.
  std::optional<std::string> ReadLine();

  /// The arguments of the process in UTF-8, the program's name in front. `argc` and `argv` are
  /// those of main.
  static std::vector<std::string> Arguments(int argc, char** argv);

 private:
  /// Of a Windows console; 0 where none is to be put back.
  [[maybe_unused]] unsigned codePageBefore_ = 0;
};

}  // namespace tarvo
