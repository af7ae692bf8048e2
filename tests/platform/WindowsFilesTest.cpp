#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <thread>

#include "platform/FilesFixture.h"
#include "platform/windows/HostPaths.h"
#include "platform/windows/Wide.h"
#include "support/Child.h"
#include "support/CodeOf.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

std::wstring HostOf(const TemporaryFolder& folder, TextView name) {
  return SplitGamePath(folder.Game(name))->Path;
}

/// Holds a file open, shared with nobody, for as many milliseconds as the argument's first line
/// tells.
const KnownChildPart kHolding("Holding", [](const std::string& argument) {
  const std::size_t end = argument.find('\n');
  const HANDLE file = CreateFileW(WideHostPath(argument.substr(end + 1)).c_str(), GENERIC_READ, 0,
                                  nullptr, OPEN_EXISTING, 0, nullptr);
  SayReady();
  Sleep(static_cast<DWORD>(std::stoi(argument)));
  return file == INVALID_HANDLE_VALUE ? 1 : 0;
});

class WindowsFilesTest : public FilesFixture {};

TEST(WindowsPaths, AreMadeWhole) {
  const struct {
    TextView Path;
    std::wstring_view Host;
    bool EndsInSeparator = false;
  } cases[] = {
      {u"C:\\games\\BC", L"\\\\?\\C:\\games\\BC"},
      {u"c:/games\\..\\.\\bc\\\\", L"\\\\?\\c:\\bc", true},
      {u"C:", L"\\\\?\\C:\\", true},
      {u"C:\\", L"\\\\?\\C:\\", true},
      {u"C:\\dots and blanks. . ", L"\\\\?\\C:\\dots and blanks"},
      {u"\\\\server\\share\\x", L"\\\\?\\UNC\\server\\share\\x"},
      {u"C:games", L""},
      {u"games\\bc", L""},
      {u"\\\\.\\PhysicalDrive0", L""},
      {u"\\\\?\\C:\\x", L""},
      {u"C:\\x\\file:stream", L""},
      {u"C:\\x<y", L""},
      {u"", L""},
  };
  for (const auto& [path, host, endsInSeparator] : cases) {
    const std::optional<HostParts> parts = SplitGamePath(path);
    EXPECT_EQ(parts ? parts->Path : L"", host) << testing::PrintToString(path);
    EXPECT_EQ(parts && parts->EndsInSeparator, endsInSeparator) << testing::PrintToString(path);
  }
  EXPECT_EQ(GamePathOf(L"\\\\?\\UNC\\server\\share\\x"), u"\\\\server\\share\\x");
  EXPECT_EQ(GamePathOf(L"\\\\?\\C:\\x"), u"C:\\x");
}

TEST_F(WindowsFilesTest, HaveAllAttributes) {
  folder.Put("file", "");
  for (const unsigned marks : {kReadOnlyFile | kHiddenFile, kSystemFile | kArchiveFile,
                               kHiddenFile | kSystemFile | kArchiveFile, 0u}) {
    files.SetAttributes(folder.Game(u"FILE"), marks);
    // Wine knows no file without the mark for archives.
    EXPECT_EQ(files.Attributes(folder.Game(u"file")) | kArchiveFile, marks | kArchiveFile);
  }
}

TEST_F(WindowsFilesTest, KeepTheAttributesOfAFileThatIsReplaced) {
  folder.Put("file", "old");
  files.SetAttributes(folder.Game(u"file"), kHiddenFile | kSystemFile);
  Write(u"FILE", "new");
  EXPECT_EQ(folder.Get("file"), "new");
  EXPECT_EQ(files.Attributes(folder.Game(u"file")) & (kHiddenFile | kSystemFile),
            kHiddenFile | kSystemFile);
  EXPECT_EQ(files.FileNames(folder.Game()), std::vector<Text>{u"file"});
}

TEST_F(WindowsFilesTest, WaitForAFileThatAnotherProgramHolds) {
  folder.Put("file", "old");
  Child child("Holding", "300\n" + folder.Host("file"));
  ASSERT_TRUE(child.WaitUntilReady());
  Write(u"file", "new");
  EXPECT_EQ(child.Wait(), 0);
  EXPECT_EQ(folder.Get("file"), "new");
}

TEST_F(WindowsFilesTest, GiveUpOnAFileThatIsHeldForLong) {
  folder.Put("file", "old");
  Child child("Holding", "60000\n" + folder.Host("file"));
  ASSERT_TRUE(child.WaitUntilReady());
  const auto start = std::chrono::steady_clock::now();
  EXPECT_NE(CodeOf([&] { Write(u"file", "new"); }), 0);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
  EXPECT_EQ(CodeOf([&] { files.Open(folder.Game(u"file")); }), ERROR_SHARING_VIOLATION);
  EXPECT_TRUE(files.FileExists(folder.Game(u"file")));
  child.Kill();
  EXPECT_EQ(child.Wait(), -1);
  EXPECT_EQ(folder.Get("file"), "old");
  EXPECT_EQ(folder.Entries(), 1u);
}

TEST_F(WindowsFilesTest, GoBeyond260Units) {
  Text path = folder.Game();
  for (int depth = 0; depth < 4; ++depth) {
    path += u"\\" + Text(100, static_cast<char16_t>('a' + depth));
    files.MakeFolder(path);
  }
  const Text file = path + u"\\file.txt";
  const auto replacement = files.Replace(file);
  replacement->Write("bytes");
  replacement->Commit();
  EXPECT_EQ(files.FileSize(file), 5u);
  EXPECT_EQ(files.FileNames(path), std::vector<Text>{u"file.txt"});
  EXPECT_EQ(TextFromUtf8(HostPath(file)), file);
  files.Rename(file, path + u"\\other.txt");
  files.Remove(path + u"\\other.txt");
  for (; path != folder.Game(); path.resize(path.rfind(u'\\'))) files.RemoveFolder(path);
  EXPECT_EQ(folder.Entries(), 0u);
}

TEST_F(WindowsFilesTest, AreNeverMatchedByShortNames) {
  folder.Put("long name of a file.python", "");
  wchar_t shortName[MAX_PATH];
  if (GetShortPathNameW(HostOf(folder, u"long name of a file.python").c_str(), shortName,
                        MAX_PATH) == 0) {
    GTEST_SKIP() << "no short names here";
  }
  EXPECT_EQ(files.FileNames(folder.Game(), u"*.pyt"), std::vector<Text>{});
}

TEST(SystemErrors, TurnIntoWordsWithoutLineEnds) {
  const Text words = SystemErrorText(ERROR_ACCESS_DENIED);
  EXPECT_FALSE(words.empty());
  EXPECT_EQ(words.find_first_of(u"\r\n"), Text::npos);
  EXPECT_EQ(Words(PlatformError(u"open", u"C:\\x", 0x3FFFFFF)), u"Can't open C:\\x: unknown error");
}

}  // namespace
}  // namespace tarvo::test
