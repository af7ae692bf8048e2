#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/windows/Handle.h"

namespace tarvo {

/// What stands at a path.
struct FileState {
  DWORD Attributes = 0;
  std::uint64_t Size = 0;    ///< Bytes.
  std::int64_t Changed = 0;  ///< Time of the last writing: nanoseconds since 1970 in UTC.

  bool IsFolder() const { return (Attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }
  bool IsReadOnly() const { return (Attributes & FILE_ATTRIBUTE_READONLY) != 0; }
};

/// Links are followed. Nothing, with the last error set, where nothing stands or can be looked at.
std::optional<FileState> StateOf(const std::wstring& hostPath);

/// True for a link of a file or folder, by its own attributes.
bool IsLink(const std::wstring& hostPath);

/// A handle to look at a file or folder with, where a link leads; not open, with the last error
/// set, when that can't be.
Handle OpenToLook(const std::wstring& hostPath);

/// The path of an open file or folder as the disk has it, with the prefix; empty, with the last
/// error set, when the system can't tell.
std::wstring FinalPath(const Handle& file);

}  // namespace tarvo
