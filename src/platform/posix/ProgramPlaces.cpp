#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "platform/ProgramFolder.h"
#include "platform/posix/HostPaths.h"
#include "platform/posix/UserFolders.h"

namespace tarvo {

bool CanWriteIn(TextView folder) {
  return faccessat(AT_FDCWD, HostPath(folder).c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

int MakeUserFolder(TextView folder) {
  return MakeFolders(HostPath(folder), 0700) ? 0 : errno;
}

FoundProgramFolder OpenProgramFolder(Files& files) {
  std::error_code failed;
  const auto file = std::filesystem::read_symlink("/proc/self/exe", failed);
  const std::string own = file.parent_path().native();
  const std::string user = DefaultProgramFolder();
  return OpenProgramFolderAt(
      files, {GamePathOf(own), GamePathOf(JoinHostPath(HostFolderOf(own), "share/tarvo-packager")),
              user.empty() ? Text() : GamePathOf(user)});
}

}  // namespace tarvo
