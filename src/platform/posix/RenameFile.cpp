#include "platform/posix/RenameFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace tarvo {
namespace {

bool Unsupported(int code) {
  return code == ENOSYS || code == EINVAL || code == EPERM || code == EOPNOTSUPP || code == EMLINK;
}

int Result(int answer) {
  return answer == 0 ? 0 : errno;
}

}  // namespace

int RenameWithoutReplacing(const std::string& from, const std::string& to) {
  const int renamed =
      Result(renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE));
  if (!Unsupported(renamed)) return renamed;
  const int linked = Result(link(from.c_str(), to.c_str()));
  if (linked == 0) {
    const int unlinked = Result(unlink(from.c_str()));
    if (unlinked != 0) unlink(to.c_str());
    return unlinked;
  }
  if (!Unsupported(linked)) return linked;
  struct stat state;
  if (lstat(to.c_str(), &state) == 0) return EEXIST;
  return Result(rename(from.c_str(), to.c_str()));
}

}  // namespace tarvo
