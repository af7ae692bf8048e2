#include <stdexcept>

#include "platform/windows/Handle.h"
#include "platform/windows/Wide.h"
#include "support/RunProgram.h"
#include "support/TemporaryFolder.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

/// A word as the usual rules take it apart: backslashes count before a quote only.
std::string Quoted(const std::string& word) {
  std::string quoted = "\"";
  std::size_t backslashes = 0;
  for (const char unit : word + '"') {
    if (unit == '"') quoted.append(backslashes, '\\');
    backslashes = unit == '\\' ? backslashes + 1 : 0;
    quoted += unit;
    if (unit == '"') quoted.insert(quoted.size() - 1, 1, '\\');
  }
  // The last quote is the closing one.
  return quoted.erase(quoted.size() - 2, 1);
}

Handle OpenInherited(const std::wstring& name, DWORD access, DWORD disposition) {
  SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  Handle file(CreateFileW(name.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited,
                          disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file.IsOpen()) throw std::runtime_error("no file for the program to run");
  return file;
}

}  // namespace

Ran RunProgram(std::vector<std::string> words) {
  constexpr DWORD kTwoMinutes = 120'000;
  std::string line;
  for (const std::string& word : words) line += (line.empty() ? "" : " ") + Quoted(word);
  std::wstring wideLine = Wide(TextFromUtf8(line));
  const TemporaryFolder folder;
  DWORD status = static_cast<DWORD>(-1);
  {
    const Handle nothing = OpenInherited(L"NUL", GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING);
    const Handle output =
        OpenInherited(folder.Path("output").wstring(), GENERIC_WRITE, CREATE_ALWAYS);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = start.hStdError = nothing.Get();
    start.hStdOutput = output.Get();
    PROCESS_INFORMATION made{};
    if (!CreateProcessW(nullptr, wideLine.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr,
                        nullptr, &start, &made)) {
      return {-1, {}};
    }
    const Handle process(made.hProcess);
    CloseHandle(made.hThread);
    if (WaitForSingleObject(process.Get(), kTwoMinutes) != WAIT_OBJECT_0) {
      TerminateProcess(process.Get(), status);
    }
    GetExitCodeProcess(process.Get(), &status);
  }
  return {static_cast<int>(status), folder.Get("output")};
}

}  // namespace tarvo::test
