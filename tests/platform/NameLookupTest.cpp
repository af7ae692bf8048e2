#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <thread>

#include "platform/posix/NameLookup.h"
#include "platform/posix/PosixFiles.h"
#include "support/TemporaryFolder.h"

namespace tarvo::test {
namespace {

/// Past the tick of a file system's clock, within which changes can't be told apart.
void LetATickPass() {
  std::this_thread::sleep_for(std::chrono::milliseconds(15));
}

TEST(NameLookup, SeesWhatOthersAddAndRemove) {
  const TemporaryFolder folder;
  NameLookup names;
  const auto found = [&](const char* name) { return names.Resolve(folder.Host(), {name}); };
  folder.Put("Early", "");
  EXPECT_EQ(found("EARLY"), folder.Host("Early"));
  LetATickPass();
  folder.Put("Late", "");
  EXPECT_EQ(found("LATE"), folder.Host("Late"));
  // Removed within a tick or not, it isn't found, and the other one of its name is.
  folder.Put("late", "");
  std::filesystem::remove(folder.Host("Late"));
  EXPECT_EQ(found("LATE"), folder.Host("late"));
  std::filesystem::remove(folder.Host("late"));
  EXPECT_EQ(found("LATE"), folder.Host("LATE"));
  // A folder of the same name is another folder.
  folder.Put("sub/Name", "");
  EXPECT_EQ(names.Resolve(folder.Host(), {"sub", "NAME"}), folder.Host("sub/Name"));
  std::filesystem::rename(folder.Host("sub"), folder.Host("away"));
  folder.Put("sub/name", "");
  EXPECT_EQ(names.Resolve(folder.Host(), {"sub", "NAME"}), folder.Host("sub/name"));
}

TEST(NameLookup, SeesWhatOthersDoBetweenOurOwnChanges) {
  const TemporaryFolder folder;
  PosixFiles files("");
  for (int round = 0; round < 3; ++round) {
    const std::string number = std::to_string(round);
    const Text wide(number.begin(), number.end());
    files.MakeEmptyFile(folder.Game(u"Own" + wide));
    EXPECT_TRUE(files.FileExists(folder.Game(u"OWN" + wide)));
    LetATickPass();
    folder.Put("Other" + number, "");
    EXPECT_TRUE(files.FileExists(folder.Game(u"OTHER" + wide)));
    files.Rename(folder.Game(u"own" + wide), folder.Game(u"Moved" + wide));
    EXPECT_FALSE(files.FileExists(folder.Game(u"OWN" + wide)));
    EXPECT_TRUE(files.FileExists(folder.Game(u"MOVED" + wide)));
    files.Remove(folder.Game(u"OTHER" + wide));
    EXPECT_FALSE(files.FileExists(folder.Game(u"Other" + wide)));
  }
}

TEST(NameLookup, StopsTrustingWhatHidBehindAnOwnChangeSoon) {
  const TemporaryFolder folder;
  NameLookup names;
  EXPECT_EQ(names.Resolve(folder.Host(), {"OTHER"}), folder.Host("OTHER"));
  folder.Put("Other", "");
  folder.Put("own", "");
  // Takes over a time of change that covers the other file as well.
  names.Added(folder.Host(), "own");
  std::this_thread::sleep_for(std::chrono::milliseconds(1100));
  EXPECT_EQ(names.Resolve(folder.Host(), {"OTHER"}), folder.Host("Other"));
}

TEST(NameLookup, StaysFastWhileAFolderFills) {
  const TemporaryFolder folder;
  PosixFiles files("");
  constexpr int kFiles = 4000;
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < kFiles; ++i) {
    const std::string number = std::to_string(i);
    files.MakeEmptyFile(folder.Game(u"File" + Text(number.begin(), number.end())));
  }
  const auto took = std::chrono::steady_clock::now() - start;
  EXPECT_EQ(files.FileNames(folder.Game()).size(), std::size_t{kFiles});
  EXPECT_TRUE(files.FileExists(folder.Game(u"FILE3999")));
  // Reading the folder for each file takes ten times as long.
  EXPECT_LT(took, std::chrono::milliseconds(1500));
}

}  // namespace
}  // namespace tarvo::test
