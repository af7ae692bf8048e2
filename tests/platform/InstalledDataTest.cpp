#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <thread>

#include "platform/HostMachine.h"
#include "platform/InstalledData.h"
#include "support/FailingFiles.h"
#include "support/TemporaryFolder.h"

namespace tarvo::test {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kNone = "(none)";

class InstalledDataTest : public testing::Test {
 protected:
  /// Puts a file past the doors, or takes it away for kNone.
  void Set(const std::string& name, std::string_view bytes) {
    if (bytes == kNone) {
      fs::remove(folder.Path(name));
    } else {
      folder.Put(name, bytes);
    }
  }

  /// A new version brings its files anew, changed or not.
  void Install(const std::string& name, std::string_view bytes) {
    Set("data/" + name, kNone);
    Set("data/" + name, bytes);
  }

  std::string At(const std::string& name) {
    return fs::exists(folder.Path(name)) ? folder.Get(name) : std::string(kNone);
  }

  /// Starts the program; gives the number of failures.
  std::size_t Start() {
    return CopyInstalledData(files, folder.Game(u"data"), folder.Game(u"user")).size();
  }

  void SetUp() override {
    fs::create_directories(folder.Path("data"));
    fs::create_directories(folder.Path("user"));
  }

  TemporaryFolder folder;
  std::unique_ptr<Files> disk = OpenFiles("");
  FailingFiles files{*disk};
};

struct Upgrade {
  std::string_view First;     ///< What the first version installs.
  std::string_view Users;     ///< What the user makes of it.
  std::string_view Second;    ///< What the second version installs.
  std::string_view Expected;  ///< What the user has then.
};

constexpr Upgrade kUpgrades[] = {
    {"1", "1", "1", "1"},         {"1", "1", "2", "2"},
    {"1", "mine", "1", "mine"},   {"1", "mine", "2", "mine"},
    {"1", "2", "2", "2"},         {"1", kNone, "1", "1"},
    {"1", kNone, "2", "2"},       {"1", "", "1", "1"},
    {"1", "1", kNone, kNone},     {"1", "mine", kNone, "mine"},
    {"1", kNone, kNone, kNone},   {kNone, kNone, "2", "2"},
    {kNone, "mine", "2", "mine"}, {kNone, "mine", kNone, "mine"},
    {"", "", "2", "2"},
};

TEST_F(InstalledDataTest, FollowsTheInstalledFilesAndLeavesTheUsers) {
  for (const Upgrade& upgrade : kUpgrades) {
    SCOPED_TRACE(testing::Message()
                 << upgrade.First << ", " << upgrade.Users << ", " << upgrade.Second);
    fs::remove(folder.Path("user/.installed"));
    Set("user/Backup/Deep/file", kNone);
    Install("Backup/Deep/file", upgrade.First);
    ASSERT_EQ(Start(), 0u);
    EXPECT_EQ(At("user/Backup/Deep/file"), upgrade.First);
    Set("user/Backup/Deep/file", upgrade.Users);
    Install("Backup/Deep/file", upgrade.Second);
    for (int start = 0; start < 2; ++start) {
      ASSERT_EQ(Start(), 0u);
      EXPECT_EQ(At("user/Backup/Deep/file"), upgrade.Expected);
    }
    Install("Backup/Deep/file", "3");
    ASSERT_EQ(Start(), 0u);
    EXPECT_EQ(At("user/Backup/Deep/file"), upgrade.Expected == "mine" ? "mine" : "3");
  }
}

TEST_F(InstalledDataTest, LeavesTheUsersFoldersAndWhatLiesBesideTheData) {
  for (const char* name :
       {"tarvo", "Tarvos/a", "shiptgls/b", "QBMenus/Species.TGL", "platforms/c"}) {
    Install(name, "installed");
    ASSERT_EQ(Start(), 0u);
    EXPECT_EQ(At(std::string("user/") + name), kNone);
  }
}

TEST_F(InstalledDataTest, LooksAtNoContentWhenNothingIsToDo) {
  Install("Backup/Galaxy.py", "1");
  Install("Help/index.html", "2");
  Start();
  const int opened = files.Steps(FileStep::Open);
  const int replaced = files.Steps(FileStep::Replace);
  ASSERT_EQ(Start(), 0u);
  EXPECT_EQ(files.Steps(FileStep::Open), opened + 1);
  EXPECT_EQ(files.Steps(FileStep::Replace), replaced);
}

TEST_F(InstalledDataTest, TouchesNoStandingFileWithoutARecordOfIt) {
  const std::string outside = "cbf29ce484222325 0 5 Help\\..\\..\\outside\n";
  for (const std::string& record :
       {std::string(kNone), std::string(), std::string("\0\xFF\n \n", 5),
        std::string("0000 1 Backup"), outside}) {
    Install("Backup/gone", "1");
    Install("Backup/Galaxy.py", "1");
    Install("Help/added", kNone);
    Set("outside", "");
    ASSERT_EQ(Start(), 0u);
    Set("user/.installed", record);
    Install("Backup/gone", kNone);
    Install("Backup/Galaxy.py", "2");
    Install("Help/added", "2");
    ASSERT_EQ(Start(), 0u);
    EXPECT_EQ(At("user/Backup/gone"), "1") << record;
    EXPECT_EQ(At("user/Backup/Galaxy.py"), "1") << record;
    EXPECT_EQ(At("user/Help/added"), "2") << record;
    EXPECT_EQ(At("outside"), "") << record;
    fs::remove_all(folder.Path("user"));
    fs::create_directories(folder.Path("user"));
  }
}

class InstalledDataFailing : public InstalledDataTest {
 protected:
  /// A user's copy of the first version, and the second version installed.
  void Prepare() {
    files.Heal();
    fs::remove_all(folder.Path("user"));
    fs::create_directories(folder.Path("user"));
    for (const char* name : {"Backup/kept", "Backup/gone", "Help/new", "Help/mine"}) {
      Install(name, kNone);
    }
    for (const char* name : {"Backup/kept", "Backup/gone", "Help/mine"}) Install(name, "1");
    ASSERT_EQ(Start(), 0u);
    Set("user/Help/mine", "mine");
    Install("Backup/gone", kNone);
    for (const char* name : {"Backup/kept", "Help/mine", "Help/Sub/new"}) Install(name, "2");
  }

