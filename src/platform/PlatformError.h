#pragma once

#ifndef _WIN32
#include <cerrno>
#endif
#include <exception>
#include <utility>

#include "text/Text.h"

namespace tarvo {

/// A failure of the machine: what was tried, on which file or key, and the system's code.
class PlatformError : public std::exception {
 public:
  /// `operation` is a verb that fits "Can't … PATH", such as "write". `code` is an errno value on
  /// POSIX and a Win32 error code on Windows.
  PlatformError(Text operation, Text path, int code)
      : Operation(std::move(operation)), Path(std::move(path)), Code(code) {}

  Text Operation;
  Text Path;  ///< A game path, or the full name of a registry key.
  int Code;

  const char* what() const noexcept override { return "platform failure"; }
};

/// Codes that the program itself tells apart or gives. That of a file or folder that isn't there is
/// the same number on POSIX and Windows.
constexpr int kNoSuchFile = 2;
#ifdef _WIN32
constexpr int kAccessDenied = 5;
constexpr int kFileExists = 183;
constexpr int kReadFault = 30;
constexpr int kDiskFull = 112;
#else
constexpr int kAccessDenied = EACCES;
constexpr int kFileExists = EEXIST;
constexpr int kReadFault = EIO;
constexpr int kDiskFull = ENOSPC;
#endif

/// True for the codes which tell that nothing stands at a path. With any other code that can't be
/// known.
bool SaysNothingThere(int code);

/// True for the codes of a folder that is closed to this process, or whose file system lacks what
/// was asked for: there is no use in trying again.
bool SaysNotAllowed(int code);

/// The system's own words for one of its codes; empty for a code that it doesn't know.
Text SystemErrorText(int code);

/// The last error of the calling thread.
int LastSystemError();

/// The one place where a failure of the machine turns into words:
/// "Can't write Z:\games\bc\x.py: No space left on device".
Text Words(const PlatformError& error);

}  // namespace tarvo
