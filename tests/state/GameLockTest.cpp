#include <gtest/gtest.h>

#include "machine/TestMachine.h"
#include "state/GameLock.h"
#include "text/RaisedError.h"

namespace tarvo::test {
namespace {

class LockedGame : public testing::Test {
 protected:
  void SetUp() override {
    machine.Start();
    machine.app.Failures.clear();
    machine.boxes.clear();
  }

  LockAttempt TakenByOther() { return others->TryLock(machine.GameFolder(), u"tarvo merge Nord"); }

  bool Run() {
    ran = 0;
    return LockingGame(machine.app, u"Test", [this] { ++ran; });
  }

  TestMachine machine;
  std::unique_ptr<Files> others = OpenFiles("");
  int ran = 0;
};

TEST_F(LockedGame, IsWaitedForAndThenRefusedWithTheHoldersWords) {
  LockAttempt other = TakenByOther();
  EXPECT_FALSE(Run());
  EXPECT_EQ(ran, 0);
  EXPECT_EQ(machine.clock.Waited, 10'000);
  ASSERT_EQ(machine.boxes.size(), 1u);
  ASSERT_EQ(machine.app.Failures.size(), 1u);
  EXPECT_NE(machine.app.Failures[0].Words.find(u"tarvo merge Nord"), Text::npos);
  EXPECT_TRUE(machine.app.Failures[0].OnFile);

  machine.clock.Waited = 0;
  machine.clock.OnPause = [&] {
    const Text& line = machine.Start().StatusBar.Panel1;
    EXPECT_NE(line.find(u"Waiting for \"tarvo merge Nord\""), Text::npos);
    if (machine.clock.Waited == 300) other.Lock.reset();
  };
  EXPECT_TRUE(Run());
  EXPECT_EQ(ran, 1);
  EXPECT_EQ(machine.clock.Waited, 300);
}

TEST_F(LockedGame, IsHeldThroughTheCommandsInsideOfACommandAndNoLonger) {
  LockingGame(machine.app, u"Outer", [&] {
    EXPECT_TRUE(Run());
    EXPECT_EQ(TakenByOther().Holder, u"Tarvo Packager: Outer");
  });
  EXPECT_TRUE(TakenByOther().Lock);
  EXPECT_THROW(LockingGame(machine.app, u"x", [] { throw RaisedError(u"", u""); }), RaisedError);
  EXPECT_TRUE(TakenByOther().Lock);
}

TEST_F(LockedGame, WithoutAPlaceForALockNobodyIsKeptFromHisWorkAndItIsToldOnce) {
  machine.files.Fail(FileStep::Lock, 1, kAccessDenied, true);
  for (const bool told : {true, false}) {
    machine.Start().StatusBar.Panel1 = u"";
    EXPECT_TRUE(Run());
    EXPECT_EQ(ran, 1);
    EXPECT_EQ(machine.Start().StatusBar.Panel1.Get().empty(), !told);
  }
  machine.files.Heal();
  machine.files.Fail(FileStep::Lock, 1, kReadFault, true);
  EXPECT_FALSE(Run());
  EXPECT_EQ(ran, 0);
}

}  // namespace
}  // namespace tarvo::test