  /// The second start has failed, which it must have told, or not; the third one heals.
  void ExpectWholeAndHealed(bool isTold) {
    EXPECT_TRUE(isTold);
    EXPECT_EQ(At("user/Help/mine"), "mine");
    EXPECT_THAT(At("user/Backup/kept"), testing::AnyOf("1", "2"));
    files.Heal();
    EXPECT_EQ(Start(), 0u);
    EXPECT_EQ(At("user/Help/mine"), "mine");
    EXPECT_EQ(At("user/Backup/kept"), "2");
    EXPECT_EQ(At("user/Help/Sub/new"), "2");
    EXPECT_EQ(At("user/Backup/gone"), kNone);
  }
};

TEST_F(InstalledDataFailing, LosesNothingAndIsTakenUpAgain) {
  for (const FileStep step :
       {FileStep::Open, FileStep::Read, FileStep::Replace, FileStep::Write, FileStep::Copy,
        FileStep::Commit, FileStep::MakeFolder, FileStep::Remove, FileStep::List}) {
    for (int nth = 1;; ++nth) {
      SCOPED_TRACE(testing::Message() << "step " << static_cast<int>(step) << ", " << nth);
      Prepare();
      const int before = files.Steps(step);
      files.Fail(step, nth, kReadFault);
      const bool isTold = Start() > 0;
      if (files.Steps(step) - before < nth) break;
      ExpectWholeAndHealed(isTold);
    }
  }
}

TEST_F(InstalledDataFailing, OutlivesAFullDisk) {
  for (std::uint64_t bytes = 0; bytes < 100; bytes += bytes < 4 ? 1 : 40) {
    Prepare();
    files.FailAfterBytes(bytes, kDiskFull);
    ExpectWholeAndHealed(Start() > 0);
  }
}

TEST_F(InstalledDataTest, TwoProgramsStartAtOnce) {
  const std::string large(200000, 'x');
  for (int i = 0; i < 40; ++i)
    Install("Help/" + std::to_string(i % 8) + "/" + std::to_string(i), large);
  std::size_t failures[2];
  const auto start = [&](std::size_t& count) {
    const auto own = OpenFiles("");
    count = CopyInstalledData(*own, folder.Game(u"data"), folder.Game(u"user")).size();
  };
  std::thread other(start, std::ref(failures[0]));
  start(failures[1]);
  other.join();
  EXPECT_EQ(failures[0] + failures[1], 0u);
  for (int i = 0; i < 40; ++i) {
    EXPECT_EQ(At("user/Help/" + std::to_string(i % 8) + "/" + std::to_string(i)), large);
  }
}

}  // namespace
}  // namespace tarvo::test
