#pragma once

#include "state/Application.h"

namespace tarvo {

/// The care of Foundation, the game's script system, which all that we bring into the game needs.

/// Where the game lacks Foundation, offers to install it; when the user declines, or no game is
/// known, opens the options so that he picks another game.
void TestFoundation(Application& app);

/// Copies the folders below \Foundation of the program folder over those of the game. Scripts of
/// Foundation lose their read-only mark, and their compiled form where a script stands or comes. A
/// file that can't be copied is noted; the next start then offers it all again. With no folder to
/// copy, or no game, nothing changes, and that is noted.
void InstallFoundation(Application& app);

/// Upgrades a game that has the old layout of plug-ins, or whose upgrade was cut short.
void TestOldLayout(Application& app);

/// Moves the plug-ins of the old layout to where Foundation looks for them now, and removes the old
/// folders. What isn't moved, and what would be overwritten with something else, is kept below
/// \Backup\Old layout of the program folder. A failure ends it and is noted: nothing is lost, and
/// the next start goes on.
void UpgradeOldLayout(Application& app);

}  // namespace tarvo
