#pragma once

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "text/Text.h"

namespace tarvo::test {

/// The bytes of a file of the sources, named from their root.
inline FileText SourceFile(const std::string& name) {
  std::ifstream file(std::string(TARVO_SOURCE "/") + name, std::ios::binary);
  if (!file) throw std::runtime_error("no file " + name);
  return {std::istreambuf_iterator<char>(file), {}};
}

inline FileText Golden(const std::string& name) {
  return SourceFile("tests/ships/golden/" + name);
}

}  // namespace tarvo::test
