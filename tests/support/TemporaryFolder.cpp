#include "support/TemporaryFolder.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>

#include "platform/HostMachine.h"
#include "text/Paths.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

namespace fs = std::filesystem;

fs::path PathOf(std::string_view host) {
#ifdef _WIN32
  const Text path = TextFromUtf8(host);
  return std::wstring(path.begin(), path.end());
#else
  return host;
#endif
}

std::string HostOf(const fs::path& path) {
  const std::u8string bytes = path.u8string();
  return {bytes.begin(), bytes.end()};
}

/// Windows deletes nothing that is read-only.
void MakeWritable(const fs::path& folder) {
  std::error_code failed;
  for (fs::recursive_directory_iterator entry(folder, failed), end; !failed && entry != end;
       entry.increment(failed)) {
    fs::permissions(*entry, fs::perms::owner_write, fs::perm_options::add, failed);
  }
}

}  // namespace

TemporaryFolder::TemporaryFolder(std::string_view below) {
  const fs::path parent = below.empty() ? fs::temp_directory_path() : PathOf(below);
  std::random_device random;
  do {
    host_ = HostOf(parent / ("tarvo-test-" + std::to_string(random())));
  } while (!fs::create_directory(Path()));
}

TemporaryFolder::~TemporaryFolder() {
  if (!isOwn_) return;
  std::error_code failed;
  fs::remove_all(Path(), failed);
  if (!failed) return;
  MakeWritable(Path());
  fs::remove_all(Path(), failed);
}

std::string TemporaryFolder::Host(std::string_view name) const {
  std::string path = host_;
  if (!name.empty()) path.append("/").append(name);
#ifdef _WIN32
  std::replace(path.begin(), path.end(), '/', '\\');
#endif
  return path;
}

fs::path TemporaryFolder::Path(std::string_view name) const {
  return PathOf(Host(name));
}

Text TemporaryFolder::Game(TextView name) const {
  const Text folder = GamePathFromArgument(host_);
  return name.empty() ? folder : JoinPath(folder, name);
}

void TemporaryFolder::Put(std::string_view name, std::string_view bytes) const {
  const fs::path path = Path(name);
  fs::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!file.flush()) throw std::runtime_error("can't make " + Host(name));
}

std::string TemporaryFolder::Get(std::string_view name) const {
  std::ifstream file(Path(name), std::ios::binary);
  if (!file) throw std::runtime_error("no file " + Host(name));
  return {std::istreambuf_iterator<char>(file), {}};
}

std::size_t TemporaryFolder::Entries(std::string_view name) const {
  return static_cast<std::size_t>(
      std::distance(fs::directory_iterator(Path(name)), fs::directory_iterator()));
}

}  // namespace tarvo::test
