#pragma once

#include "platform/PlatformError.h"
#include "text/RaisedError.h"

namespace tarvo {

/// Runs one guarded step: a raised error or a failure of the platform ends the step and is
/// dropped; anything else is a bug and passes through. Gives true when the step ran to its end.
template <class Step>
bool Guarded(Step&& step) {
  try {
    step();
    return true;
  } catch (const RaisedError&) {
  } catch (const PlatformError&) {
  }
  return false;
}

}  // namespace tarvo
