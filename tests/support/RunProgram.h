#pragma once

#include <string>
#include <vector>

namespace tarvo::test {

struct Ran {
  int Status;          ///< -1 for a program that couldn't be run or was killed.
  std::string Output;  ///< The bytes of its standard output.
};

/// Runs a program with its arguments, all in UTF-8, for at most two minutes. It has nothing to
/// read, and what it says on standard error is dropped.
Ran RunProgram(std::vector<std::string> words);

}  // namespace tarvo::test
