#pragma once

#include <cstdint>
#include <vector>

#include "platform/Registry.h"
#include "state/Application.h"

namespace tarvo {

/// The settings store's address; the keys are GamePath, PacHelper, SoundFX and VideoFX.
inline constexpr TextView kSettingsApplication = u"Tarvo Packager";
inline constexpr TextView kSettingsSection = u"Settings";

/// The file by which the game's folder is known.
inline constexpr TextView kGameFile = u"stbc.exe";

/// Where the game's folder was found.
enum class GameSource { Nowhere, Settings, Registry };

struct FoundGame {
  Text Folder;  ///< As it stands in its source; empty when there is none.
  GameSource Source = GameSource::Nowhere;
};

/// Looks for the game's folder and stores nothing: the stored folder if it holds stbc.exe, whether
/// a registry key can be opened or not; else the registry's under V1.0, else under V1.1.
FoundGame FindGame(Application& app);

/// The game's folders that all registries of the user name, whether the game is there or not.
std::vector<Text> RegisteredGames(Application& app);

/// Makes the folders Tarvos, ShipTGLs and QBMenus of the program folder where they are missing.
void MakeProgramFolders(Application& app);

/// Sets what of the state doesn't depend on the machine: AppVersion, and ReadChunkSize as it is at
/// the start.
void SetConstants(Application& app);

/// Clears the read-only mark of the game's text databases Ships.TGL and QuickBattle.TGL.
void ClearGameTextsReadOnly(Application& app);

/// From the start of the process until the main menu stands; run again after each Save of the
/// options. Each step is guarded.
void StartUpSequence(Application& app);

/// The value as text: a REG_SZ as it is, a REG_BINARY's first 2 bytes as a signed decimal number;
/// empty when the value isn't there or is of another type. Raises an error when it can't be read.
Text helper_QueryRegStringValue(RegistryKey& key, TextView valueName);

/// The same for a key by its path. Raises an error when the key can't be opened.
Text helper_RegReadString(Application& app, std::uint32_t root, TextView keyPath,
                          TextView valueName);

}  // namespace tarvo
