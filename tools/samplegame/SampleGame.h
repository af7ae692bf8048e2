#pragma once

#include <filesystem>

namespace tarvo {

/// Writes a small game into `folder`: the files by which a game and Foundation are told, and an
/// add-on ship with all that belongs to it. The bytes are the same each time.
void WriteSampleGame(const std::filesystem::path& folder);

/// Writes a game that has nothing but the folders that every game has.
void WriteEmptyGame(const std::filesystem::path& folder);

}  // namespace tarvo
