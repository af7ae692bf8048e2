#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <functional>

#include "platform/CopyTesting.h"
#include "platform/posix/PosixFiles.h"
#include "support/CodeOf.h"

namespace tarvo::test {
namespace {

TEST(PosixCopy, GivesTheSameBytesAcrossFileSystems) {
  const TemporaryFolder here;
  if (access("/dev/shm", W_OK) != 0) GTEST_SKIP() << "no second file system";
  const TemporaryFolder there("/dev/shm");
  struct stat stateHere {};
  struct stat stateThere {};
  ASSERT_EQ(stat(here.Host().c_str(), &stateHere), 0);
  ASSERT_EQ(stat(there.Host().c_str(), &stateThere), 0);
  if (stateHere.st_dev == stateThere.st_dev) GTEST_SKIP() << "no second file system";
  ExpectSameBytes(here, there);
  ExpectSameBytes(there, here);
}

TEST(PosixCopy, CopiesFilesWhoseSizeTheSystemDoesntTell) {
  const TemporaryFolder folder;
  PosixFiles files("");
  const auto source = files.Open(u"Z:\\proc\\cpuinfo");
  const auto file = files.Replace(folder.Game(u"copy"));
  const std::uint64_t copied = file->CopyFrom(*source, 0, 1 << 20);
  file->Commit();
  EXPECT_GT(copied, 0u);
  EXPECT_EQ(folder.Get("copy").size(), copied);
}

/// Gives this process file systems of its own to mount, as a user without rights under a root of
/// its own as well.
bool EnterOwnSpace() {
  const uid_t user = geteuid();
  const gid_t group = getegid();
  if (user == 0) return unshare(CLONE_NEWNS) == 0;
  if (unshare(CLONE_NEWNS | CLONE_NEWUSER) != 0) return false;
  std::ofstream("/proc/self/uid_map") << "0 " << user << " 1";
  std::ofstream("/proc/self/setgroups") << "deny";
  std::ofstream("/proc/self/gid_map") << "0 " << group << " 1";
  return geteuid() == 0 && getegid() == 0;
}

/// Runs a step in a process of its own with a small file system mounted on `hostPath` that no
/// other process sees; gives its exit code, or 255 where such a thing isn't allowed.
int OnSmallDisk(const std::string& hostPath, const std::function<int()>& step) {
  const pid_t child = fork();
  if (child == 0) {
    const bool mounted = EnterOwnSpace() &&
                         mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                         mount("none", hostPath.c_str(), "tmpfs", 0, "size=256k,mode=0777") == 0;
    try {
      _exit(mounted ? step() : 255);
    } catch (...) {
      _exit(254);
    }
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 253;
}

TEST(FullDisk, LeavesTheOldFileAndNoSibling) {
  const TemporaryFolder here;
  const TemporaryFolder disk;
  here.Put("source", RandomBytes(400000));
  const int result = OnSmallDisk(disk.Host(), [&] {
    PosixFiles files("");
    disk.Put("file", std::string(100000, 'o'));
    const auto source = files.Open(here.Game(u"source"));
    const auto attempt = [&](auto&& fill) {
      const auto file = files.Replace(disk.Game(u"file"));
      return CodeOf([&] { fill(*file); }) == ENOSPC && CodeOf([&] { file->Commit(); }) == ENOSPC;
    };
    if (!attempt([&](auto& file) { file.CopyFrom(*source, 0, 400000); })) return 1;
    if (!attempt([&](auto& file) { file.Write(std::string(400000, 'x')); })) return 2;
    if (disk.Get("file") != std::string(100000, 'o')) return 3;
    const std::filesystem::directory_iterator entries(disk.Host());
    if (std::distance(begin(entries), end(entries)) != 1) return 4;
    // What failed takes no room.
    const auto file = files.Replace(disk.Game(u"file"));
    file->Write(std::string(100000, 'n'));
    file->Commit();
    return disk.Get("file") == std::string(100000, 'n') ? 0 : 5;
  });
  if (result == 255) GTEST_SKIP() << "no right to mount";
  EXPECT_EQ(result, 0);
}

}  // namespace
}  // namespace tarvo::test
