#pragma once

#include <memory>
#include <string>

namespace tarvo::test {

/// What a second process of this test program does in place of its tests; gives its exit code.
using ChildPart = int (*)(const std::string& argument);

/// Makes a part known by a name; for variables of namespaces.
struct KnownChildPart {
  KnownChildPart(const char* name, ChildPart part);
};

/// How often a test kills: TARVO_KILLS, else `usual`, less under Wine, where starting a process is
/// slow.
int Kills(int usual);

/// In the child: wakes the parent's WaitUntilReady.
void SayReady();

/// A second process of this test program, killed with the object at the latest.
class Child {
 public:
  Child(const std::string& part, const std::string& argument);
  ~Child();

  /// Gives false when the child has ended without having said that it is ready.
  bool WaitUntilReady();

  /// Ends it at once, wherever it stands.
  void Kill();

  /// Waits for its end; gives its exit code, or -1 when it was killed.
  int Wait();

 private:
  struct Process;
  std::unique_ptr<Process> process_;
};

/// In the child: ends it as Kill does.
[[noreturn]] void KillThisProcess();

/// In the child: what the parent wants of it, by name; empty in any other process.
std::string ChildOrder(const char* name);

constexpr const char* kChildPart = "TARVO_CHILD_PART";
constexpr const char* kChildArgument = "TARVO_CHILD_ARGUMENT";
constexpr const char* kChildPipe = "TARVO_CHILD_PIPE";

}  // namespace tarvo::test
