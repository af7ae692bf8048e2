#pragma once

#include "text/Text.h"
#include "tgl/TGLStrings.h"

namespace tarvo {

/// A ship's own small text database: what the game shows of the ship, kept apart from the game so
/// that it can be edited, packed and merged again. It holds three strings:
///
///   Name               Data                     MediaFilename
///   SHIP               the long name            SHIP.wav
///   SHIP Description   the composed description SHIPDescription.wav
///   QBSHIP             the long name            sfx/QuickBattle/SHIP.mp3
///
/// The composed description is five labelled lines with CR LF between them.

/// What the user fills in.
struct ShipTexts {
  Text LongName{};
  Text Description{};
  Text Weapons = u"N/A";
  Text Shields = u"N/A";
  Text Hull = u"N/A";
  Text Tactics{};

  friend bool operator==(const ShipTexts&, const ShipTexts&) = default;
};

/// The three names that a ship's strings stand under.
Text NameEntry(const Text& ship);
Text DescriptionEntry(const Text& ship);
Text QuickBattleEntry(const Text& ship);

/// "…\ShipTGLs\SHIP.TGL" below the program folder.
Text DefinitionPath(const Text& programFolder, const Text& ship);

/// Adds the three strings of a ship. Raises RaisedError when `ship` can't name both a file and a
/// string: it is blank, is no bare file name, or doesn't fit code page Windows-1252.
void AddDefinition(TGLStrings& strings, const Text& ship, const ShipTexts& texts);

/// The texts of a ship's definition; a missing string counts as one with an empty Data. Raises
/// RaisedError when the description isn't composed of the five parts in their order. A part that
/// holds the label of a later one is cut there, and the parts behind it shift.
ShipTexts TextsOfDefinition(const TGLStrings& strings, const Text& ship);

}  // namespace tarvo
