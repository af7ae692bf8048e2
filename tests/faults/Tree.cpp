#include "faults/Tree.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <fstream>
#include <ranges>

#include "faults/Process.h"

namespace tarvo::test {

namespace fs = std::filesystem;

Tree ReadTree(const std::string& folder) {
  Tree tree;
  for (const fs::directory_entry& item : fs::recursive_directory_iterator(folder)) {
    const std::string& path = item.path().native();
    const bool isFolder = item.is_directory();
    tree[path.substr(folder.size())] = {isFolder, item.symlink_status().permissions(),
                                        isFolder ? "" : BytesOf(path)};
  }
  return tree;
}

void RestoreTree(const std::string& folder, const Tree& now, const Tree& wanted) {
  for (const auto& [path, entry] : now | std::views::reverse) {
    const auto kept = wanted.find(path);
    const bool stays = kept != wanted.end() && (kept->second == entry || entry.IsFolder);
    if (!stays) fs::remove(folder + path);
  }
  for (const auto& [path, entry] : wanted) {
    const auto found = now.find(path);
    if (found != now.end() && found->second == entry) continue;
    if (entry.IsFolder) {
      fs::create_directory(folder + path);
    } else {
      std::ofstream(folder + path, std::ios::binary) << entry.Bytes;
    }
    fs::permissions(folder + path, entry.Mode);
  }
  constexpr timespec kTimes[2] = {{1'000'000'000, 0}, {1'000'000'000, 0}};
  for (const auto& [path, entry] : wanted) {
    if (entry.IsFolder) utimensat(AT_FDCWD, (folder + path).c_str(), kTimes, 0);
  }
}

}  // namespace tarvo::test
