#include <gtest/gtest.h>
#include <sys/resource.h>

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
  folder.Put("Gone", "");
  EXPECT_EQ(names.Resolve(folder.Host(), {"GONE"}), folder.Host("Gone"));
  std::filesystem::remove(folder.Host("Gone"));
  folder.Put("Other", "");
  folder.Put("own", "");
  // Takes over a time of change that covers what others did as well.
  names.Added(folder.Host(), "own");
  EXPECT_EQ(names.Resolve(folder.Host(), {"GONE"}), folder.Host("GONE"));
  std::filesystem::remove(folder.Host("own"));
  names.Removed(folder.Host(), "own");
  folder.Put("Late", "");
  names.Touched(folder.Host());
  std::this_thread::sleep_for(std::chrono::milliseconds(600));
  EXPECT_EQ(names.Resolve(folder.Host(), {"OTHER"}), folder.Host("Other"));
  EXPECT_EQ(names.Resolve(folder.Host(), {"LATE"}), folder.Host("Late"));
}

/// The time that this process has computed, without what the system did for it.
double ComputedSeconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_utime.tv_sec) +
         static_cast<double>(usage.ru_utime.tv_usec) / 1e6;
}

TEST(NameLookup, StaysFastWhileAFolderFills) {
  const TemporaryFolder folder;
  PosixFiles files("");
  constexpr int kFiles = 3000;
  const double start = ComputedSeconds();
  for (int i = 0; i < kFiles; ++i) {
    const std::string number = std::to_string(i);
    files.MakeEmptyFile(folder.Game(u"File" + Text(number.begin(), number.end())));
  }
  // Reading the folder for each file would take several times as long.
  EXPECT_LT(ComputedSeconds() - start, 0.4);
  EXPECT_EQ(files.FileNames(folder.Game()).size(), std::size_t{kFiles});
  EXPECT_TRUE(files.FileExists(folder.Game(u"FILE2999")));
}

}  // namespace
}  // namespace tarvo::test
