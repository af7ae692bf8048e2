#include <gtest/gtest.h>

#include "machine/TestMachine.h"
#include "state/PendingWork.h"

namespace tarvo::test {
namespace {

TEST(PendingWork, IsKnownToTheNextStartUntilItIsOnTheDisk) {
  using Names = std::vector<Text>;
  enum class How { Killed, Dropped, Ended, EndedLater, BroughtToDisk };
  struct Case {
    const char* what;
    How how;
    bool isNewRun;  ///< The computer has been started anew.
    Names installs, packages;
  };
  const Names none, one{u"\u00DCber Ship"};
  for (const Case& c : {
           Case{"killed", How::Killed, false, one, none},
           Case{"cut", How::Killed, true, one, one},
           Case{"nothing changed", How::Dropped, true, none, none},
           Case{"waited for", How::Ended, true, none, none},
           Case{"not waited for", How::EndedLater, false, none, none},
           Case{"not waited for, and cut", How::EndedLater, true, one, one},
           Case{"on the disk", How::BroughtToDisk, true, none, none},
       }) {
    SCOPED_TRACE(c.what);
    TestMachine machine;
    machine.Start();
    Application& app = machine.app;
    for (const WorkKind kind : {WorkKind::Install, WorkKind::Package}) {
      app.SyncsLater = true;
      DropWork(app, BeginWork(app, kind, u"other"));
      BeginWork(app, kind, one[0]);
      const Text note = BeginWork(app, kind, one[0]);
      if (c.how == How::Dropped) DropWork(app, note);
      app.SyncsLater = c.how != How::Ended;
      if (c.how >= How::Ended) EndWork(app, note);
      if (c.how == How::BroughtToDisk) BringToDisk(app);
    }
    EXPECT_EQ(HasWrittenWork(app), c.how == How::EndedLater);
    if (c.isNewRun) machine.clock.Run = u"second";
    const UnfinishedWork work = FindUnfinishedWork(app);
    EXPECT_EQ(work.Installs, c.installs);
    EXPECT_EQ(work.Packages, c.packages);
    ForgetUnfinishedWork(app);
    BringToDisk(app);
    EXPECT_FALSE(machine.files.FolderExists(machine.ProgramFolder() + u"\\Backup\\Unfinished"));
  }
}

/// Another program may be done with its own work at any time.
TEST(PendingWork, OfOthersMayGoWhileItIsLookedAt) {
  TestMachine machine;
  machine.Start();
  machine.app.SyncsLater = true;
  EndWork(machine.app, BeginWork(machine.app, WorkKind::Install, u"first"));
  machine.files.Fail(FileStep::Open, 1, kNoSuchFile);
  EXPECT_NE(BeginWork(machine.app, WorkKind::Install, u"second"), Text());
}

}  // namespace
}  // namespace tarvo::test
