#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>

#include "platform/FilesFixture.h"
#include "platform/PlatformError.h"
#include "support/CodeOf.h"
#include "text/LetterCase.h"

// What the doors to files promise on every system.

namespace tarvo::test {
namespace {

using Names = std::vector<Text>;

class FilesTest : public AnyFiles {};

TARVO_ANY_FILES(FilesTest);

TEST_P(FilesTest, TellsFilesFromFolders) {
  Put("file", "12345");
  const Text drive = folder.Game().substr(0, 2);
  const struct {
    Text Path;
    bool IsFile;
    bool IsFolder;
  } cases[] = {
      {folder.Game(u"FILE"), true, false},
      {folder.Game() + u"/.\\x/..\\file", true, false},
      {folder.Game().substr(2) + u"\\file", !memory || drive == u"Z:", false},
      {folder.Game(u"file\\"), false, false},
      {folder.Game(u"file\\below"), false, false},
      {folder.Game(u"f*"), false, false},
      {folder.Game(TextView(u"file\0", 5)), false, false},
      {folder.Game(), false, true},
      {folder.Game() + u"\\", false, true},
      {drive, false, true},
      {drive + u"\\", false, true},
      {u"Q:\\", false, false},
      {drive + u"file", false, false},
      {u"file", false, false},
      {u"", false, false},
  };
  files.MakeFolder(folder.Game(u"x"));
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder.Path());
  for (const auto& [path, isFile, isFolder] : cases) {
    EXPECT_EQ(files.FileExists(path), isFile) << testing::PrintToString(path);
    EXPECT_EQ(files.Stamp(path).has_value(), isFile) << testing::PrintToString(path);
    EXPECT_EQ(files.FolderExists(path), isFolder) << testing::PrintToString(path);
  }
  std::filesystem::current_path(before);
  EXPECT_EQ(files.FileSize(folder.Game(u"File")), 5u);
  EXPECT_EQ(CodeOf([&] { files.FileSize(folder.Game()); }), kIsFolder);
  EXPECT_EQ(CodeOf([&] { files.Open(folder.Game()); }), kIsFolder);
  EXPECT_EQ(CodeOf([&] { files.Open(u"file"); }), kLeadsNowhere);
}

TEST_P(FilesTest, NamesThePathAsTheCallerGaveIt) {
  Put("Sub/x", "");
  try {
    files.Open(folder.Game(u"SUB\\missing"));
    FAIL();
  } catch (const PlatformError& error) {
    EXPECT_EQ(error.Operation, u"open");
    EXPECT_EQ(error.Path, folder.Game(u"SUB\\missing"));
    EXPECT_EQ(error.Code, kNoSuchFile);
  }
}

TEST_P(FilesTest, TakesNamesOfAllScripts) {
  const Text name = u"Ärger \u0416\u4E2D\U0001F680";
  Put("\xC3\x84rger \xD0\x96\xE4\xB8\xAD\xF0\x9F\x9A\x80/x", "bytes");
  EXPECT_EQ(files.FolderNames(folder.Game()), Names{name});
  EXPECT_EQ(files.RealPath(folder.Game(u"ÄRGER \u0436\u4E2D\U0001F680")),
            files.RealPath(folder.Game()) + u"\\" + name);
  const auto file = files.Replace(folder.Game(name + u"\\" + name));
  file->Write("new");
  file->Commit();
  EXPECT_EQ(files.FileNames(folder.Game(name)), (Names{u"x", name}));
  if (memory) return;
  EXPECT_EQ(HostPath(folder.Game(name)),
            folder.Host("\xC3\x84rger \xD0\x96\xE4\xB8\xAD\xF0\x9F\x9A\x80"));
}

TEST_P(FilesTest, ReadsFromAnyPosition) {
  Put("file", "0123456789");
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

TEST_P(FilesTest, ListsSortedWithoutTemporaries) {
  for (const char* name :
       {"b.Tarvo", "A.tarvo", "_c.txt", "d.tarvo2", ".tarvo-12_ab-1.tmp", "sub/x", "Sub2/x"}) {
    Put(name, "");
  }
  EXPECT_EQ(files.FileNames(folder.Game(), u"*.tarvo"), (Names{u"A.tarvo", u"b.Tarvo"}));
  EXPECT_EQ(files.FileNames(folder.Game(), u"*.txt;;B*"), (Names{u"_c.txt", u"b.Tarvo"}));
  EXPECT_EQ(files.FileNames(folder.Game(), u"*.*"), files.FileNames(folder.Game()));
  EXPECT_EQ(files.FileNames(folder.Game()).size(), 4u);
  EXPECT_EQ(files.FolderNames(folder.Game() + u"\\"), (Names{u"sub", u"Sub2"}));
  EXPECT_EQ(CodeOf([&] { files.FileNames(folder.Game(u"missing")); }), kNoSuchFolder);
  EXPECT_EQ(CodeOf([&] { files.FolderNames(u"Q:\\"); }), kNoSuchFolder);
  EXPECT_NE(CodeOf([&] { files.FolderNames(folder.Game(u"b.tarvo")); }), 0);
}

TEST_P(FilesTest, MakesFoldersAndEmptyFiles) {
  files.MakeFolder(folder.Game(u"New\\"));
  EXPECT_EQ(files.FolderNames(folder.Game()), Names{u"New"});
  EXPECT_EQ(CodeOf([&] { files.MakeFolder(folder.Game(u"NEW")); }), kIsThere);
  EXPECT_EQ(CodeOf([&] { files.MakeFolder(folder.Game(u"a\\b")); }), kNoSuchFolder);
  Put("New/kept", "bytes");
  files.SetAttributes(folder.Game(u"New\\kept"), kReadOnlyFile);
  files.MakeEmptyFile(folder.Game(u"NEW\\KEPT"));
  files.MakeEmptyFile(folder.Game(u"NEW\\made"));
  EXPECT_EQ(Get("New/kept"), "bytes");
  EXPECT_EQ(Get("New/made"), "");
  EXPECT_EQ(CodeOf([&] { files.MakeEmptyFile(folder.Game(u"new")); }), kIsFolder);
}

TEST_P(FilesTest, RemovesEmptyFoldersAlone) {
  Put("Full/x", "");
  Put("file", "");
  files.MakeFolder(folder.Game(u"Empty"));
  const struct {
    TextView Name;
    int Code;
  } cases[] = {
      {u"FULL", kIsNotEmpty}, {u"file", kIsNoFolder}, {u"missing", kNoSuchFile}, {u"EMPTY\\", 0}};
  for (const auto& [name, code] : cases) {
    EXPECT_EQ(CodeOf([&] { files.RemoveFolder(folder.Game(name)); }), code)
        << testing::PrintToString(name);
  }
  EXPECT_EQ(files.FolderNames(folder.Game()), Names{u"Full"});
  EXPECT_TRUE(files.FileExists(folder.Game(u"Full\\x")));
}

TEST_P(FilesTest, TellsThePlaceWhereAPathLeads) {
  Put("Sub/File", "");
  const Text place = files.RealPath(folder.Game());
  EXPECT_EQ(files.RealPath(folder.Game(u"SUB\\file")), place + u"\\Sub\\File");
  EXPECT_EQ(files.RealPath(folder.Game(u"sub\\")), place + u"\\Sub");
  EXPECT_EQ(CodeOf([&] { files.RealPath(folder.Game(u"missing")); }), kNoSuchFile);
}

TEST_P(FilesTest, BringsTheNewFilesOfAFolderToTheDisk) {
  files.MakeFolder(folder.Game(u"sub"));
  for (const TextView name : {u"sub\\a", u"sub\\b"}) files.Replace(folder.Game(name))->Commit();
  files.Remove(folder.Game(u"sub\\a"));
  files.Rename(folder.Game(u"sub\\b"), folder.Game(u"sub\\c"));
  EXPECT_EQ(CodeOf([&] { files.Sync(folder.Game(u"SUB")); }), 0);
  EXPECT_EQ(CodeOf([&] { files.Sync(folder.Game(u"missing")); }), kNoSuchFolder);
}

TEST_P(FilesTest, StampsChangeWithTheFile) {
  Put("file", "1");
  const auto stamp = files.Stamp(folder.Game(u"file"));
  EXPECT_EQ(files.Stamp(folder.Game(u"FILE")), stamp);
  Put("file", "22");
  EXPECT_NE(files.Stamp(folder.Game(u"file")), stamp);
  if (memory) return;  // Its clock counts changes.
  const std::chrono::nanoseconds now = std::chrono::system_clock::now().time_since_epoch();
  const std::chrono::nanoseconds changed(files.Stamp(folder.Game(u"file"))->Changed);
  EXPECT_LT(std::chrono::abs(now - changed), std::chrono::minutes(1));
}

TEST_P(FilesTest, RenamesWithoutLosingAnything) {
  Put("a", "1");
  Put("B", "2");
  Put("Sub/x", "");
  EXPECT_EQ(CodeOf([&] { files.Rename(folder.Game(u"a"), folder.Game(u"b")); }), kIsThere);
  EXPECT_EQ(CodeOf([&] { files.Rename(folder.Game(u"a"), folder.Game(u"SUB")); }), kIsThere);
  EXPECT_EQ(CodeOf([&] { files.Rename(folder.Game(u"sub"), folder.Game(u"c")); }), kIsFolder);
  EXPECT_EQ(CodeOf([&] { files.Rename(folder.Game(u"no"), folder.Game(u"c")); }), kNoSuchFile);
  files.Rename(folder.Game(u"A"), folder.Game(u"SUB\\c"));
  files.Rename(folder.Game(u"b"), folder.Game(u"b"));
  EXPECT_EQ(CodeOf([&] { files.Rename(folder.Game(u"b"), folder.Game(u"B")); }), 0);
  EXPECT_EQ(CodeOf([&] { files.Rename(folder.Game(u"B"), folder.Game(u"b")); }), 0);
  // Wine leaves a name as it is that would change in its letter case alone.
  ASSERT_EQ(files.FileNames(folder.Game()).size(), 1u);
  EXPECT_TRUE(EqualIgnoringCase(files.FileNames(folder.Game())[0], u"b"));
  EXPECT_EQ(Get("Sub/c"), "1");
  EXPECT_EQ(files.FileSize(folder.Game(u"B")), 1u);
}

TEST_P(FilesTest, RemovesFilesButNoFoldersAndNothingReadOnly) {
  for (const char* name : {"a.txt", "c.txt2", "d.txt/x", "f.bak"}) Put(name, "");
  files.SetAttributes(folder.Game(u"f.bak"), kReadOnlyFile);
  EXPECT_EQ(CodeOf([&] { files.Remove(folder.Game(u"missing")); }), kNoSuchFile);
  EXPECT_EQ(CodeOf([&] { files.Remove(folder.Game(u"d.txt")); }), kIsFolder);
  EXPECT_EQ(CodeOf([&] { files.Remove(folder.Game(u"F.bak")); }), kAccessDenied);
  for (const TextView pattern : {u"*.txt", u"?.txt", u"*"}) {
    EXPECT_NE(CodeOf([&] { files.Remove(folder.Game(pattern)); }), 0);
  }
  files.Remove(folder.Game(u"C.TXT2"));
  EXPECT_EQ(files.FileNames(folder.Game()), (Names{u"a.txt", u"f.bak"}));
  EXPECT_EQ(files.FolderNames(folder.Game()), Names{u"d.txt"});
}

TEST_P(FilesTest, MarksAsReadOnly) {
  Put("file", "");
  for (const unsigned mark : {kReadOnlyFile, kNormalFile, kReadOnlyFile, kArchiveFile}) {
    files.SetAttributes(folder.Game(u"FILE"), mark);
    EXPECT_EQ(files.Attributes(folder.Game(u"file")) & kReadOnlyFile, mark & kReadOnlyFile);
  }
  EXPECT_EQ(CodeOf([&] { files.SetAttributes(folder.Game(), kReadOnlyFile); }), kIsFolder);
  EXPECT_EQ(CodeOf([&] { files.Attributes(folder.Game(u"missing")); }), kNoSuchFile);
}

TEST_P(FilesTest, StandsOnOneOfTheDrives) {
  const Names drives = files.Drives();
  EXPECT_NE(std::find(drives.begin(), drives.end(), folder.Game().substr(0, 2)), drives.end());
}

TEST(Arguments, BecomeGamePaths) {
  const auto here = std::filesystem::current_path().u8string();
  const Text working =
      GamePathFromArgument({reinterpret_cast<const char*>(here.data()), here.size()});
  const struct {
    std::string_view Argument;
    Text Path;
  } cases[] = {
      {".", working},
      {"games/bc/", working + u"\\games\\bc"},
      {"./games/../bc", working + u"\\bc"},
      {"Z:\\games\\bc\\", u"Z:\\games\\bc"},
      {"z:", u"z:\\"},
#ifdef _WIN32
      {"\\\\server\\share\\bc\\", u"\\\\server\\share\\bc"},
      {"/games", working.substr(0, 2) + u"\\games"},
      {"\\\\?\\C:\\bc", u"C:\\bc"},
#else
      {"/games", u"Z:\\games"},
      {"\\games", u"\\games"},
#endif
  };
  for (const auto& [argument, path] : cases) {
    EXPECT_EQ(GamePathFromArgument(argument), path) << argument;
  }
}

}  // namespace
}  // namespace tarvo::test
