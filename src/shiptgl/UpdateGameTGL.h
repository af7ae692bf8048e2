#pragma once

#include "state/Application.h"
#include "tgl/TGLStrings.h"

namespace tarvo {

/// The three strings of a ship's definition as the game's databases hold them.
struct GameStrings {
  TGLString Name;         ///< In Ships.TGL.
  TGLString Description;  ///< In Ships.TGL.
  TGLString QuickBattle;  ///< In QuickBattle.TGL, there without the "QB" in front of its name.
};

/// Raises RaisedError when the definition lacks one of them.
GameStrings GameStringsOf(const TGLStrings& definition, const Text& ship);

/// Merges a ship's definition into the game: `\data\TGL\Ships.TGL` first, then
/// `\data\TGL\QuickBattle\QuickBattle.TGL`, each written once, both or none. Strings that the game
/// has of the ship give way to those of the definition; a ship is taken for known when its name
/// stands in Ships.TGL.
///
/// What goes wrong is told in a message, and noted with the file at fault; the result is then
/// false. Where that is a database of the game, a box in front of the message names it. Nothing is
/// written when one of the three files can't be loaded or the definition is incomplete. To be
/// called with the game locked.
bool UpdateGameTGL(Application& app, const Text& ship);

}  // namespace tarvo
