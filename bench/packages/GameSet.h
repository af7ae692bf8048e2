#pragma once

#include <cstdint>
#include <filesystem>

namespace tarvo::bench {

/// How many files of which size a set has.
struct SetSize {
  std::uint64_t SmallFiles;  ///< 5 to 60 KB each.
  std::uint64_t BigFiles;    ///< Evenly spread up to BiggestFile bytes.
  std::uint64_t BiggestFile;
};

/// Writes a game with the files of many add-on ships into `folder`, or leaves the one that stands
/// there from an earlier run. The bytes look like chance and are the same each time.
void MakeGameSet(const std::filesystem::path& folder, const SetSize& size);

/// Bytes of all files below the folder.
std::uint64_t BytesBelow(const std::filesystem::path& folder);

/// Throws unless every file below `expected` stands below `actual` with the same bytes.
void RequireSameFiles(const std::filesystem::path& expected, const std::filesystem::path& actual);

}  // namespace tarvo::bench
