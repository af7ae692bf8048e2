#pragma once

#ifdef _WIN32
#include <windows.h>
#else
#include <cerrno>
#endif

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

/// How each system puts what the doors to files refuse.
#ifdef _WIN32
constexpr int kIsFolder = ERROR_ACCESS_DENIED;
constexpr int kIsNoFolder = ERROR_DIRECTORY;
constexpr int kIsThere = ERROR_ALREADY_EXISTS;
constexpr int kIsNotEmpty = ERROR_DIR_NOT_EMPTY;
constexpr int kNoSuchFolder = ERROR_PATH_NOT_FOUND;
constexpr int kLeadsNowhere = ERROR_INVALID_NAME;
#else
constexpr int kIsFolder = EISDIR;
constexpr int kIsNoFolder = ENOTDIR;
constexpr int kIsThere = EEXIST;
constexpr int kIsNotEmpty = ENOTEMPTY;
constexpr int kNoSuchFolder = ENOENT;
constexpr int kLeadsNowhere = ENOENT;
#endif

}  // namespace tarvo::test
