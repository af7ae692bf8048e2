#include "support/TemporaryFolder.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>

#include "platform/posix/HostPaths.h"
#include "text/Paths.h"

namespace tarvo::test {

namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder(std::string_view below) {
  const fs::path parent = below.empty() ? fs::temp_directory_path() : fs::path(below);
  std::random_device random;
  do {
    host_ = (parent / ("tarvo-test-" + std::to_string(random()))).string();
  } while (!fs::create_directory(host_));
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(host_, ignored);
}

std::string TemporaryFolder::Host(std::string_view name) const {
  return name.empty() ? host_ : JoinHostPath(host_, name);
}

Text TemporaryFolder::Game(TextView name) const {
  const Text folder = GamePathOf(host_);
  return name.empty() ? folder : JoinPath(folder, name);
}

void TemporaryFolder::Put(std::string_view name, std::string_view bytes) const {
  const fs::path path = Host(name);
  fs::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!file.flush()) throw std::runtime_error("can't make " + path.string());
}

std::string TemporaryFolder::Get(std::string_view name) const {
  std::ifstream file(Host(name), std::ios::binary);
  if (!file) throw std::runtime_error("no file " + Host(name));
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace tarvo::test
