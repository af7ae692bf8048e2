#pragma once

#include <filesystem>

namespace tarvo::bench {

/// Runs the Game Tools over a game of MakeShipSet in this process, with no window, and prints what
/// took how many seconds, "NAME SECONDS" a line. Throws when a list isn't what the game holds.
///
/// `check`: the check of all ships alone, instead of the tabs.
void WorkOnScreen(const std::filesystem::path& game, const std::filesystem::path& program,
                  bool check);

}  // namespace tarvo::bench
