#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <string>
#include <vector>

#include "platform/posix/PosixFiles.h"
#include "support/TemporaryFolder.h"
#include "text/RaisedError.h"
#include "tgl/TGLFile.h"

// The linker leads the system calls of an update through the functions below (see CMakeLists.txt),
// which count them and let the chosen one fail, fall short, or be the last of the process.

namespace {

enum class Fault { None, Fail, FailFromThereOn, FallShort, KillBefore, KillIn, KillAfter };

Fault fault = Fault::None;
int faultAt = 0;
int faultCode = 0;
int callsSeen = 0;

void Kill() {
  kill(getpid(), SIGKILL);
}

/// Runs one system call, unless it is to fail. `part` is what is left of it when it is cut.
template <class Call, class Part>
auto Guard(Call call, Part part) -> decltype(call()) {
  ++callsSeen;
  if (fault == Fault::None || callsSeen < faultAt) return call();
  if (callsSeen > faultAt && fault != Fault::FailFromThereOn) return call();
  if (fault == Fault::KillBefore) Kill();
  if (fault == Fault::FallShort) return part();
  if (fault == Fault::KillIn) {
    part();
    Kill();
  }
  if (fault == Fault::KillAfter) {
    call();
    Kill();
  }
  errno = faultCode;
  return -1;
}

template <class Call>
auto Guard(Call call) {
  return Guard(call, call);
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
  return Guard([&] { return __real_open(path, flags, mode); });
}

ssize_t __wrap_pread(int file, void* to, size_t count, off_t at) {
  return Guard([&] { return __real_pread(file, to, count, at); },
               [&] { return __real_pread(file, to, count / 2, at); });
}

ssize_t __wrap_write(int file, const void* from, size_t count) {
  return Guard([&] { return __real_write(file, from, count); },
               [&] { return __real_write(file, from, (count + 1) / 2); });
}

int __wrap_fsync(int file) {
  return Guard([&] { return __real_fsync(file); });
}

int __wrap_rename(const char* from, const char* to) {
  return Guard([&] { return __real_rename(from, to); });
}

/// A close that fails closes the file all the same.
int __wrap_close(int file) {
  const int result = __real_close(file);
  return Guard([&] { return result; });
}

}  // extern "C"

namespace tarvo::test {
namespace {

constexpr int kSucceeded = 0;
constexpr int kFailed = 3;

class FaultTest : public testing::Test {
 protected:
  void SetUp() override {
    TGLFile file(files_);
    for (int i = 0; i < 3000; ++i) {
      const Text name = u"Ship " + Text(1, static_cast<char16_t>(0x4E00 + i));
      file.Strings().Add(u"Ship" + Text(static_cast<std::size_t>(i % 50), u'x') + TextFromNumber(i),
                         name, u"");
    }
    file.Update(path_, true);
    old_ = folder_.Get("Ships.TGL");
    Change();
    new_ = folder_.Get("Ships.TGL");
    ASSERT_NE(old_, new_);
  }

  static Text TextFromNumber(int number) {
    Text text;
    for (const char digit : std::to_string(number)) text += static_cast<char16_t>(digit);
    return text;
  }

  /// As a program does it that starts, changes the file and ends.
  void Change() {
    PosixFiles files(journal_.Host());
    TGLFile file(files);
    file.SetFilename(path_);
    file.Load();
    file.Strings().Add(u"New", u"entry", u"");
    file.Strings().Item(5)->Data = Text(60000, u'y');
    file.Update(path_, true);
  }

  /// Changes the old file in a process of its own; gives how that ended, a signal as its negative.
  int ChangeWith(Fault kind, int at, int code) {
    folder_.Put("Ships.TGL", old_);
    const pid_t child = fork();
    if (child == 0) {
      fault = kind;
      faultAt = at;
      faultCode = code;
      callsSeen = 0;
      int result = kSucceeded;
      try {
        Change();
      } catch (const RaisedError&) {
        result = kFailed;
      }
      fault = Fault::None;
      _exit(result);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
  }

  int CallsOfAChange() {
    folder_.Put("Ships.TGL", old_);
    callsSeen = 0;
    Change();
    return callsSeen;
  }

  TemporaryFolder folder_;
  TemporaryFolder journal_;
  PosixFiles files_{journal_.Host()};
  Text path_ = folder_.Game(u"Ships.TGL");
  FileText old_;
  FileText new_;
};

TEST_F(FaultTest, WhateverCallFailsTheFileIsTheOldOrTheNewOne) {
  const int calls = CallsOfAChange();
  ASSERT_GT(calls, 8);
  for (const Fault kind : {Fault::Fail, Fault::FailFromThereOn, Fault::FallShort}) {
    for (const int code : {ENOSPC, EIO}) {
      for (int at = 1; at <= calls; ++at) {
        SCOPED_TRACE(std::to_string(static_cast<int>(kind)) + " at call " + std::to_string(at));
        const int result = ChangeWith(kind, at, code);
        const FileText now = folder_.Get("Ships.TGL");
        if (result == kSucceeded) {
          EXPECT_TRUE(now == new_);
        } else {
          EXPECT_EQ(result, kFailed);
          EXPECT_TRUE(now == old_);
        }
        if (kind != Fault::FailFromThereOn) {
          EXPECT_EQ(files_.FileNames(folder_.Game()).size(), 1u);
        }
      }
    }
  }
}

TEST_F(FaultTest, WhereverTheProcessDiesTheFileIsTheOldOrTheNewOne) {
  const int calls = CallsOfAChange();
  for (const Fault kind : {Fault::KillBefore, Fault::KillIn, Fault::KillAfter}) {
    for (int at = 1; at <= calls; ++at) {
      SCOPED_TRACE(std::to_string(static_cast<int>(kind)) + " at call " + std::to_string(at));
      EXPECT_EQ(ChangeWith(kind, at, 0), -SIGKILL);
      const FileText now = folder_.Get("Ships.TGL");
      EXPECT_TRUE(now == old_ || now == new_);
      PosixFiles next(journal_.Host());
      next.RemoveAbandoned();
      EXPECT_EQ(next.FileNames(folder_.Game()).size(), 1u);
    }
  }
}

}  // namespace
}  // namespace tarvo::test
