#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

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
    EXPECT_EQ(files.HostPath(folder.Game(path)), folder.Host(host));
  }
  EXPECT_EQ(files.HostPath(u"C:\\x"), "");
}

TEST_F(PosixFilesTest, TellsFilesFromFolders) {
  folder.Put("file", "12345");
  symlink("file", folder.Host("link").c_str());
  symlink("nowhere", folder.Host("dangling").c_str());
  mkfifo(folder.Host("pipe").c_str(), 0600);
  const struct {
    Text Path;
    bool IsFile;
    bool IsFolder;
  } cases[] = {
      {folder.Game(u"FILE"), true, false},
      {folder.Game(u"link"), true, false},
      {folder.Game(u"dangling"), false, false},
      {folder.Game(u"pipe"), false, false},
      {folder.Game(u"file\\"), false, false},
      {folder.Game(), false, true},
      {folder.Game() + u"\\", false, true},
      {u"Z:", false, true},
      {u"C:\\", false, false},
      {u"", false, false},
  };
  for (const auto& [path, isFile, isFolder] : cases) {
    EXPECT_EQ(files.FileExists(path), isFile) << testing::PrintToString(path);
    EXPECT_EQ(files.FolderExists(path), isFolder) << testing::PrintToString(path);
  }
  EXPECT_EQ(files.FileSize(folder.Game(u"Link")), 5u);
  EXPECT_EQ(CodeOf([&] { files.FileSize(folder.Game()); }), EISDIR);
  EXPECT_EQ(CodeOf([&] { files.Open(folder.Game(u"pipe")); }), EINVAL);
  EXPECT_EQ(CodeOf([&] { files.Open(folder.Game()); }), EISDIR);
}

TEST_F(PosixFilesTest, NamesThePathAsTheCallerGaveIt) {
  folder.Put("Sub/x", "");
  try {
    files.Open(folder.Game(u"SUB\\missing"));
    FAIL();
  } catch (const PlatformError& error) {
    EXPECT_EQ(error.Operation, u"open");
    EXPECT_EQ(error.Path, folder.Game(u"SUB\\missing"));
    EXPECT_EQ(error.Code, ENOENT);
  }
}

TEST_F(PosixFilesTest, ReadsFromAnyPosition) {
  folder.Put("file", "0123456789");
  const auto file = files.Open(folder.Game(u"file"));
  EXPECT_EQ(file->Size(), 10u);
  const struct {
    std::uint64_t Position;
    std::size_t Wanted;
    std::string_view Bytes;
  } cases[] = {{0, 3, "012"}, {7, 8, "789"}, {10, 1, ""}, {~std::uint64_t{0}, 4, ""}};
  for (const auto& [position, wanted, bytes] : cases) {
    std::string block(wanted, '\0');
    block.resize(file->ReadAt(position, block));
    EXPECT_EQ(block, bytes);
  }
}

TEST_F(PosixFilesTest, ListsSortedWithoutTemporariesAndNamesThatCantBeTold) {
  for (const char* name : {"b.Tarvo", "A.tarvo", "a.TARVO", "_c.txt", ".hidden", "back\\slash",
                           ".tarvo-12_ab-1.tmp", "sub/x", "Sub2/x"}) {
    folder.Put(name, "");
  }
  symlink("sub", folder.Host("folderlink").c_str());
  symlink("b.Tarvo", folder.Host("filelink").c_str());
  symlink("nowhere", folder.Host("dangling").c_str());
  EXPECT_EQ(files.FileNames(folder.Game(), u"*.tarvo"),
            (Names{u"A.tarvo", u"a.TARVO", u"b.Tarvo"}));
  EXPECT_EQ(files.FileNames(folder.Game(), u"*.txt;;f*"), (Names{u"_c.txt", u"filelink"}));
  EXPECT_EQ(files.FileNames(folder.Game(), u"*.*"), files.FileNames(folder.Game()));
  EXPECT_EQ(files.FileNames(folder.Game()).size(), 6u);
  EXPECT_EQ(files.FolderNames(folder.Game()), (Names{u"folderlink", u"sub", u"Sub2"}));
  EXPECT_EQ(CodeOf([&] { files.FileNames(folder.Game(u"missing")); }), ENOENT);
  EXPECT_EQ(CodeOf([&] { files.FolderNames(u"D:\\"); }), ENOENT);
}

TEST_F(PosixFilesTest, MakesFoldersAndEmptyFiles) {
  files.MakeFolder(folder.Game(u"New\\"));
  EXPECT_TRUE(std::filesystem::is_directory(folder.Host("New")));
  EXPECT_EQ(CodeOf([&] { files.MakeFolder(folder.Game(u"NEW")); }), EEXIST);
  EXPECT_EQ(CodeOf([&] { files.MakeFolder(folder.Game(u"a\\b")); }), ENOENT);
  folder.Put("New/kept", "bytes");
  SetMode("New/kept", 0444);
  files.MakeEmptyFile(folder.Game(u"NEW\\KEPT"));
  files.MakeEmptyFile(folder.Game(u"NEW\\made"));
  EXPECT_EQ(folder.Get("New/kept"), "bytes");
  EXPECT_EQ(folder.Get("New/made"), "");
  EXPECT_EQ(CodeOf([&] { files.MakeEmptyFile(folder.Game(u"new")); }), EISDIR);
}

