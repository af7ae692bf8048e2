#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <iostream>
#include <random>
#include <thread>

#include "platform/HostMachine.h"
#include "support/Child.h"
#include "support/TemporaryFolder.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

constexpr int kFiles = 5;

Text Name(int number) {
  return u"File " + TextFromUtf8(std::to_string(number));
}

/// The bytes of a file that was written as a whole: one letter, in a size that belongs to it.
std::string BytesOf(char letter) {
  return std::string(static_cast<std::size_t>(50000 * (letter - 'a') + 1), letter);
}

/// Replaces the files one after the other until it is killed.
const KnownChildPart kReplaceAll("ReplaceAll", [](const std::string& folder) {
  const Text game = GamePathFromArgument(folder);
  const auto files = OpenFiles(folder + "/journal");
  SayReady();
  for (int turn = 0;; ++turn) {
    const auto file = files->Replace(game + u"\\files\\" + Name(turn % kFiles));
    file->Write(BytesOf(static_cast<char>('a' + turn % 7)));
    file->Commit();
  }
  return 0;
});

TEST(Kill, LeavesEachFileWholeAndNothingElse) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.Path("journal"));
  for (int number = 0; number < kFiles; ++number) {
    folder.Put("files/" + Utf8FromText(Name(number)), BytesOf('a'));
  }
  std::mt19937 random(7);
  int replaced = 0;
  int abandoned = 0;
  int damaged = 0;
  const int runs = Kills(200);
  for (int run = 0; run < runs; ++run) {
    const std::string before = folder.Get("files/File 0");
    Child child("ReplaceAll", folder.Host());
    ASSERT_TRUE(child.WaitUntilReady());
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 20000));
    child.Kill();
    ASSERT_EQ(child.Wait(), -1);
    abandoned += folder.Entries("files") > kFiles;
    OpenFiles(folder.Host("journal"))->RemoveAbandoned();
    EXPECT_EQ(folder.Entries("files"), static_cast<std::size_t>(kFiles)) << "run " << run;
    EXPECT_EQ(folder.Entries("journal"), 0u) << "run " << run;
    for (int number = 0; number < kFiles; ++number) {
      const std::string bytes = folder.Get("files/" + Utf8FromText(Name(number)));
      damaged += bytes.empty() || bytes != BytesOf(bytes[0]);
    }
    replaced += folder.Get("files/File 0") != before;
  }
  EXPECT_EQ(damaged, 0);
  EXPECT_GT(replaced, 0) << "no run got to its work";
  EXPECT_GT(abandoned, 0) << "no run was cut short in the middle";
  RecordProperty("abandoned", abandoned);
  std::cout << runs << " kills, " << abandoned << " in the middle of a replacement, " << damaged
            << " files damaged\n";
}

}  // namespace
}  // namespace tarvo::test
