#pragma once

#include <vector>

#include "state/Application.h"

namespace tarvo {

/// True when the folder holds the game's program.
bool HoldsGame(Application& app, const Text& folder);

/// The folders of all games that can be found without the user: those in every registry, then those
/// at most three folders below a drive of these registries' programs, each once.
std::vector<Text> KnownGames(Application& app);

/// The folder that a typed or pasted line means, as a game path: a path of the game or of the host,
/// "~" for the home folder, an address "file://", quotes around it, and the path of the game's
/// program. Any other text stays as it is.
Text FolderOfLine(Application& app, TextView line);

}  // namespace tarvo
