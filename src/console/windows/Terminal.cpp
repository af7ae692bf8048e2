#include "console/Terminal.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>
// Needs the header above.
#include <shellapi.h>

#include <cstdio>
#include <memory>

#include "platform/windows/Wide.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

/// A console, and not another character device such as NUL.
bool IsConsole(DWORD standardHandle) {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(standardHandle), &mode) != 0;
}

/// Bytes as they are, and in whole lines: a console shows no character that comes in pieces.
void PrepareStream(std::FILE* stream) {
  constexpr std::size_t kBuffer = 64 * 1024;
  _setmode(_fileno(stream), _O_BINARY);
  std::setvbuf(stream, nullptr, _IOFBF, kBuffer);
}

}  // namespace

Terminal::Terminal() {
  PrepareStream(stdout);
  PrepareStream(stderr);
  if (!IsConsole(STD_OUTPUT_HANDLE) && !IsConsole(STD_ERROR_HANDLE)) return;
  codePageBefore_ = GetConsoleOutputCP();
  SetConsoleOutputCP(CP_UTF8);
}

Terminal::~Terminal() {
  std::fflush(stdout);
  std::fflush(stderr);
  if (codePageBefore_ != 0) SetConsoleOutputCP(codePageBefore_);
}

bool Terminal::ShowsErrors() const {
  return IsConsole(STD_ERROR_HANDLE);
}

std::optional<std::string> Terminal::ReadLine() {
  constexpr wchar_t kEndOfInput = 0x1A;  // Ctrl+Z at the start of a line.
  if (!IsConsole(STD_INPUT_HANDLE)) return {};
  std::wstring line;
  do {
    wchar_t piece[256];
    DWORD count = 0;
    const HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
    if (!ReadConsoleW(input, piece, std::size(piece), &count, nullptr) || count == 0) return {};
    line.append(piece, count);
  } while (line.back() != L'\n');
  if (line.front() == kEndOfInput) return {};
  line.erase(line.find_last_not_of(L"\r\n") + 1);
  return Utf8FromText(TextFromWide(line));
}

std::vector<std::string> Terminal::Arguments(int, char**) {
  int count = 0;
  const std::unique_ptr<LPWSTR, decltype(&LocalFree)> words(
      CommandLineToArgvW(GetCommandLineW(), &count), &LocalFree);
  std::vector<std::string> arguments;
  for (int i = 0; words && i < count; ++i) {
    arguments.push_back(Utf8FromText(TextFromWide(words.get()[i])));
  }
  return arguments;
}

}  // namespace tarvo
