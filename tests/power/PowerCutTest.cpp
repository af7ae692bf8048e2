#include <algorithm>
#include <cstdlib>

#include "PowerTesting.h"
#include "platform/Siblings.h"
#include "text/Paths.h"

namespace tarvo::test {
namespace {

using Contents = std::map<Text, FileText>;

/// The notes that the program keeps of unfinished work, which a next start sees to.
bool IsNote(const Text& key) {
  return key.find(u"\\backup\\unfinished\\") != Text::npos ||
         key.ends_with(u"\\old layout\\unfinished.txt");
}

/// The files on a disk by their folded paths.
Contents FilesOn(const MemoryDisk& disk) {
  Contents files;
  for (const auto& [key, node] : disk.Nodes) {
    const bool isTemporary = Siblings::IsSibling(Utf8FromText(BareName(key)));
    if (node.Bytes && !isTemporary && !IsNote(key)) files[key] = *node.Bytes;
  }
  return files;
}

std::optional<FileText> At(const Contents& files, const Text& key) {
  const auto found = files.find(key);
  return found == files.end() ? std::nullopt : std::optional(found->second);
}

bool Hold(const Contents& files, const FileText& bytes) {
  return std::ranges::any_of(files, [&](const auto& file) { return file.second == bytes; });
}

/// The first file that differs; empty for none.
std::string Difference(const Contents& files, const Contents& others) {
  for (const auto& [key, bytes] : files) {
    if (At(others, key) != bytes) return Utf8FromText(key);
  }
  return files.size() == others.size() ? "" : Difference(others, files);
}

/// How many cuts: TARVO_CUTS for all doings together, else `usual`.
int Cuts(int usual) {
  const char* const asked = std::getenv("TARVO_CUTS");
  return asked ? std::atoi(asked) : usual;
}

class PowerCuts : public testing::TestWithParam<Doing> {
 protected:
  void SetUp() override {
    Computer computer(start_);
    ASSERT_EQ(computer.Do(doing_.Words), doing_.Status) << computer.Told();
    steps_ = computer.disk->Steps();
    after_ = FilesOn(computer.disk->Disk());
    ASSERT_NE(before_, after_);
  }

  void CutAndJudge(int step, unsigned seed);

  int steps_ = 0;

 private:
  /// Does something on a disk and cuts the power in front of a step, or behind the last one.
  MemoryDisk Cut(const MemoryDisk& disk, const std::vector<std::string>& words, int step,
                 unsigned seed) {
    Computer computer(disk);
    computer.disk->CutAt(step);
    try {
      computer.Do(words);
    } catch (const PowerCut&) {
    }
    told_ += computer.Told();
    return computer.disk->AfterPowerCut(seed);
  }

  /// The files that are neither as they were before nor as they are to be.
  std::vector<Text> Spoilt(const Contents& found) const {
    std::vector<Text> spoilt;
    for (const auto& [key, bytes] : found) {
      if (bytes != At(before_, key) && bytes != At(after_, key)) spoilt.push_back(key);
    }
    return spoilt;
  }

  /// What holds right after a cut.
  void ExpectNothingLost(const Contents& found) const {
    for (const auto& [key, bytes] : before_) {
      const bool stands = found.contains(key) || !after_.contains(key);
      const bool isKept = Hold(found, bytes) || !Hold(after_, bytes);
      EXPECT_TRUE(stands && isKept) << Utf8FromText(key) << " is lost";
    }
    for (const Text& key : Spoilt(found)) {
      const bool isNew = !before_.contains(key);
      EXPECT_TRUE(isNew && doing_.MaySpoil) << Utf8FromText(key) << " is spoilt";
    }
  }

  /// What holds when the program has run again.
  void ExpectMendedOrTold(const Contents& found) const {
    ExpectNothingLost(found);
    const auto are = [&](const Contents& wanted) {
      return std::ranges::all_of(
          databases_, [&](const Text& key) { return At(found, key) == At(wanted, key); });
    };
    EXPECT_TRUE(are(before_) || are(after_)) << "one database has changed without the other";
    const bool isTold = told_.find("not installed to the end") != std::string::npos ||
                        told_.find("may not be whole") != std::string::npos;
    for (const Text& key : Spoilt(found)) {
      EXPECT_TRUE(isTold || MayStay(key)) << Utf8FromText(key) << " stays spoilt, and nobody tells";
    }
  }

  /// What holds when the user has done it again.
  void ExpectDone(const MemoryDisk& disk) const {
    Contents found = FilesOn(disk);
    ExpectNothingLost(found);
    Contents wanted = after_;
    std::erase_if(found, [&](const auto& file) { return MayStay(file.first); });
    std::erase_if(wanted, [&](const auto& file) { return MayStay(file.first); });
    EXPECT_EQ(Difference(found, wanted), "") << "is not as it is to be";
    for (const auto& [key, node] : disk.Nodes) EXPECT_FALSE(node.Bytes && IsNote(key));
  }

  bool MayStay(const Text& key) const {
    return !doing_.Stays.empty() && key.find(doing_.Stays) != Text::npos;
  }

  const Doing& doing_ = GetParam();
  const MemoryDisk start_ = Before(doing_);
  const Contents before_ = FilesOn(start_);
  Contents after_;
  std::string told_;

  /// Those that are changed together.
  const std::vector<Text> databases_ = {
      *MemoryDisk::KeyOf(Computer::At(u"game\\data\\TGL\\Ships.TGL")),
      *MemoryDisk::KeyOf(Computer::At(u"game\\data\\TGL\\QuickBattle\\QuickBattle.TGL")),
      *MemoryDisk::KeyOf(Computer::At(u"program\\QBMenus\\Species.TGL"))};
};

/// Cuts the power; in every third case once more, in the run after it.
void PowerCuts::CutAndJudge(int step, unsigned seed) {
  MemoryDisk disk = Cut(start_, doing_.Words, step, seed);
  ExpectNothingLost(FilesOn(disk));
  if (step > steps_) {
    // What it has told is done, and that is all that it promised.
    EXPECT_EQ(doing_.IsKept ? Difference(FilesOn(disk), after_) : "", "") << "is undone";
    return;
  }
  told_.clear();
  // The user starts the program and does it again, or the other way round.
  std::vector<std::string> first;
  std::vector<std::string> second = doing_.Words;
  if (seed % 2 == 0) first.swap(second);
  if (doing_.IsKept && seed % 3 == 0) {
    disk = Cut(disk, first, 1 + static_cast<int>(seed / 6 % 12), seed);
    ExpectNothingLost(FilesOn(disk));
  }
  for (const auto& words : {first, second}) {
    Computer computer(disk);
    computer.Do(words);
    told_ += computer.Told();
    disk = computer.disk->Disk();
    ExpectMendedOrTold(FilesOn(disk));
  }
  ExpectDone(disk);
}

TEST_P(PowerCuts, LeaveEveryFileOldOrNewOrTellOfIt) {
  const int cuts = Cuts(4000) / static_cast<int>(kDoings.size()) + 1;
  for (int cut = 0; cut < cuts; ++cut) {
    const int step = 1 + static_cast<int>(std::int64_t{cut} * (steps_ + 1) / cuts);
    SCOPED_TRACE(testing::Message() << "step " << step << " of " << steps_ << ", seed " << cut);
    CutAndJudge(step, static_cast<unsigned>(cut));
    if (HasFailure()) return;
  }
}

INSTANTIATE_TEST_SUITE_P(Of, PowerCuts, testing::ValuesIn(kDoings),
                         [](const auto& run) { return run.param.Name; });

}  // namespace
}  // namespace tarvo::test
