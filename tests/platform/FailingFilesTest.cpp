#include <gtest/gtest.h>

#include "platform/HostMachine.h"
#include "support/FailingFiles.h"
#include "support/TemporaryFolder.h"

namespace tarvo::test {
namespace {

class FailingFilesTest : public testing::Test {
 protected:
  int CodeOfWriting(TextView name, FileTextView bytes) {
    try {
      const auto file = files.Replace(folder.Game(name));
      file->Write(bytes);
      file->Commit();
    } catch (const PlatformError& error) {
      return error.Code;
    }
    return 0;
  }

  TemporaryFolder folder;
  std::unique_ptr<Files> disk = OpenFiles("");
  Files& real = *disk;
  FailingFiles files{real};
};

TEST_F(FailingFilesTest, FailsTheChosenStepAlone) {
  files.Fail(FileStep::Commit, 2, kReadFault);
  EXPECT_EQ(CodeOfWriting(u"a", "1"), 0);
  EXPECT_EQ(CodeOfWriting(u"b", "2"), kReadFault);
  EXPECT_EQ(CodeOfWriting(u"c", "3"), 0);
  EXPECT_EQ(real.FileNames(folder.Game()), (std::vector<Text>{u"a", u"c"}));
  EXPECT_EQ(files.Steps(FileStep::Commit), 3);
}

TEST_F(FailingFilesTest, FillsUpTheDisk) {
  files.FailAfterBytes(5, kDiskFull);
  EXPECT_EQ(CodeOfWriting(u"a", "123"), 0);
  EXPECT_EQ(CodeOfWriting(u"b", "456"), kDiskFull);
  EXPECT_EQ(CodeOfWriting(u"c", "7"), kDiskFull);
  files.Heal();
  EXPECT_EQ(CodeOfWriting(u"d", "8"), 0);
  EXPECT_EQ(real.FileNames(folder.Game()), (std::vector<Text>{u"a", u"d"}));
}

TEST_F(FailingFilesTest, NeverCommitsWhatFailedBefore) {
  folder.Put("source", "abcdef");
  const auto source = files.Open(folder.Game(u"source"));
  const auto file = files.Replace(folder.Game(u"copy"));
  EXPECT_EQ(file->CopyFrom(*source, 1, 2), 2u);
  files.FailAfterBytes(1, kDiskFull);
  EXPECT_THROW(file->CopyFrom(*source, 3, 100), PlatformError);
  EXPECT_THROW(file->Commit(), PlatformError);
  EXPECT_FALSE(real.FileExists(folder.Game(u"copy")));
}

}  // namespace
}  // namespace tarvo::test
