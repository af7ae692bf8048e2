#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>

#include "Faults.h"

// The linker leads the system calls of an update through the functions below (see CMakeLists.txt).

namespace {

using tarvo::test::Guard;

int Fail(int code) {
  errno = code;
  return -1;
}

}  // namespace

extern "C" {

int __real_open(const char* path, int flags, ...);
ssize_t __real_pread(int file, void* to, size_t count, off_t at);
ssize_t __real_write(int file, const void* from, size_t count);
int __real_fsync(int file);
int __real_rename(const char* from, const char* to);
int __real_close(int file);

int __wrap_open(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = flags & O_CREAT ? va_arg(rest, mode_t) : 0;
  va_end(rest);
  return Guard(Fail, [&] { return __real_open(path, flags, mode); });
}

ssize_t __wrap_pread(int file, void* to, size_t count, off_t at) {
  return Guard(
      Fail, [&] { return __real_pread(file, to, count, at); },
      [&] { return __real_pread(file, to, count / 2, at); });
}

ssize_t __wrap_write(int file, const void* from, size_t count) {
  return Guard(
      Fail, [&] { return __real_write(file, from, count); },
      [&] { return __real_write(file, from, (count + 1) / 2); });
}

int __wrap_fsync(int file) {
  return Guard(Fail, [&] { return __real_fsync(file); });
}

int __wrap_rename(const char* from, const char* to) {
  return Guard(Fail, [&] { return __real_rename(from, to); });
}

/// A close that fails closes the file all the same.
int __wrap_close(int file) {
  const int result = __real_close(file);
  return Guard(Fail, [&] { return result; });
}

}  // extern "C"
