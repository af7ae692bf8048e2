#include "platform/windows/ShellOpening.h"

#include <windows.h>
// Needs the header above.
#include <shellapi.h>

#include "platform/windows/Wide.h"

namespace tarvo {
namespace {

bool Execute(TextView file, const std::wstring& folder) {
  constexpr INT_PTR kLastFailure = 32;
  const HINSTANCE result =
      ShellExecuteW(nullptr, nullptr, Wide(file).c_str(), nullptr, folder.c_str(), SW_SHOWNORMAL);
  return reinterpret_cast<INT_PTR>(result) > kLastFailure;
}

}  // namespace

bool OpenInShell(TextView addressOrFile) {
  // Not our own folder, which the program would keep in use.
  return Execute(addressOrFile, L"C:\\");
}

bool StartInShell(TextView program) {
  const std::size_t slash = program.rfind(u'\\');
  return Execute(program, Wide(program.substr(0, slash == TextView::npos ? 0 : slash)));
}

}  // namespace tarvo
