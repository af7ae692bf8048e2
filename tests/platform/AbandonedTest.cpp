#include <gtest/gtest.h>

#include <filesystem>
#include <thread>

#include "platform/HostMachine.h"
#ifndef _WIN32
#include "platform/posix/PosixFiles.h"
#endif
#include "support/Child.h"
#include "support/TemporaryFolder.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

namespace fs = std::filesystem;

#ifdef _WIN32
constexpr std::string_view kOddName = "odd %name% \xD0\x96";
#else
constexpr std::string_view kOddName = "odd\nname \xFF";
#endif

/// Says when it is in the middle of replacing files in both folders, and stays there.
const KnownChildPart kReplacing("Replacing", [](const std::string& folder) {
  const Text game = GamePathFromArgument(folder);
  const auto files = OpenFiles(folder + "/journal/made/on/use");
  const auto first = files->Replace(game + u"\\file");
  const auto second = files->Replace(game + u"\\" + TextFromUtf8(kOddName) + u"\\file");
  first->Write(std::string(100000, 'x'));
  SayReady();
  std::this_thread::sleep_for(std::chrono::hours(1));
  return 0;
});

class AbandonedTest : public testing::Test {
 protected:
  std::string Journals() const { return folder.Host("journal/made/on/use"); }

  /// The number of journals.
  std::size_t Journal() const { return folder.Entries("journal/made/on/use"); }

  /// A process that is killed in the middle of replacing files in both folders.
  void KillInTheMiddle() {
    Child child("Replacing", folder.Host());
    ASSERT_TRUE(child.WaitUntilReady());
    child.Kill();
    EXPECT_EQ(child.Wait(), -1);
  }

  void SetUp() override {
    folder.Put("file", "old");
    folder.Put(std::string(kOddName) + "/other", "");
    fs::create_directory(folder.Path("journal"));
  }

  TemporaryFolder folder;
};

TEST_F(AbandonedTest, RemovesWhatAKilledProcessLeft) {
  KillInTheMiddle();
  ASSERT_EQ(folder.Entries(), 4u);
  ASSERT_EQ(folder.Entries(kOddName), 2u);
  OpenFiles(Journals())->RemoveAbandoned();
  EXPECT_EQ(folder.Get("file"), "old");
  EXPECT_EQ(folder.Entries(), 3u);
  EXPECT_EQ(folder.Entries(kOddName), 1u);
  EXPECT_EQ(Journal(), 0u);
}

TEST_F(AbandonedTest, LeavesTheSiblingsOfTheLivingAndFilesOfOthers) {
  const auto living = OpenFiles(Journals());
  const auto file = living->Replace(folder.Game(u"file"));
  file->Write("new");
  folder.Put(".tarvo-1_2-1.tmp", "no journal names it");
  KillInTheMiddle();
  OpenFiles(Journals())->RemoveAbandoned();
  living->RemoveAbandoned();
  EXPECT_EQ(folder.Entries(), 5u);
  EXPECT_EQ(Journal(), 1u);
  file->Commit();
  EXPECT_EQ(folder.Get("file"), "new");
}

TEST_F(AbandonedTest, ForgetsFoldersThatAreGone) {
  KillInTheMiddle();
  fs::remove_all(folder.Path(kOddName));
  OpenFiles(Journals())->RemoveAbandoned();
  EXPECT_EQ(folder.Entries(), 2u);
  EXPECT_EQ(Journal(), 0u);
}

TEST_F(AbandonedTest, TakesGarbageInTheJournalFolder) {
  folder.Put("journal/garbage.pending", std::string("relative\n\\\n\0\n/nowhere\\", 23));
  folder.Put("journal/.pending", folder.Host() + "\n");
  folder.Put("journal/other.txt", "stays");
  OpenFiles(folder.Host("journal"))->RemoveAbandoned();
  EXPECT_EQ(folder.Entries(), 3u);
  EXPECT_EQ(folder.Get("journal/other.txt"), "stays");
  EXPECT_FALSE(fs::exists(folder.Path("journal/garbage.pending")));
}

TEST_F(AbandonedTest, KeepsAJournalWhileThereAreSiblings) {
  {
    const auto files = OpenFiles(Journals());
    files->RemoveAbandoned();
    EXPECT_FALSE(fs::exists(folder.Path("journal/made")));
    const auto file = files->Replace(folder.Game(u"file"));
    ASSERT_EQ(Journal(), 1u);
  }
  EXPECT_EQ(Journal(), 0u);
}

#ifndef _WIN32
TEST_F(AbandonedTest, AFolderThatCantBeUsedGivesWayToTheNextOne) {
  const auto state =
      std::make_shared<PosixState>(std::vector{folder.Host("file/below"), folder.Host("journal")});
  PosixFiles files(state);
  const auto file = files.Replace(folder.Game(u"file"));
  EXPECT_EQ(folder.Entries("journal"), 1u);
}
#endif

TEST_F(AbandonedTest, WorksWithoutAJournal) {
  const auto files = OpenFiles(folder.Host("file/below"));
  files->RemoveAbandoned();
  const auto file = files->Replace(folder.Game(u"file"));
  file->Write("new");
  file->Commit();
  EXPECT_EQ(folder.Get("file"), "new");
}

}  // namespace
}  // namespace tarvo::test
