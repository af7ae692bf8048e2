#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace tarvo::test {

struct Entry {
  bool IsFolder = false;
  std::filesystem::perms Mode{};
  std::string Bytes;

  friend bool operator==(const Entry&, const Entry&) = default;
};

/// What lies below a folder, by the paths from there on.
using Tree = std::map<std::string, Entry>;

Tree ReadTree(const std::string& folder);

/// Makes `wanted` of what lies in the folder now. All folders get one time of change, so that two
/// runs find the same.
void RestoreTree(const std::string& folder, const Tree& now, const Tree& wanted);

}  // namespace tarvo::test
