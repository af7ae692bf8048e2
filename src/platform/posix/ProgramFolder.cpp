#include "platform/posix/ProgramFolder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "platform/InstalledData.h"
#include "platform/posix/HostPaths.h"
#include "platform/posix/UserFolders.h"

namespace tarvo {
namespace {

/// The program's data is known by the one folder that no version lacks.
bool HoldsData(const std::string& folder) {
  struct stat state;
  return folder.starts_with('/') && stat(JoinHostPath(folder, "Backup").c_str(), &state) == 0 &&
         S_ISDIR(state.st_mode);
}

bool IsSameFolder(const std::string& a, const std::string& b) {
  std::error_code failed;
  return std::filesystem::equivalent(a, b, failed);
}

bool CanWriteIn(const std::string& folder) {
  return faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

}  // namespace

FoundProgramFolder OpenProgramFolderAt(Files& files, const std::string& own,
                                       const std::string& userData) {
  const std::string shared = JoinHostPath(HostFolderOf(own), "share/tarvo-packager");
  const bool isInstalled = !HoldsData(own) && HoldsData(shared);
  if (!isInstalled && CanWriteIn(own)) return {GamePathOf(own), {}};
  const std::string& source = isInstalled ? shared : own;
  if (userData.empty()) {
    return {GamePathOf(source), {PlatformError(u"find", u"the home folder", ENOENT)}};
  }
  FoundProgramFolder found{GamePathOf(userData), {}};
  if (!MakeFolders(userData, 0700)) {
    found.Failures.emplace_back(u"make folder", found.Path, errno);
  } else if (!HoldsData(source)) {
    found.Failures.emplace_back(u"find", GamePathOf(shared), ENOENT);
  } else if (!IsSameFolder(source, userData)) {
    found.Failures = CopyInstalledData(files, GamePathOf(source), found.Path);
  }
  return found;
}

FoundProgramFolder OpenProgramFolder(Files& files) {
  std::error_code failed;
  const auto file = std::filesystem::read_symlink("/proc/self/exe", failed);
  return OpenProgramFolderAt(files, file.parent_path().native(), DefaultProgramFolder());
}

Text FailureWords(const FoundProgramFolder& found) {
  if (found.Failures.empty()) return {};
  Text words =
      u"The program's own files couldn't be brought up to date. " + Words(found.Failures.front());
  if (const std::size_t more = found.Failures.size() - 1) {
    const std::string count = std::to_string(more);
    words += u" (and " + Text(count.begin(), count.end()) + u" more)";
  }
  return words;
}

}  // namespace tarvo
