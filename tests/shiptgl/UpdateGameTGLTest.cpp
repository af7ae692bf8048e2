#include "TGLToolsTesting.h"
#include "shiptgl/UpdateGameTGL.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

const Text kNotValid = u"Your Nord.TGL file is not Valid with BETA v4.0, Please make a new one!";

class Merging : public testing::Test, public TGLMachine {
 protected:
  void SetUp() override {
    machine.Start();
    Define(u"Nord", {.LongName = u"USS Nord", .Description = u"first"});
  }

  /// Merges; on a failure gives what was noted of it.
  Text Failure() {
    machine.boxes.clear();
    machine.app.Failures.clear();
    if (UpdateGameTGL(machine.app, u"Nord")) return {};
    const Text noted = machine.app.Failures.empty() ? u"(nothing)" : machine.app.Failures[0].Words;
    const bool namesGame = noted.find(machine.GameFolder()) != Text::npos;
    EXPECT_EQ(machine.boxes.size(), namesGame ? 2u : 1u);
    EXPECT_EQ(machine.boxes.back(), (TestMachine::Box{kNotValid, BoxIcon::Critical}));
    if (namesGame) {
      EXPECT_NE(machine.boxes[0].Message.find(noted), Text::npos);
    }
    return noted;
  }

  FileText Game() { return machine.Bytes(ships) + machine.Bytes(quickBattle); }
};

TEST_F(Merging, NewShipComesIntoBothDatabases) {
  EXPECT_EQ(Failure(), u"");
  const auto inShips = Strings(ships);
  const auto inQuickBattle = Strings(quickBattle);
  EXPECT_EQ(inShips.size(), 2u);
  EXPECT_EQ(inShips.at(u"Nord"), (TGLString{u"Nord", u"USS Nord", u"Nord.wav"}));
  EXPECT_TRUE(inShips.at(u"Nord Description").Data.starts_with(u"Description: first\r\n"));
  EXPECT_EQ(inQuickBattle.size(), 1u);
  EXPECT_EQ(inQuickBattle.at(u"Nord"),
            (TGLString{u"Nord", u"USS Nord", u"sfx/QuickBattle/Nord.mp3"}));
}

TEST_F(Merging, NewTextsTakeThePlaceOfOldOnesAndOnceMoreChangesNothing) {
  EXPECT_EQ(Failure(), u"");
  Define(u"Nord", {.LongName = u"Better", .Description = u"second"});
  EXPECT_EQ(Failure(), u"");
  EXPECT_EQ(Strings(ships).at(u"Nord").Data, u"Better");
  EXPECT_EQ(Strings(quickBattle).at(u"Nord").Data, u"Better");
  EXPECT_EQ(Strings(ships).size() + Strings(quickBattle).size(), 3u);
  const FileText game = Game();
  EXPECT_EQ(Failure(), u"");
  EXPECT_EQ(Game(), game);
}

TEST_F(Merging, WhatCantBeMergedLeavesTheGameAndNamesTheFile) {
  const FileText whole = machine.Bytes(Definition(u"Nord"));
  const auto damage = [&](const Text& path) { machine.WriteFile(path, "no database"); };
  const auto lessOne = [&](const Text& missing) {
    auto strings = Strings(Definition(u"Nord"));
    strings.erase(missing);
    std::vector<TGLString> left;
    for (const auto& [name, string] : strings) left.push_back(string);
    Write(Definition(u"Nord"), left);
  };
  const std::vector<std::pair<std::function<void()>, Text>> cases = {
      {[&] { machine.disk->Remove(Definition(u"Nord")); }, Definition(u"Nord")},
      {[&] { damage(Definition(u"Nord")); }, Definition(u"Nord")},
      {[&] { lessOne(u"Nord"); }, Definition(u"Nord")},
      {[&] { lessOne(u"Nord Description"); }, Definition(u"Nord")},
      {[&] { lessOne(u"QBNord"); }, Definition(u"Nord")},
      {[&] {
         Write(ships, {{u"Nord", u"without description", u""}});
       },
       ships},
      {[&] { damage(ships); }, ships},
      {[&] { damage(quickBattle); }, quickBattle},
      {[&] { machine.disk->Remove(quickBattle); }, quickBattle},
  };
  const FileText oldShips = machine.Bytes(ships);
  const FileText oldQuickBattle = machine.Bytes(quickBattle);
  for (const auto& [prepare, file] : cases) {
    machine.WriteFile(Definition(u"Nord"), whole);
    machine.WriteFile(ships, oldShips);
    machine.WriteFile(quickBattle, oldQuickBattle);
    prepare();
    const FileText game = Game();
    const Text words = Failure();
    EXPECT_NE(words.find(file), Text::npos) << Utf8FromText(words);
    EXPECT_EQ(words.find(file), words.rfind(file)) << Utf8FromText(words);
    EXPECT_EQ(Game(), game);
  }
}

TEST_F(Merging, ShipThatIsHalfInTheGameIsWholeAfterwards) {
  Write(ships, {{u"Nord", u"a", u""}, {u"Nord Description", u"b", u""}, {u"Other", u"c", u""}});
  EXPECT_EQ(Failure(), u"");
  EXPECT_EQ(Strings(ships).at(u"Nord").Data, u"USS Nord");
  EXPECT_TRUE(Strings(quickBattle).contains(u"Nord"));
}

TEST_F(Merging, FailingDiskNeverLeavesAHalfWrittenDatabase) {
  const FileText oldShips = machine.Bytes(ships);
  const FileText oldQuickBattle = machine.Bytes(quickBattle);
  ASSERT_EQ(Failure(), u"");
  const FileText newShips = machine.Bytes(ships);
  const FileText newQuickBattle = machine.Bytes(quickBattle);
  for (const FileStep step :
       {FileStep::Open, FileStep::Read, FileStep::Replace, FileStep::Write, FileStep::Commit}) {
    for (int nth = 1;; ++nth) {
      SCOPED_TRACE(testing::Message() << "step " << static_cast<int>(step) << ", " << nth);
      machine.WriteFile(ships, oldShips);
      machine.WriteFile(quickBattle, oldQuickBattle);
      const int before = machine.files.Steps(step);
      machine.files.Fail(step, nth, kDiskFull);
      const bool failed = !Failure().empty();
      machine.files.Heal();
      const bool wroteShips = machine.Bytes(ships) == newShips;
      const bool wroteQuickBattle = machine.Bytes(quickBattle) == newQuickBattle;
      EXPECT_TRUE(wroteShips || machine.Bytes(ships) == oldShips);
      EXPECT_TRUE(wroteQuickBattle || machine.Bytes(quickBattle) == oldQuickBattle);
      EXPECT_EQ(failed, !wroteShips || !wroteQuickBattle);
      EXPECT_EQ(failed, !machine.app.Failures.empty() && machine.app.Failures[0].OnFile);
      if (machine.files.Steps(step) - before < nth) break;
    }
  }
}

}  // namespace
}  // namespace tarvo::test
