#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "platform/HostMachine.h"
#include "platform/PlatformError.h"
#include "platform/posix/PosixFiles.h"
#include "support/CodeOf.h"
#include "support/TemporaryFolder.h"

namespace tarvo::test {
namespace {

using Names = std::vector<Text>;

class PosixFilesTest : public testing::Test {
 protected:
  mode_t ModeOf(std::string_view name) {
    struct stat state {};
    EXPECT_EQ(stat(folder.Host(name).c_str(), &state), 0);
    return state.st_mode & 07777;
  }

  void SetMode(std::string_view name, mode_t mode) {
    ASSERT_EQ(chmod(folder.Host(name).c_str(), mode), 0);
  }

  TemporaryFolder folder;
  PosixFiles files{""};
};

TEST_F(PosixFilesTest, FindsExactlyFirstThenWithoutRegardToCase) {
  folder.Put("data/Models/Ships/a.txt", "");
  folder.Put("data/Models/ships/b.txt", "");
  folder.Put("data/\xC3\x84rger/\xFF.TXT", "");
  folder.Put("Scripts/Ships/x.py", "");
  const struct {
    TextView Path;
    std::string_view Host;
  } cases[] = {
      {u"data\\Models\\ships\\b.txt", "data/Models/ships/b.txt"},
      {u"DATA\\models\\ships\\B.TXT", "data/Models/ships/b.txt"},
      {u"DATA\\models\\Ships\\A.TXT", "data/Models/Ships/a.txt"},
      // Neither spelling is exact: the first in order of bytes.
      {u"data\\models\\SHIPS\\new.txt", "data/Models/Ships/new.txt"},
      {u"data\\ärger\\\xDCFF.txt", "data/\xC3\x84rger/\xFF.TXT"},
      {u"scripts\\New\\Ships\\X", "Scripts/New/Ships/X"},
      {u"scripts\\ships\\X.PY\\below", "Scripts/Ships/x.py/below"},
  };
  for (const auto& [path, host] : cases) {
    EXPECT_EQ(HostPath(folder.Game(path)), folder.Host(host));
  }
  EXPECT_EQ(HostPath(u"C:\\x"), "");
}

TEST_F(PosixFilesTest, FollowsLinksAndTakesNothingElseForAFile) {
  folder.Put("file.txt", "12345");
  folder.Put("Sub/x", "");
  symlink("file.txt", folder.Host("link.txt").c_str());
  symlink("Sub", folder.Host("folder.txt").c_str());
  symlink("nowhere", folder.Host("dangling").c_str());
  mkfifo(folder.Host("pipe").c_str(), 0600);
  for (const TextView name : {u"dangling", u"pipe"}) {
    EXPECT_FALSE(files.FileExists(folder.Game(name)));
    EXPECT_FALSE(files.FolderExists(folder.Game(name)));
  }
  EXPECT_EQ(files.FileSize(folder.Game(u"Link.txt")), 5u);
  EXPECT_EQ(CodeOf([&] { files.Open(folder.Game(u"pipe")); }), EINVAL);
  EXPECT_EQ(files.FileNames(folder.Game()), (Names{u"file.txt", u"link.txt"}));
  EXPECT_EQ(files.FolderNames(folder.Game()), (Names{u"folder.txt", u"Sub"}));
  const Text place = files.RealPath(folder.Game());
  EXPECT_EQ(files.RealPath(folder.Game(u"FOLDER.txt\\X")), place + u"\\Sub\\x");
  EXPECT_EQ(CodeOf([&] { files.RemoveFolder(folder.Game(u"link.txt")); }), ENOTDIR);
  EXPECT_EQ(CodeOf([&] { files.Remove(folder.Game(u"folder.txt")); }), EISDIR);
  files.Remove(folder.Game(u"link.txt"));
  files.RemoveFolder(folder.Game(u"Folder.txt\\"));
  EXPECT_EQ(files.FolderNames(folder.Game()), Names{u"Sub"});
  EXPECT_TRUE(files.FileExists(folder.Game(u"Sub\\x")));
}

/// A link that leads round in a circle stands for whatever keeps the system from looking.
TEST_F(PosixFilesTest, WhatCantBeLookedAtIsNotMissing) {
  symlink("loop", folder.Host("loop").c_str());
  folder.Put("Sub/x", "");
  const Text below = folder.Game(u"loop\\x");
  EXPECT_EQ(CodeOf([&] { files.FileExists(below); }), ELOOP);
  EXPECT_EQ(CodeOf([&] { files.FolderExists(below); }), ELOOP);
  EXPECT_EQ(CodeOf([&] { files.Stamp(below); }), ELOOP);
  EXPECT_EQ(files.FolderNames(folder.Game()), Names{u"Sub"});
  for (const Text& path : {folder.Game(u"Sub\\x\\y"), folder.Game(u"none\\x"),
                           folder.Game(Text(300, u'n')), Text(u"C:\\x")}) {
    EXPECT_FALSE(files.FileExists(path) || files.FolderExists(path) || files.Stamp(path));
  }
}

TEST_F(PosixFilesTest, DeletesAFileWhoseNameReadsAsAWildcardAndNoOther) {
  for (const char* name : {"*", "*.TGL", "a.TGL", "b?.TGL", "bc.TGL"}) folder.Put(name, "");
  for (const TextView name : {u"*", u"*.tgl", u"b?.TGL"}) files.Remove(folder.Game(name));
  EXPECT_EQ(files.FileNames(folder.Game()), (Names{u"a.TGL", u"bc.TGL"}));
}

TEST_F(PosixFilesTest, RenamesInLetterCaseAlone) {
  folder.Put("B", "2");
  files.Rename(folder.Game(u"b"), folder.Game(u"b"));
  EXPECT_EQ(files.FileNames(folder.Game()), Names{u"b"});
  files.Rename(folder.Game(u"b"), folder.Game(u"B"));
  EXPECT_EQ(files.FileNames(folder.Game()), Names{u"B"});
  EXPECT_EQ(folder.Get("B"), "2");
}

TEST_F(PosixFilesTest, ListsNamesThatDifferInCaseAndNoneThatCantBeTold) {
  for (const char* name : {"A.tarvo", "a.TARVO", "b.Tarvo", "back\\slash"}) folder.Put(name, "");
  EXPECT_EQ(files.FileNames(folder.Game()), (Names{u"A.tarvo", u"a.TARVO", u"b.Tarvo"}));
}

TEST_F(PosixFilesTest, MarksAsReadOnlyThroughTheWriteBits) {
  const mode_t mask = umask(002);
  const struct {
    mode_t Before;
    unsigned Set;
    mode_t After;
    unsigned Read;
  } cases[] = {
      {0664, kReadOnlyFile | kHiddenFile, 0444, kReadOnlyFile},
      {0444, kHiddenFile | kArchiveFile, 0664, kNormalFile},
      {0555, kNormalFile, 0775, kNormalFile},
      {0400, kNormalFile, 0600, kNormalFile},
      {0640, kArchiveFile, 0640, kNormalFile},
      {0020, kReadOnlyFile, 0000, kReadOnlyFile},
  };
  folder.Put("file", "");
  for (const auto& [before, set, after, read] : cases) {
    SetMode("file", before);
    files.SetAttributes(folder.Game(u"FILE"), set);
    EXPECT_EQ(ModeOf("file"), after);
    EXPECT_EQ(files.Attributes(folder.Game(u"file")), read);
  }
  umask(mask);
}

}  // namespace
}  // namespace tarvo::test
