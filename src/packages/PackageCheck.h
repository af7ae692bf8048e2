#pragma once

#include <cstdint>
#include <vector>

#include "text/Text.h"

namespace tarvo {

class FileReader;

/// What a read of a whole package found.
struct PackageReport {
  std::size_t Entries = 0;
  std::uint64_t Bytes = 0;     ///< Of all bodies together.
  std::vector<Text> Findings;  ///< What is not in order, one line each; empty for a good package.
};

/// Reads a package through: every body is there, every path safe, nothing behind the last marker.
/// Throws PlatformError when it can't be read.
PackageReport CheckPackage(FileReader& package);

}  // namespace tarvo
