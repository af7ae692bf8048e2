#include <gtest/gtest.h>
#ifndef _WIN32
#include <unistd.h>
#endif

#include <filesystem>

#include "platform/HostMachine.h"
#include "platform/ProgramFolder.h"
#include "support/CodeOf.h"
#include "support/TemporaryFolder.h"

namespace tarvo::test {
namespace {

namespace fs = std::filesystem;

/// Where the data lies, and whether the program's own folder can be written.
struct Layout {
  bool Beside;
  bool Installed;
  bool Writable;
  const char16_t* Expected;  ///< The program folder.
  const char* Template;      ///< The data there; nothing when none is copied.
};

constexpr Layout kLayouts[] = {
    {true, false, true, u"bin", "own"},
    {true, true, true, u"bin", "own"},
    {false, false, true, u"bin", nullptr},
    {false, true, true, u"home\\data\\tarvo-packager", "installed"},
    {false, true, false, u"home\\data\\tarvo-packager", "installed"},
    {true, false, false, u"home\\data\\tarvo-packager", "own"},
};

#ifdef _WIN32
// Under Wine nothing can be taken from a user's rights to his own folders.
constexpr bool kHasRights = false;
#else
constexpr bool kHasRights = true;
#endif

/// As somebody who isn't root, who may write anywhere.
template <class Step>
FoundProgramFolder WithoutRights(Step&& step) {
#ifdef _WIN32
  return step();
#else
  const bool isRoot = geteuid() == 0;
  EXPECT_EQ(isRoot ? seteuid(65534) : 0, 0);
  FoundProgramFolder found = step();
  EXPECT_EQ(isRoot ? seteuid(0) : 0, 0);
  return found;
#endif
}

class ProgramFolderTest : public testing::Test {
 protected:
  FoundProgramFolder Open(const Text& userData) {
    return WithoutRights([&] {
      return OpenProgramFolderAt(
          files, {folder.Game(u"bin"), folder.Game(u"share\\tarvo-packager"), userData});
    });
  }

  void Put(const Layout& layout) {
    for (const char* name : {"bin", "share", "home"}) fs::remove_all(folder.Path(name));
    folder.Put("bin/tarvo", "program");
    if (layout.Beside) folder.Put("bin/Backup/Galaxy.py", "own");
    if (layout.Installed) folder.Put("share/tarvo-packager/Backup/Galaxy.py", "installed");
    fs::create_directory(folder.Path("home"));
    fs::permissions(folder.Path("home"), fs::perms::all);
    fs::permissions(folder.Path("bin"), fs::perms(layout.Writable ? 0777 : 0555));
  }

  TemporaryFolder folder;
  std::unique_ptr<Files> disk = OpenFiles("");
  Files& files = *disk;
};

TEST_F(ProgramFolderTest, LiesWhereTheDataCanBeWritten) {
  for (const Layout& layout : kLayouts) {
    if (!layout.Writable && !kHasRights) continue;
    SCOPED_TRACE(&layout - kLayouts);
    Put(layout);
    const FoundProgramFolder found = Open(folder.Game(u"home\\data\\tarvo-packager"));
    EXPECT_EQ(FailureWords(found), u"");
    EXPECT_EQ(found.Path, folder.Game(layout.Expected));
    const Text copied = found.Path + u"\\Backup\\Galaxy.py";
    ASSERT_EQ(files.FileExists(copied), layout.Template != nullptr);
    if (layout.Template) {
      std::string bytes(files.FileSize(copied), '\0');
      files.Open(copied)->ReadAt(0, bytes);
      EXPECT_EQ(bytes, layout.Template);
    }
    EXPECT_FALSE(fs::exists(folder.Path("home/data/tarvo-packager/tarvo")));
  }
}

TEST_F(ProgramFolderTest, TellsThatTheUserHasNoPlaceForIt) {
  Put(kLayouts[3]);
  const FoundProgramFolder homeless = Open(u"");
  EXPECT_EQ(homeless.Path, folder.Game(u"share\\tarvo-packager"));
  EXPECT_EQ(homeless.Failures.size(), 1u);
  folder.Put("home/data", "a file");
  const FoundProgramFolder blocked = Open(folder.Game(u"home\\data\\tarvo-packager"));
  EXPECT_EQ(FailureWords(blocked),
            u"The program's own files couldn't be brought up to date. Can't make folder " +
                folder.Game(u"home\\data\\tarvo-packager") + u": " + SystemErrorText(kIsNoFolder));
}

TEST_F(ProgramFolderTest, CopiesNoFoldersButTheData) {
  if (!kHasRights) GTEST_SKIP() << "no folder can be closed";
  Put({false, false, true, u"", nullptr});
  folder.Put("bin/Photographs/mine", "private");
  fs::permissions(folder.Path("bin"), fs::perms(0555));
  const FoundProgramFolder found = Open(folder.Game(u"home\\data\\tarvo-packager"));
  EXPECT_EQ(found.Path, folder.Game(u"home\\data\\tarvo-packager"));
  EXPECT_EQ(found.Failures.size(), 1u);
  EXPECT_TRUE(fs::is_empty(folder.Path("home/data/tarvo-packager")));
}

TEST_F(ProgramFolderTest, ServesAsItsOwnCopyWhereItWasInstalledIntoTheUsersFolder) {
  Put(kLayouts[3]);
  const FoundProgramFolder found = Open(folder.Game(u"share\\tarvo-packager"));
  EXPECT_EQ(found.Path, folder.Game(u"share\\tarvo-packager"));
  EXPECT_FALSE(fs::exists(folder.Path("share/tarvo-packager/.installed")));
}

}  // namespace
}  // namespace tarvo::test
