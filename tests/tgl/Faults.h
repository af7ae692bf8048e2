#pragma once

#include "support/Child.h"

namespace tarvo::test {

/// What happens to a system call of an update. The calls go through functions of the test, which
/// count them and let the chosen one fail, fall short, or be the last of the process.
enum class Fault { None, Fail, FailFromThereOn, FallShort, KillBefore, KillIn, KillAfter };

struct FaultPlan {
  Fault Kind = Fault::None;
  int At = 0;  ///< The number of the call, from 1.
  int Code = 0;
  int Seen = 0;  ///< Calls so far.
};

inline FaultPlan faults;

/// Runs one system call, unless it is to fail, which `fail` does with a code. `part` is what is
/// left of it when it is cut.
template <class Fail, class Call, class Part>
auto Guard(Fail fail, Call call, Part part) -> decltype(call()) {
  ++faults.Seen;
  const Fault kind = faults.Kind;
  if (kind == Fault::None || faults.Seen < faults.At) return call();
  if (faults.Seen > faults.At && kind != Fault::FailFromThereOn) return call();
  if (kind == Fault::KillBefore) KillThisProcess();
  if (kind == Fault::FallShort) return part();
  if (kind == Fault::KillIn) {
    part();
    KillThisProcess();
  }
  if (kind == Fault::KillAfter) {
    call();
    KillThisProcess();
  }
  return fail(faults.Code);
}

template <class Fail, class Call>
auto Guard(Fail fail, Call call) {
  return Guard(fail, call, call);
}

}  // namespace tarvo::test
