#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "text/Text.h"

namespace tarvo {

/// The note of a change of several files that is under way: what stood before, and what is to come.

struct NotedFile {
  Text Path;                            ///< A whole game path.
  std::optional<std::uint64_t> Before;  ///< HashOf the bytes that stood there; nothing for no file.
  std::optional<FileText> After;        ///< What is to stand there; nothing for no file.
};

/// A line "tarvo change 1", and for each file the lines "path …" (in UTF-8), "before HASH" or
/// "before none", and "after BYTES" with the bytes and a line end behind it, or "after none"; at
/// the end the line "end HASH" with the hash of all that stands before it. Hashes are 16
/// hexadecimal digits, all lines end in LF.
FileText NoteText(const std::vector<NotedFile>& files);

/// Nothing for a text that isn't whole.
std::optional<std::vector<NotedFile>> ParseNote(const FileText& text);

}  // namespace tarvo
