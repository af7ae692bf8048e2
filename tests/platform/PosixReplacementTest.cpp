#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>

#include "platform/FilesFixture.h"
#include "support/CodeOf.h"

namespace tarvo::test {
namespace {

namespace fs = std::filesystem;

class PosixReplacementTest : public FilesFixture {
 protected:
  struct stat StateOf(std::string_view name) {
    struct stat state {};
    EXPECT_EQ(lstat(folder.Host(name).c_str(), &state), 0);
    return state;
  }
};

TEST_F(PosixReplacementTest, GivesModes) {
  const mode_t mask = umask(027);
  Write(u"new", "");
  EXPECT_EQ(StateOf("new").st_mode & 07777, 0640u);
  for (const mode_t mode : {0600u, 0666u, 0755u, 0200u, 04711u}) {
    folder.Put("old", "");
    ASSERT_EQ(chmod(folder.Host("old").c_str(), mode), 0);
    Write(u"old", "bytes");
    EXPECT_EQ(StateOf("old").st_mode & 07777, mode);
  }
  umask(mask);
}

TEST_F(PosixReplacementTest, KeepsExtendedAttributes) {
  folder.Put("file", "");
  const std::string path = folder.Host("file");
  if (setxattr(path.c_str(), "user.a", "one", 3, 0) != 0) GTEST_SKIP() << "none are kept here";
  ASSERT_EQ(setxattr(path.c_str(), "user.empty", "", 0, 0), 0);
  Write(u"file", "bytes");
  char value[8];
  EXPECT_EQ(getxattr(path.c_str(), "user.a", value, sizeof value), 3);
  EXPECT_EQ(std::string(value, 3), "one");
  EXPECT_EQ(getxattr(path.c_str(), "user.empty", value, sizeof value), 0);
}

TEST_F(PosixReplacementTest, KeepsTheOwner) {
  if (geteuid() != 0) GTEST_SKIP() << "only root gives files away";
  folder.Put("file", "");
  ASSERT_EQ(chown(folder.Host("file").c_str(), 1234, 4321), 0);
  ASSERT_EQ(chmod(folder.Host("file").c_str(), 06755), 0);
  Write(u"file", "bytes");
  const struct stat state = StateOf("file");
  EXPECT_EQ(state.st_uid, 1234u);
  EXPECT_EQ(state.st_gid, 4321u);
  EXPECT_EQ(state.st_mode & 07777, 06755u);
}

/// Runs a step in a process of its own, as a user without rights; gives its exit code.
template <class Step>
int AsNobody(Step&& step) {
  const pid_t child = fork();
  if (child == 0) {
    const bool changed = setgid(65534) == 0 && setuid(65534) == 0;
    try {
      _exit(changed ? step() : 200);
    } catch (...) {
      _exit(202);
    }
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 201;
}

TEST_F(PosixReplacementTest, NeverWidensTheRightsOfAFileOfOthers) {
  if (geteuid() != 0) GTEST_SKIP() << "only root becomes another user";
  ASSERT_EQ(chmod(folder.Host().c_str(), 0777), 0);
  folder.Put("open", "old");
  ASSERT_EQ(chmod(folder.Host("open").c_str(), 06676), 0);
  folder.Put("closed", "old");
  ASSERT_EQ(chmod(folder.Host("closed").c_str(), 0644), 0);
  const int code = AsNobody([&] {
    Write(u"open", "new");
    return CodeOf([&] { Write(u"closed", "new"); });
  });
  EXPECT_EQ(code, EACCES);
  EXPECT_EQ(folder.Get("closed"), "old");
  EXPECT_EQ(folder.Get("open"), "new");
  EXPECT_EQ(StateOf("open").st_uid, 65534u);
  EXPECT_EQ(StateOf("open").st_mode & 07777, 0666u);
}

TEST_F(PosixReplacementTest, RefusesWhatALinkLeadsToAndWhatIsNoFile) {
  folder.Put("readonly", "old");
  ASSERT_EQ(chmod(folder.Host("readonly").c_str(), 0444), 0);
  ASSERT_EQ(mkfifo(folder.Host("pipe").c_str(), 0600), 0);
  fs::create_symlink("loop", folder.Host("loop"));
  fs::create_symlink("readonly", folder.Host("link"));
  const struct {
    TextView Name;
    int Code;
  } cases[] = {{u"LINK", EACCES}, {u"loop", ELOOP}, {u"pipe", EINVAL}};
  const std::size_t before = folder.Entries();
  for (const auto& [name, code] : cases) {
    EXPECT_EQ(CodeOf([&] { files.Replace(folder.Game(name)); }), code)
        << testing::PrintToString(name);
  }
  EXPECT_EQ(CodeOf([&] { files.Replace(u"C:\\x"); }), ENOENT);
  EXPECT_EQ(folder.Entries(), before);
  EXPECT_EQ(folder.Get("readonly"), "old");
}

TEST_F(PosixReplacementTest, FollowsLinks) {
  const TemporaryFolder elsewhere;
  elsewhere.Put("real", "old");
  fs::create_symlink(elsewhere.Host("real"), folder.Host("absolute"));
  fs::create_symlink("absolute", folder.Host("relative"));
  fs::create_symlink(elsewhere.Host("made"), folder.Host("dangling"));
  Write(u"RELATIVE", "new");
  Write(u"dangling", "fresh");
  EXPECT_EQ(elsewhere.Get("real"), "new");
  EXPECT_EQ(elsewhere.Get("made"), "fresh");
  for (const char* link : {"absolute", "relative", "dangling"}) {
    EXPECT_TRUE(fs::is_symlink(folder.Host(link))) << link;
  }
  EXPECT_EQ(folder.Entries(), 3u);
}

TEST_F(PosixReplacementTest, RespectsAFileThatAppearsMeanwhile) {
  const auto file = files.Replace(folder.Game(u"file"));
  file->Write("ours");
  folder.Put("file", "theirs");
  ASSERT_EQ(chmod(folder.Host("file").c_str(), 0604), 0);
  file->Commit();
  EXPECT_EQ(folder.Get("file"), "ours");
  EXPECT_EQ(StateOf("file").st_mode & 07777, 0604u);

  const auto refused = files.Replace(folder.Game(u"other"));
  folder.Put("other", "theirs");
  ASSERT_EQ(chmod(folder.Host("other").c_str(), 0444), 0);
  EXPECT_EQ(CodeOf([&] { refused->Commit(); }), EACCES);
  EXPECT_EQ(folder.Get("other"), "theirs");
  EXPECT_EQ(folder.Entries(), 2u);
}

TEST_F(PosixReplacementTest, KeepsTheModeOfAFileThatGoesMeanwhile) {
  folder.Put("file", "old");
  ASSERT_EQ(chmod(folder.Host("file").c_str(), 0640), 0);
  const auto file = files.Replace(folder.Game(u"file"));
  file->Write("new");
  fs::remove(folder.Host("file"));
  file->Commit();
  EXPECT_EQ(folder.Get("file"), "new");
  EXPECT_EQ(StateOf("file").st_mode & 07777, 0640u);
}

/// Limits the size of files for as long as it lives, without the signal that goes with it.
class SizeLimit {
 public:
  explicit SizeLimit(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~SizeLimit() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }

 private:
  void (*handler_)(int);
  rlimit before_{};
};

TEST_F(PosixReplacementTest, KeepsTheOldFileWhenAWriteFails) {
  folder.Put("file", "old");
  folder.Put("source", std::string(300000, 's'));
  const auto source = files.Open(folder.Game(u"source"));
  const SizeLimit limit(100000);
  const auto attempt = [&](auto&& fill) {
    const auto file = files.Replace(folder.Game(u"file"));
    const int filled = CodeOf([&] { fill(*file); });
    // What failed is never put in place, whether it showed while filling or only now.
    const int committed = CodeOf([&] { file->Commit(); });
    EXPECT_EQ(committed, EFBIG);
    EXPECT_EQ(folder.Get("file"), "old");
    EXPECT_EQ(folder.Entries(), 2u);
    return filled;
  };
  EXPECT_EQ(attempt([](FileReplacement& file) { file.Write(std::string(150000, 'x')); }), EFBIG);
  EXPECT_EQ(attempt([&](FileReplacement& file) { file.CopyFrom(*source, 0, 300000); }), EFBIG);
  EXPECT_EQ(attempt([](FileReplacement& file) {
              file.Write(std::string(70000, 'x'));
              // Stays in the buffer.
              file.Write(std::string(40000, 'x'));
            }),
            0);
}

}  // namespace
}  // namespace tarvo::test
