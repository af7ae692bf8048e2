#include "console/Terminal.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <iostream>

namespace tarvo {

/// A stream that was closed would be the first file that is opened, and take what is said to it.
Terminal::Terminal() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(stream, F_GETFD) != -1 || errno != EBADF) continue;
    [[maybe_unused]] const int opened = open("/dev/null", O_RDWR);  // The lowest one that is free.
  }
}

Terminal::~Terminal() = default;

bool Terminal::ShowsErrors() const {
  return isatty(STDERR_FILENO);
}

std::optional<std::string> Terminal::ReadLine() {
  std::string line;
  if (!isatty(STDIN_FILENO) || !std::getline(std::cin, line)) return {};
  return line;
}

std::vector<std::string> Terminal::Arguments(int argc, char** argv) {
  return {argv, argv + argc};
}

}  // namespace tarvo
