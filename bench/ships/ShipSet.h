#pragma once

#include <filesystem>

namespace tarvo::bench {

constexpr int kShips = 5000;
constexpr int kShipsOfMenu = 1000;  ///< Under each of the menus with the indexes 1, 2, 3, 5 and 6.

/// Writes a game with kShips enabled ships into `folder`, or leaves the one that stands there from
/// an earlier run: for each ship its plug-in, a ship script and a hardpoint script of 40 KB, and
/// the three model files that the ship script names. The bytes are the same each time.
void MakeShipSet(const std::filesystem::path& folder);

}  // namespace tarvo::bench
