#include <gtest/gtest.h>

#include "machine/TestMachine.h"
#include "platform/FileCopies.h"
#include "state/ChangeTogether.h"

namespace tarvo::test {
namespace {

class ChangedTogether : public testing::Test {
 protected:
  void SetUp() override {
    machine.Start();
    Reset();
  }

  void Reset() {
    machine.files.Heal();
    machine.app.Failures.clear();
    machine.WriteFile(replaced, "old");
    machine.WriteFile(deleted, "goes");
    if (machine.disk->FileExists(made)) machine.disk->Remove(made);
    FinishChange(machine.app);
  }

  /// Gives false when it was killed or failed.
  bool Change() {
    try {
      ChangeTogether(machine.app, {{replaced, "new"}, {deleted, {}}, {made, "made"}});
      return true;
    } catch (const PlatformError&) {
    } catch (const Killed&) {
    }
    return false;
  }

  FileText All() {
    return machine.Bytes(replaced) + ", " + machine.Bytes(deleted) + ", " + machine.Bytes(made);
  }

  TestMachine machine;
  const Text replaced = machine.GameFolder() + u"\\data\\replaced";
  const Text deleted = machine.GameFolder() + u"\\data\\deleted";
  const Text made = machine.ProgramFolder() + u"\\made";
  const Text notes = machine.ProgramFolder() + u"\\Backup\\Unfinished";
  const FileText kBefore = "old, goes, (missing)";
  const FileText kAfter = "new, (missing), made";
};

/// A step that fails leaves all as it was; a kill leaves what the next start brings to either end.
TEST_F(ChangedTogether, CutAtAnyStepTheyAreAllOldOrAllNew) {
  int step = 0;
  int completed = 0;
  for (bool done = false; !done; ++step) {
    for (const bool kill : {false, true}) {
      SCOPED_TRACE(testing::Message() << (kill ? "killed" : "failed") << " at step " << step + 1);
      Reset();
      kill ? machine.files.KillAt(step + 1) : machine.files.FailAny(step + 1, kReadFault);
      done = Change();
      machine.files.Heal();
      EXPECT_TRUE(kill || All() == (done ? kAfter : kBefore)) << All();
      const FileText cut = All();
      FinishChange(machine.app);
      completed += All() != cut;
      EXPECT_TRUE(All() == kBefore || All() == kAfter) << All();
      EXPECT_FALSE(machine.disk->FolderExists(notes));
    }
  }
  EXPECT_GT(step, 20);
  EXPECT_GT(completed, 2) << "no kill came between the files";
}

/// From some step on everything fails, the putting back too: that is noted, and made up for later.
TEST_F(ChangedTogether, WhatCantBePutBackIsNotedAndCompleted) {
  int halves = 0;
  for (int nth = 1; nth < 6; ++nth) {
    Reset();
    machine.files.Fail(FileStep::Commit, nth, kDiskFull, true);
    machine.files.Fail(FileStep::Remove, 1, kDiskFull, true);
    if (Change()) break;
    machine.files.Heal();
    const bool isHalf = All() != kBefore;
    halves += isHalf;
    EXPECT_EQ(HasUnfinishedChange(machine.app), isHalf || nth > 1);
    EXPECT_EQ(!machine.app.Failures.empty(), isHalf);
    FinishChange(machine.app);
    EXPECT_EQ(All(), nth == 1 ? kBefore : kAfter);
  }
  EXPECT_GT(halves, 0);
}

TEST_F(ChangedTogether, WhatSomebodyHasChangedSinceStays) {
  for (int step = 1; !machine.Bytes(replaced).starts_with("new"); ++step) {
    Reset();
    machine.files.KillAt(step);
    Change();
    machine.files.Heal();
  }
  machine.WriteFile(deleted, "mine");
  FinishChange(machine.app);
  EXPECT_EQ(All(), "new, mine, made");
  EXPECT_NE(machine.Start().StatusBar.Panel1.Get(), u"");
}

}  // namespace
}  // namespace tarvo::test
