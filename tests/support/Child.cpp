#include "support/Child.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <exception>
#include <iostream>
#include <map>

namespace tarvo::test {
namespace {

std::map<std::string, ChildPart>& Parts() {
  static std::map<std::string, ChildPart> parts;
  return parts;
}

/// Takes the place of the tests where the process is a child.
class Stage : public testing::Environment {
 public:
  void SetUp() override {
    const std::string part = ChildOrder(kChildPart);
    if (part.empty()) return;
    try {
      std::_Exit(Parts().at(part)(ChildOrder(kChildArgument)));
    } catch (const std::exception& error) {
      std::cerr << part << ": " << error.what() << std::endl;
      std::_Exit(100);
    }
  }
};

}  // namespace

KnownChildPart::KnownChildPart(const char* name, ChildPart part) {
  if (Parts().empty()) testing::AddGlobalTestEnvironment(new Stage);
  Parts().emplace(name, part);
}

int Kills(int usual) {
#ifdef _WIN32
  usual = (usual + 9) / 10;
#endif
  const char* const asked = std::getenv("TARVO_KILLS");
  return asked ? std::atoi(asked) : usual;
}

}  // namespace tarvo::test
