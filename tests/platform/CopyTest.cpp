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
#include <random>

#include "platform/posix/PosixFiles.h"
#include "support/CodeOf.h"
#include "support/TemporaryFolder.h"

namespace tarvo::test {
namespace {

std::string RandomBytes(std::size_t count) {
  std::mt19937 random(1);
  std::string bytes(count, '\0');
  for (char& byte : bytes) byte = static_cast<char>(random());
  return bytes;
}

void ExpectSameBytes(const TemporaryFolder& from, const TemporaryFolder& to) {
  PosixFiles files("");
  const std::string bytes = RandomBytes(300000);
  from.Put("source", bytes);
  const auto source = files.Open(from.Game(u"source"));
  const struct {
    std::uint64_t Position;
    std::uint64_t Count;
    std::uint64_t Copied;
  } cases[] = {
      {0, 300000, 300000},
      {1, 100, 100},
      {5, 16 * 1024, 16 * 1024},
      {7, 16 * 1024 + 1, 16 * 1024 + 1},
      {65530, 70000, 70000},
      {299990, 1u << 31, 10},
      {299990, 100, 10},
      {300000, 5, 0},
      {~std::uint64_t{0}, 100000, 0},
      {0, 0, 0},
  };
  std::string expected = "head";
  const auto file = files.Replace(to.Game(u"copy"));
  file->Write("head");
  for (const auto& [position, count, copied] : cases) {
    EXPECT_EQ(file->CopyFrom(*source, position, count), copied) << position << ' ' << count;
    file->Write("|");
    expected += (copied == 0 ? "" : bytes.substr(position, copied)) + '|';
  }
  file->Commit();
  EXPECT_TRUE(to.Get("copy") == expected);
}

TEST(Copy, GivesTheSameBytesOnOneFileSystem) {
  const TemporaryFolder folder;
  ExpectSameBytes(folder, folder);
}

TEST(Copy, GivesTheSameBytesAcrossFileSystems) {
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

TEST(Copy, CopiesFilesWhoseSizeTheSystemDoesntTell) {
  const TemporaryFolder folder;
  PosixFiles files("");
  const auto source = files.Open(u"Z:\\proc\\cpuinfo");
  const auto file = files.Replace(folder.Game(u"copy"));
  const std::uint64_t copied = file->CopyFrom(*source, 0, 1 << 20);
  file->Commit();
  EXPECT_GT(copied, 0u);
  EXPECT_EQ(folder.Get("copy").size(), copied);
}

/// A source that is no file of the host.
class TextReader : public FileReader {
 public:
  explicit TextReader(std::string bytes) : bytes_(std::move(bytes)) {}
  std::uint64_t Size() const override { return bytes_.size(); }
  std::size_t ReadAt(std::uint64_t position, std::span<char> block) override {
    return bytes_.copy(block.data(), block.size(), position);
  }

 private:
  std::string bytes_;
};

TEST(Copy, TakesAnyReader) {
  const TemporaryFolder folder;
  PosixFiles files("");
  TextReader source(RandomBytes(200000));
  const auto file = files.Replace(folder.Game(u"copy"));
  EXPECT_EQ(file->CopyFrom(source, 10, 500000), 199990u);
  file->Commit();
  EXPECT_TRUE(folder.Get("copy") == RandomBytes(200000).substr(10));
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
