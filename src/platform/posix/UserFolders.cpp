#include "platform/posix/UserFolders.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "platform/posix/HostPaths.h"

namespace tarvo {
namespace {

std::string Variable(const char* name) {
  const char* const value = std::getenv(name);
  return value ? value : "";
}

/// A folder of the XDG base directories; one that isn't absolute doesn't count.
std::string BaseFolder(const char* variable, const char* fallback) {
  const std::string value = Variable(variable);
  if (!value.empty() && value.front() == '/') return value;
  const std::string home = HomeFolder();
  return home.empty() ? home : JoinHostPath(home, fallback);
}

}  // namespace

std::string HomeFolder() {
  const std::string home = Variable("HOME");
  if (!home.empty() && home.front() == '/') return home;
  const passwd* const user = getpwuid(getuid());
  return user && user->pw_dir ? user->pw_dir : "";
}

std::vector<std::string> DefaultJournalFolders() {
  std::vector<std::string> folders;
  const std::string base = BaseFolder("XDG_STATE_HOME", ".local/state");
  if (!base.empty()) folders.push_back(JoinHostPath(base, "tarvo-packager"));
  folders.push_back("/var/tmp/tarvo-packager-" + std::to_string(geteuid()));
  return folders;
}

std::string DefaultSettingsFile() {
  const std::string base = BaseFolder("XDG_CONFIG_HOME", ".config");
  return base.empty() ? base : JoinHostPath(base, "tarvo-packager/settings.ini");
}

std::string DefaultProgramFolder() {
  const std::string base = BaseFolder("XDG_DATA_HOME", ".local/share");
  return base.empty() ? base : JoinHostPath(base, "tarvo-packager");
}

bool MakeFolders(const std::string& hostPath, mode_t mode) {
  struct stat state;
  if (stat(hostPath.c_str(), &state) == 0) {
    errno = ENOTDIR;
    return S_ISDIR(state.st_mode);
  }
  if (errno != ENOENT || hostPath.size() < 2) return false;
  if (!MakeFolders(HostFolderOf(hostPath), mode)) return false;
  return mkdir(hostPath.c_str(), mode) == 0 || errno == EEXIST;
}

}  // namespace tarvo
