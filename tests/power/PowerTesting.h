#pragma once

#include "console/ConsoleTesting.h"
#include "machine/TestMachine.h"
#include "platform/InstalledData.h"
#include "support/PowerCutFiles.h"

namespace tarvo::test {

/// A computer with a game, the program and its installed data, whose power can be cut. What its
/// user is asked he answers with "Yes".
class Computer {
 public:
  explicit Computer(const MemoryDisk& found) : disk(std::make_shared<PowerCutFiles>(found)) {
    machine.hasFoundation = false;
    static int runs = 0;
    machine.clock.Run = TextFromUtf8(std::to_string(++runs));
    machine.answers.assign(20, u"Yes");
  }

  /// A place on the disk: "game\...", "program\..." or "installed\...".
  static Text At(const Text& below) { return kPlace.Game(below); }

  /// Runs the console tool, or starts the desktop program where there are no words. Gives the exit
  /// status, as that of the tool for both.
  int Do(const std::vector<std::string>& words) {
    disk->RemoveAbandoned();
    const auto failures = CopyInstalledData(*disk, At(u"installed"), At(u"program"));
    if (!failures.empty()) return 3;
    return words.empty() ? Start() : Run(words);
  }

  /// What the user has been told so far.
  std::string Told() const {
    std::string all = told_;
    for (const TestMachine::Box& box : machine.boxes) all += Utf8FromText(box.Message) + "\n";
    return all;
  }

  std::shared_ptr<PowerCutFiles> disk;

 private:
  int Start() {
    machine.Start();
    return machine.app.Failures.empty() ? 0 : 3;
  }

  int Run(const std::vector<std::string>& words) {
    SessionOptions options;
    options.Game = machine.GameFolder();
    options.ProgramFolder = machine.ProgramFolder();
    options.Answer = u"Yes";
    options.SyncsLater = true;
    const SessionDoors doors{*disk, machine.settings, machine.registry, machine.locale,
                             machine.clock};
    const Outcome outcome = RunTool(doors, options, words, {});
    told_ += outcome.results + outcome.words;
    return outcome.status;
  }

  inline static const TemporaryFolder::OfOther kRoot{"/disk"};
  inline static const TemporaryFolder kPlace{kRoot};

  TestMachine machine{kRoot, disk};
  std::string told_;
};

/// Something that the user does, and what lies on the disk before.
struct Doing {
  const char* Name;
  std::vector<std::string> Words;       ///< For the console tool; none for a start.
  void (*Prepare)(Computer& computer);  ///< On a computer with a game.
  bool MaySpoil = false;  ///< New files, as long as the next run mends them or tells of them.
  bool IsKept = true;     ///< Once it has told success no cut undoes it, in part or as a whole.
  int Status = 0;         ///< That of success.
  TextView Stays{};       ///< In the paths of files that may stay as the cut has left them.

  friend void PrintTo(const Doing& doing, std::ostream* out) { *out << doing.Name; }
};

extern const std::vector<Doing> kDoings;

/// The disk before it.
MemoryDisk Before(const Doing& doing);

}  // namespace tarvo::test
