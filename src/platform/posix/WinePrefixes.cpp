#include "platform/posix/WinePrefixes.h"

#include <glob.h>
#include <sys/stat.h>

#include <cstdlib>
#include <set>
#include <string_view>
#include <utility>

#include "platform/posix/HostPaths.h"
#include "platform/posix/UserFolders.h"

namespace tarvo {
namespace {

/// Below the home folder. Steam is reached by a link as well, so prefixes are told apart by their
/// files.
constexpr std::string_view kUsualPlaces[] = {
    "Games/*",
    ".local/share/bottles/bottles/*",
    ".var/app/com.usebottles.bottles/data/bottles/bottles/*",
    "Games/Heroic/Prefixes/*",
    "Games/Heroic/Prefixes/*/pfx",
    "Games/Heroic/Prefixes/default/*",
    "Games/Heroic/Prefixes/default/*/pfx",
    ".steam/steam/steamapps/compatdata/*/pfx",
    ".local/share/Steam/steamapps/compatdata/*/pfx",
    ".var/app/com.valvesoftware.Steam/.local/share/Steam/steamapps/compatdata/*/pfx",
};

/// `folder` with what a pattern would take for wildcards marked as plain.
std::string Quoted(std::string_view folder) {
  std::string quoted;
  for (const char byte : folder) {
    if (std::string_view("*?[]\\").find(byte) != std::string_view::npos) quoted += '\\';
    quoted += byte;
  }
  return quoted;
}

std::vector<std::string> Matches(const std::string& pattern) {
  std::vector<std::string> paths;
  glob_t found{};
  if (glob(pattern.c_str(), 0, nullptr, &found) == 0) {
    paths.assign(found.gl_pathv, found.gl_pathv + found.gl_pathc);
  }
  globfree(&found);
  return paths;
}

}  // namespace

WineEnvironment CurrentWineEnvironment() {
  const char* const prefix = std::getenv("WINEPREFIX");
  return {prefix ? prefix : "", HomeFolder()};
}

std::vector<std::string> UsualWinePrefixes(const WineEnvironment& environment) {
  std::vector<std::string> prefixes;
  std::set<std::pair<dev_t, ino_t>> known;
  const auto isNew = [&known](const std::string& prefix) {
    struct stat state;
    if (stat(JoinHostPath(prefix, "system.reg").c_str(), &state) != 0) return false;
    return known.emplace(state.st_dev, state.st_ino).second;
  };
  const auto add = [&](const std::string& prefix) {
    if (isNew(prefix)) prefixes.push_back(prefix);
  };
  if (!environment.Prefix.empty()) add(environment.Prefix);
  if (environment.Home.empty()) return prefixes;
  add(JoinHostPath(environment.Home, ".wine"));
  for (const std::string_view place : kUsualPlaces) {
    for (const std::string& path : Matches(JoinHostPath(Quoted(environment.Home), place))) {
      add(path);
    }
  }
  return prefixes;
}

}  // namespace tarvo
