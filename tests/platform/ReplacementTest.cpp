#include <gtest/gtest.h>

#include <filesystem>

#include "platform/FilesFixture.h"
#include "support/CodeOf.h"

namespace tarvo::test {
namespace {

class ReplacementTest : public AnyFiles {};

TARVO_ANY_FILES(ReplacementTest);

TEST_P(ReplacementTest, WritesPiecesOfAllSizes) {
  std::string expected;
  const auto file = files.Replace(folder.Game(u"file"));
  for (const std::size_t size : {1u, 10u, 65525u, 1u, 0u, 65536u, 200000u, 65535u, 2u, 30u}) {
    const std::string piece(size, static_cast<char>('a' + expected.size() % 26));
    file->Write(piece);
    expected += piece;
  }
  file->Commit();
  EXPECT_EQ(Get("file"), expected);
  EXPECT_EQ(Entries(), 1u);
}

TEST_P(ReplacementTest, LeavesTheOldFileUntilCommit) {
  Put("File", "old");
  {
    const auto file = files.Replace(folder.Game(u"FILE"));
    file->Write("new");
    EXPECT_EQ(Get("File"), "old");
    EXPECT_EQ(files.FileNames(folder.Game()), std::vector<Text>{u"File"});
  }
  EXPECT_EQ(Get("File"), "old");
  Write(u"fiLE", "new");
  EXPECT_EQ(Get("File"), "new");
  EXPECT_EQ(Entries(), 1u);
}

TEST(Replacement, MayOutliveTheFilesThatBeganIt) {
  const TemporaryFolder folder;
  auto shortLived = OpenFiles(folder.Host("journal"));
  auto file = shortLived->Replace(folder.Game(u"file"));
  shortLived.reset();
  file->Write("bytes");
  file->Commit();
  EXPECT_EQ(folder.Get("file"), "bytes");
  file.reset();
  EXPECT_EQ(folder.Entries("journal"), 0u);
}

TEST_P(ReplacementTest, RefusesBeforeAByteIsWritten) {
  Put("readonly", "old");
  files.SetAttributes(folder.Game(u"readonly"), kReadOnlyFile);
  Put("folder/x", "");
  const struct {
    TextView Name;
    int Code;
  } cases[] = {
      {u"READONLY", kAccessDenied}, {u"folder", kIsFolder},           {u"folder\\", kIsFolder},
      {u"new\\", kIsFolder},        {u"missing\\new", kNoSuchFolder},
  };
  for (const auto& [name, code] : cases) {
    EXPECT_EQ(CodeOf([&] { files.Replace(folder.Game(name)); }), code)
        << testing::PrintToString(name);
  }
  EXPECT_EQ(CodeOf([&] { files.Replace(u"x"); }), kLeadsNowhere);
  EXPECT_EQ(Entries(), 2u);
  EXPECT_EQ(Get("readonly"), "old");
}

TEST_P(ReplacementTest, RespectsAFileThatAppearsMeanwhile) {
  const auto file = files.Replace(folder.Game(u"file"));
  file->Write("ours");
  Put("file", "theirs");
  file->Commit();
  EXPECT_EQ(Get("file"), "ours");

  const auto refused = files.Replace(folder.Game(u"other"));
  Put("other", "theirs");
  files.SetAttributes(folder.Game(u"other"), kReadOnlyFile);
  EXPECT_EQ(CodeOf([&] { refused->Commit(); }), kAccessDenied);
  EXPECT_EQ(Get("other"), "theirs");
  EXPECT_EQ(Entries(), 2u);
}

}  // namespace
}  // namespace tarvo::test