TEST_F(PosixFilesTest, RemovesEmptyFoldersAndLinksToFolders) {
  folder.Put("Full/x", "");
  folder.Put("file", "");
  std::filesystem::create_directory(folder.Host("Empty"));
  symlink("Full", folder.Host("link").c_str());
  symlink("file", folder.Host("filelink").c_str());
  const struct {
    TextView Name;
    int Code;
  } cases[] = {{u"FULL", ENOTEMPTY}, {u"file", ENOTDIR}, {u"filelink", ENOTDIR},
               {u"missing", ENOENT}, {u"EMPTY", 0},      {u"Link\\", 0}};
  for (const auto& [name, code] : cases) {
    EXPECT_EQ(CodeOf([&] { files.RemoveFolder(folder.Game(name)); }), code);
  }
  EXPECT_EQ(files.FolderNames(folder.Game()), Names{u"Full"});
  EXPECT_EQ(files.FileNames(folder.Game()), (Names{u"file", u"filelink"}));
  EXPECT_TRUE(files.FileExists(folder.Game(u"Full\\x")));
}

TEST_F(PosixFilesTest, TellsThePlaceWhereAPathLeads) {
  folder.Put("Sub/File", "");
  symlink("Sub", folder.Host("link").c_str());
  const Text place = files.RealPath(folder.Game());
  EXPECT_EQ(files.RealPath(folder.Game(u"LINK\\file")), place + u"\\Sub\\File");
  EXPECT_EQ(files.RealPath(folder.Game(u"sub\\")), place + u"\\Sub");
  EXPECT_EQ(CodeOf([&] { files.RealPath(folder.Game(u"missing")); }), ENOENT);
  files.Sync(folder.Game(u"SUB"));
  EXPECT_EQ(CodeOf([&] { files.Sync(folder.Game(u"missing")); }), ENOENT);
}

TEST_F(PosixFilesTest, RenamesWithoutLosingAnything) {
  folder.Put("a", "1");
  folder.Put("B", "2");
  folder.Put("Sub/x", "");
  EXPECT_EQ(CodeOf([&] { files.Rename(folder.Game(u"a"), folder.Game(u"b")); }), EEXIST);
  EXPECT_EQ(CodeOf([&] { files.Rename(folder.Game(u"a"), folder.Game(u"SUB")); }), EEXIST);
  EXPECT_EQ(CodeOf([&] { files.Rename(folder.Game(u"sub"), folder.Game(u"c")); }), EISDIR);
  EXPECT_EQ(CodeOf([&] { files.Rename(folder.Game(u"no"), folder.Game(u"c")); }), ENOENT);
  files.Rename(folder.Game(u"A"), folder.Game(u"SUB\\c"));
  files.Rename(folder.Game(u"b"), folder.Game(u"b"));
  EXPECT_EQ(files.FileNames(folder.Game()), Names{u"b"});
  files.Rename(folder.Game(u"b"), folder.Game(u"B"));
  EXPECT_EQ(files.FileNames(folder.Game()), Names{u"B"});
  EXPECT_EQ(folder.Get("Sub/c"), "1");
  EXPECT_EQ(folder.Get("B"), "2");
}

TEST_F(PosixFilesTest, RemovesFilesButNoFoldersAndNothingReadOnly) {
  for (const char* name : {"a.txt", "b.TXT", "c.py", "d.txt/x", "e.bak", "f.bak"}) {
    folder.Put(name, "");
  }
  symlink("d.txt", folder.Host("link.txt").c_str());
  SetMode("f.bak", 0444);
  files.Remove(folder.Game(u"*.txt"));
  EXPECT_EQ(files.FileNames(folder.Game()), (Names{u"c.py", u"e.bak", u"f.bak"}));
  EXPECT_EQ(files.FolderNames(folder.Game()), (Names{u"d.txt", u"link.txt"}));
  EXPECT_EQ(CodeOf([&] { files.Remove(folder.Game(u"*.txt")); }), ENOENT);
  EXPECT_EQ(CodeOf([&] { files.Remove(folder.Game(u"missing")); }), ENOENT);
  EXPECT_EQ(CodeOf([&] { files.Remove(folder.Game(u"link.txt")); }), EISDIR);
  EXPECT_EQ(CodeOf([&] { files.Remove(folder.Game(u"F.bak")); }), EACCES);
  EXPECT_EQ(CodeOf([&] { files.Remove(folder.Game(u"?.bak")); }), EACCES);
  EXPECT_EQ(CodeOf([&] { files.Remove(u"*"); }), ENOENT);
  files.Remove(folder.Game(u"C.PY"));
  EXPECT_EQ(files.FileNames(folder.Game()), (Names{u"e.bak", u"f.bak"}));
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
  EXPECT_EQ(CodeOf([&] { files.SetAttributes(folder.Game(), kReadOnlyFile); }), EISDIR);
  EXPECT_EQ(CodeOf([&] { files.Attributes(folder.Game(u"missing")); }), ENOENT);
}

}  // namespace
}  // namespace tarvo::test
