#include "console/Terminal.h"

#include <unistd.h>

#include <iostream>

namespace tarvo {

Terminal::Terminal() = default;

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
