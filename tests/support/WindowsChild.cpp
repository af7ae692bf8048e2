#include <cstdlib>
#include <stdexcept>

#include "platform/windows/Handle.h"
#include "platform/windows/Wide.h"
#include "support/Child.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

/// The exit code of a child that was killed.
constexpr UINT kKilled = 0xDEAD;

void SetOrder(const char* name, const std::string& text) {
  SetEnvironmentVariableW(Wide(TextFromUtf8(name)).c_str(), Wide(TextFromUtf8(text)).c_str());
}

}  // namespace

struct Child::Process {
  Handle Itself;
  Handle Pipe;
};

Child::Child(const std::string& part, const std::string& argument)
    : process_(std::make_unique<Process>()) {
  HANDLE ends[2];
  SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  if (!CreatePipe(&ends[0], &ends[1], &inherited, 0)) throw std::runtime_error("no pipe");
  process_->Pipe = Handle(ends[0]);
  const Handle itsEnd(ends[1]);
  SetHandleInformation(ends[0], HANDLE_FLAG_INHERIT, 0);
  SetOrder(kChildPart, part);
  SetOrder(kChildArgument, argument);
  SetOrder(kChildPipe, std::to_string(reinterpret_cast<std::uintptr_t>(ends[1])));
  wchar_t program[MAX_PATH];
  GetModuleFileNameW(nullptr, program, MAX_PATH);
  wchar_t line[] = L"child";
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION made;
  const BOOL started =
      CreateProcessW(program, line, nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &made);
  SetEnvironmentVariableW(Wide(TextFromUtf8(kChildPart)).c_str(), nullptr);
  if (!started) throw std::runtime_error("no child");
  process_->Itself = Handle(made.hProcess);
  CloseHandle(made.hThread);
}

Child::~Child() {
  Kill();
  Wait();
}

bool Child::WaitUntilReady() {
  char byte;
  DWORD count = 0;
  return ReadFile(process_->Pipe.Get(), &byte, 1, &count, nullptr) && count == 1;
}

void Child::Kill() {
  TerminateProcess(process_->Itself.Get(), kKilled);
}

int Child::Wait() {
  DWORD code = kKilled;
  WaitForSingleObject(process_->Itself.Get(), INFINITE);
  GetExitCodeProcess(process_->Itself.Get(), &code);
  return code == kKilled ? -1 : static_cast<int>(code);
}

void KillThisProcess() {
  TerminateProcess(GetCurrentProcess(), kKilled);
  std::abort();
}

std::string ChildOrder(const char* name) {
  wchar_t order[4096];
  const DWORD length = GetEnvironmentVariableW(Wide(TextFromUtf8(name)).c_str(), order, 4096);
  return Utf8FromText(TextFromWide({order, length}));
}

void SayReady() {
  const auto pipe = reinterpret_cast<HANDLE>(std::stoull(ChildOrder(kChildPipe)));
  DWORD count = 0;
  if (!WriteFile(pipe, "!", 1, &count, nullptr)) ExitProcess(102);
}

}  // namespace tarvo::test
