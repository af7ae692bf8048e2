#include <filesystem>
#include <thread>

#include "FilesFixture.h"
#include "support/Child.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

/// Takes the lock of a folder, says so, and holds it for good.
const KnownChildPart kLocking("Locking", [](const std::string& folder) {
  const auto files = OpenFiles(folder + "/journal");
  const LockAttempt attempt = files->TryLock(GamePathFromArgument(folder), u"work for \u00DCber");
  if (!attempt.Lock) return 1;
  SayReady();
  std::this_thread::sleep_for(std::chrono::hours(1));
  return 0;
});

class FolderLockTest : public FilesFixture {
 protected:
  LockAttempt Try(Files& by) { return by.TryLock(folder.Game(), u"test"); }
};

TEST_F(FolderLockTest, IsHeldByOneAndLeavesNothing) {
  const auto others = OpenFiles("");
  std::unique_ptr<FolderLock> lock = Try(files).Lock;
  ASSERT_TRUE(lock);
  const LockAttempt busy = Try(*others);
  EXPECT_FALSE(busy.Lock);
  EXPECT_EQ(busy.Holder, u"test");
  EXPECT_TRUE(files.FileNames(folder.Game()).empty());
  lock.reset();
  EXPECT_EQ(folder.Entries(), 0u);
  EXPECT_TRUE(Try(*others).Lock);
}

TEST_F(FolderLockTest, EndsWithAProcessThatIsKilled) {
  std::filesystem::create_directory(folder.Path("journal"));
  Child child("Locking", folder.Host());
  ASSERT_TRUE(child.WaitUntilReady());
  EXPECT_EQ(Try(files).Holder, u"work for \u00DCber");
  OpenFiles(folder.Host("journal"))->RemoveAbandoned();
  EXPECT_FALSE(Try(files).Lock) << "the lock of the living was taken away";
  child.Kill();
  child.Wait();
  OpenFiles(folder.Host("journal"))->RemoveAbandoned();
  EXPECT_EQ(folder.Entries(), 1u);
  EXPECT_EQ(folder.Entries("journal"), 0u);
  EXPECT_TRUE(Try(files).Lock);
}

TEST_F(FolderLockTest, ANewHolderOfAnAbandonedLockIsTheOneThatIsTold) {
  folder.Put(".tarvo-lock.tmp", "the long words of somebody who was killed");
  const LockAttempt attempt = Try(files);
  ASSERT_TRUE(attempt.Lock);
  EXPECT_EQ(Try(*OpenFiles("")).Holder, u"test");
}

TEST_F(FolderLockTest, NeedsAFolder) {
  EXPECT_THROW(files.TryLock(folder.Game(u"nowhere"), u""), PlatformError);
}

}  // namespace
}  // namespace tarvo::test
