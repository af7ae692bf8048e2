#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "platform/posix/PosixFiles.h"
#include "support/TemporaryFolder.h"

namespace tarvo::test {
namespace {

namespace fs = std::filesystem;

class AbandonedTest : public testing::Test {
 protected:
  static std::size_t Entries(const std::string& hostPath) {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(hostPath), fs::directory_iterator()));
  }

  std::string Journals() const { return journal.Host("made/on/use"); }

  /// Says when it is in the middle of replacing files in both folders, and stays there.
  [[noreturn]] void ReplaceUntilKilled(int pipe) {
    PosixFiles files(Journals());
    const auto first = files.Replace(folder.Game(u"file"));
    const auto second = files.Replace(folder.Game(u"odd\nname \xDCFF\\file"));
    first->Write(std::string(100000, 'x'));
    if (write(pipe, "!", 1) != 1) _exit(1);
    while (true) pause();
  }

  /// A process that is killed in the middle of replacing files in both folders.
  void KillInTheMiddle() {
    int pipes[2];
    ASSERT_EQ(pipe(pipes), 0);
    const pid_t child = fork();
    if (child == 0) {
      try {
        ReplaceUntilKilled(pipes[1]);
      } catch (...) {
        _exit(1);
      }
    }
    close(pipes[1]);
    char told = 0;
    ASSERT_EQ(read(pipes[0], &told, 1), 1);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    close(pipes[0]);
  }

  void SetUp() override {
    folder.Put("file", "old");
    folder.Put("odd\nname \xFF/other", "");
    odd = folder.Host("odd\nname \xFF");
  }

  TemporaryFolder folder;
  TemporaryFolder journal;
  std::string odd;
};

TEST_F(AbandonedTest, RemovesWhatAKilledProcessLeft) {
  KillInTheMiddle();
  ASSERT_EQ(Entries(folder.Host()), 3u);
  ASSERT_EQ(Entries(odd), 2u);
  PosixFiles files(Journals());
  files.RemoveAbandoned();
  EXPECT_EQ(folder.Get("file"), "old");
  EXPECT_EQ(Entries(folder.Host()), 2u);
  EXPECT_EQ(Entries(odd), 1u);
  EXPECT_TRUE(fs::is_empty(Journals()));
}

TEST_F(AbandonedTest, LeavesTheSiblingsOfTheLivingAndFilesOfOthers) {
  PosixFiles living(Journals());
  const auto file = living.Replace(folder.Game(u"file"));
  file->Write("new");
  folder.Put(".tarvo-1_2-1.tmp", "no journal names it");
  KillInTheMiddle();
  PosixFiles files(Journals());
  files.RemoveAbandoned();
  living.RemoveAbandoned();
  EXPECT_EQ(Entries(folder.Host()), 4u);
  EXPECT_EQ(Entries(Journals()), 1u);
  file->Commit();
  EXPECT_EQ(folder.Get("file"), "new");
}

TEST_F(AbandonedTest, ForgetsFoldersThatAreGone) {
  KillInTheMiddle();
  fs::remove_all(odd);
  PosixFiles(Journals()).RemoveAbandoned();
  EXPECT_EQ(Entries(folder.Host()), 1u);
  EXPECT_TRUE(fs::is_empty(Journals()));
}

TEST_F(AbandonedTest, TakesGarbageInTheJournalFolder) {
  journal.Put("garbage.pending", std::string("relative\n\\\n\0\n/nowhere\\", 23));
  journal.Put(".pending", folder.Host() + "\n");
  journal.Put("other.txt", "stays");
  fs::create_symlink(folder.Host("file"), journal.Host("link.pending"));
  PosixFiles(journal.Host()).RemoveAbandoned();
  EXPECT_EQ(Entries(folder.Host()), 2u);
  EXPECT_EQ(folder.Get("file"), "old");
  EXPECT_EQ(journal.Get("other.txt"), "stays");
  EXPECT_FALSE(fs::exists(journal.Host("garbage.pending")));
}

TEST_F(AbandonedTest, KeepsAJournalForTheUserAloneWhileThereAreSiblings) {
  {
    PosixFiles files(Journals());
    files.RemoveAbandoned();
    EXPECT_FALSE(fs::exists(Journals()));
    const auto file = files.Replace(folder.Game(u"file"));
    ASSERT_EQ(Entries(Journals()), 1u);
    struct stat state {};
    ASSERT_EQ(stat(Journals().c_str(), &state), 0);
    EXPECT_EQ(state.st_mode & 07777, 0700u);
  }
  EXPECT_TRUE(fs::is_empty(Journals()));
}

TEST_F(AbandonedTest, WorksWithoutAJournal) {
  journal.Put("file", "in the way");
  PosixFiles files(journal.Host("file/below"));
  files.RemoveAbandoned();
  const auto file = files.Replace(folder.Game(u"file"));
  file->Write("new");
  file->Commit();
  EXPECT_EQ(folder.Get("file"), "new");
}

}  // namespace
}  // namespace tarvo::test
