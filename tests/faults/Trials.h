#pragma once

#include <map>
#include <mutex>
#include <set>

#include "faults/Scene.h"
#include "faults/Tree.h"

namespace tarvo::test {

struct Fault {
  const char* Name;
  int Code;  ///< 0 kills.
  bool Onwards = false;
};

/// "+" stands for all calls from there on.
extern const std::vector<Fault> kFaults;

enum class Wrong { Torn, LeftBehind, ToldAsSuccess, Noticed, Crashed };
constexpr const char* kWrongs[] = {"torn", "left behind", "told as success", "noticed", "crashed"};

struct Finding {
  std::string Command, FaultName;
  std::string Call;  ///< Its number, name and path.
  Words Stack;       ///< Offsets into the tool's file, from the inside out.
  Wrong What;
  std::string Seen;
};

/// What all workers fill.
struct Results {
  std::mutex Mutex;
  int Trials = 0;
  std::vector<Finding> Findings;
};

struct Choice {
  std::string Tool;
  std::set<std::string> Faults;  ///< By name; all when empty.
  unsigned Every = 1;            ///< One trial of so many is made.
  unsigned Seed = 1;
};

/// A scene of its own, in which commands are tried one after the other.
class Trials {
 public:
  Trials(const std::string& below, const Choice& choice, Results& results);

  /// Runs the command without faults, then with each of the chosen faults at each of its calls.
  void Try(const Command& command);

 private:
  struct Ran {
    int Status;
    std::string Output;
    Words Calls;          ///< As the library logs them.
    std::string Planted;  ///< The call that was to fail, if it came to that,
    std::string Stack;    ///< and where it stands.
  };

  Ran Run(const Words& line, const Words& orders = {});
  void RunAll(const std::vector<const char*>& lines, const std::string& game);
  void Learn(const Command& command);
  void TryFault(const std::string& number, const Fault& fault);
  void Judge(const Fault& fault, const Ran& ran);
  void JudgeNextStart();
  void Find(Wrong what, const std::string& seen);
  std::string TornFile(const Tree& now) const;

  TemporaryFolder folder_;
  std::string scene_ = folder_.Host("scene");
  const Choice& choice_;
  Results& results_;
  Tree start_;

  // Of the command.
  Words line_;
  Tree before_, after_;
  std::set<std::string> known_;  ///< Paths that come up without faults.
  Ran faultless_;

  Finding at_;
};

/// Prints the findings by their causes, that is by who in the tool asked for the call, and the
/// counts. The sources are named where addr2line and the tool's debug information are at hand.
void PrintReport(const std::vector<Finding>& findings, int trials, const std::string& tool);

}  // namespace tarvo::test
