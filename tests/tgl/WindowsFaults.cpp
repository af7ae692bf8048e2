#include <windows.h>

#include "Faults.h"

// The calls of this program go through pointers that the linker would fill from the system's
// library. The ones defined here take their place.

namespace {

using tarvo::test::Guard;

template <class Call>
Call Real(Call, const char* name) {
  return reinterpret_cast<Call>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), name)));
}

BOOL Fail(int code) {
  SetLastError(static_cast<DWORD>(code));
  return FALSE;
}

HANDLE FailToOpen(int code) {
  SetLastError(static_cast<DWORD>(code));
  return INVALID_HANDLE_VALUE;
}

HANDLE WINAPI Create(LPCWSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security,
                     DWORD disposition, DWORD flags, HANDLE pattern) {
  static const auto real = Real(&Create, "CreateFileW");
  return Guard(FailToOpen,
               [&] { return real(path, access, share, security, disposition, flags, pattern); });
}

BOOL WINAPI Read(HANDLE file, LPVOID to, DWORD count, LPDWORD done, LPOVERLAPPED at) {
  static const auto real = Real(&Read, "ReadFile");
  return Guard(
      Fail, [&] { return real(file, to, count, done, at); },
      [&] { return real(file, to, count / 2, done, at); });
}

BOOL WINAPI Write(HANDLE file, LPCVOID from, DWORD count, LPDWORD done, LPOVERLAPPED at) {
  static const auto real = Real(&Write, "WriteFile");
  return Guard(
      Fail, [&] { return real(file, from, count, done, at); },
      [&] { return real(file, from, (count + 1) / 2, done, at); });
}

BOOL WINAPI FlushBuffers(HANDLE file) {
  static const auto real = Real(&FlushBuffers, "FlushFileBuffers");
  return Guard(Fail, [&] { return real(file); });
}

BOOL WINAPI Move(LPCWSTR from, LPCWSTR to, DWORD flags) {
  static const auto real = Real(&Move, "MoveFileExW");
  return Guard(Fail, [&] { return real(from, to, flags); });
}

BOOL WINAPI Close(HANDLE handle) {
  static const auto real = Real(&Close, "CloseHandle");
  const BOOL result = real(handle);
  return Guard(Fail, [&] { return result; });
}

}  // namespace

extern "C" {

decltype(&CreateFileW) __imp_CreateFileW = Create;
decltype(&ReadFile) __imp_ReadFile = Read;
decltype(&WriteFile) __imp_WriteFile = Write;
decltype(&FlushFileBuffers) __imp_FlushFileBuffers = FlushBuffers;
decltype(&MoveFileExW) __imp_MoveFileExW = Move;
decltype(&CloseHandle) __imp_CloseHandle = Close;

}  // extern "C"
