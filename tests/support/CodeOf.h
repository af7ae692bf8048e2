#pragma once

#include "platform/PlatformError.h"

namespace tarvo::test {

/// The code of the platform failure that a step ends in; 0 when it runs to its end.
template <class Step>
int CodeOf(Step&& step) {
  try {
    step();
  } catch (const PlatformError& error) {
    return error.Code;
  }
  return 0;
}

}  // namespace tarvo::test
