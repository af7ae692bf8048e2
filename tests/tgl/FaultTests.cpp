#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "Faults.h"
#include "platform/HostMachine.h"
#include "support/TemporaryFolder.h"
#include "text/RaisedError.h"
#include "tgl/TGLFile.h"

namespace tarvo::test {
namespace {

constexpr int kSucceeded = 0;
constexpr int kFailed = 3;
constexpr int kKilled = -1;

/// Starts, changes the file and ends, as a program does it.
void Change(const std::string& folder) {
  const auto files = OpenFiles(folder + "/journal");
  TGLFile file(*files);
  file.SetFilename(GamePathFromArgument(folder) + u"\\game\\Ships.TGL");
  file.Load();
  file.Strings().Add(u"New", u"entry", u"");
  file.Strings().Item(5)->Data = Text(60000, u'y');
  file.Update(file.Filename(), true);
}

/// The argument: kind, place and code of the fault, and the folder.
const KnownChildPart kChange("Change", [](const std::string& argument) {
  std::istringstream order(argument);
  int kind = 0;
  order >> kind >> faults.At >> faults.Code;
  std::string folder;
  std::getline(order.ignore(), folder);
  faults.Seen = 0;
  faults.Kind = static_cast<Fault>(kind);
  int result = kSucceeded;
  try {
    Change(folder);
  } catch (const RaisedError&) {
    result = kFailed;
  }
  faults.Kind = Fault::None;
  return result;
});

class FaultTest : public testing::Test {
 protected:
  void SetUp() override {
    folder_.Put("game/Ships.TGL", "");
    TGLFile file(*files_);
    for (int i = 0; i < 3000; ++i) {
      const Text name = u"Ship " + Text(1, static_cast<char16_t>(0x4E00 + i));
      file.Strings().Add(u"Ship" + Text(static_cast<std::size_t>(i % 50), u'x') + TextFromNumber(i),
                         name, u"");
    }
    file.Update(path_, true);
    old_ = folder_.Get("game/Ships.TGL");
    Change(folder_.Host());
    new_ = folder_.Get("game/Ships.TGL");
    ASSERT_NE(old_, new_);
  }

  static Text TextFromNumber(int number) {
    Text text;
    for (const char digit : std::to_string(number)) text += static_cast<char16_t>(digit);
    return text;
  }

  /// Changes the old file in a process of its own; gives how that ended.
  int ChangeWith(Fault kind, int at, int code) {
    folder_.Put("game/Ships.TGL", old_);
    std::ostringstream order;
    order << static_cast<int>(kind) << ' ' << at << ' ' << code << ' ' << folder_.Host();
    return Child("Change", order.str()).Wait();
  }

  int CallsOfAChange() {
    folder_.Put("game/Ships.TGL", old_);
    faults.Seen = 0;
    Change(folder_.Host());
    return faults.Seen;
  }

  TemporaryFolder folder_;
  std::unique_ptr<Files> files_ = OpenFiles(folder_.Host("journal"));
  Text path_ = folder_.Game(u"game\\Ships.TGL");
  FileText old_;
  FileText new_;
};

TEST_F(FaultTest, WhateverCallFailsTheFileIsTheOldOrTheNewOne) {
  const int calls = CallsOfAChange();
  ASSERT_GT(calls, 8);
  for (const Fault kind : {Fault::Fail, Fault::FailFromThereOn, Fault::FallShort}) {
    for (const int code : {kDiskFull, kReadFault}) {
      for (int at = 1; at <= calls; ++at) {
        SCOPED_TRACE(std::to_string(static_cast<int>(kind)) + " at call " + std::to_string(at));
        const int result = ChangeWith(kind, at, code);
        const FileText now = folder_.Get("game/Ships.TGL");
        if (result == kSucceeded) {
          EXPECT_TRUE(now == new_);
        } else {
          EXPECT_EQ(result, kFailed);
          EXPECT_TRUE(now == old_);
        }
        if (kind != Fault::FailFromThereOn) {
          EXPECT_EQ(folder_.Entries("game"), 1u);
        }
      }
    }
  }
}

TEST_F(FaultTest, WhereverTheProcessDiesTheFileIsTheOldOrTheNewOne) {
  const int calls = CallsOfAChange();
  for (const Fault kind : {Fault::KillBefore, Fault::KillIn, Fault::KillAfter}) {
    for (int at = 1; at <= calls; ++at) {
      SCOPED_TRACE(std::to_string(static_cast<int>(kind)) + " at call " + std::to_string(at));
      EXPECT_EQ(ChangeWith(kind, at, 0), kKilled);
      const FileText now = folder_.Get("game/Ships.TGL");
      EXPECT_TRUE(now == old_ || now == new_);
      OpenFiles(folder_.Host("journal"))->RemoveAbandoned();
      EXPECT_EQ(folder_.Entries("game"), 1u);
    }
  }
}

}  // namespace
}  // namespace tarvo::test
