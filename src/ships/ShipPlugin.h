#pragma once

#include <vector>

#include "text/WholeText.h"

namespace tarvo {

/// A ship plug-in: the script in scripts\Custom\Ships that makes one ship known to the game and
/// puts it into a Quick Battle menu. docs/formats.md tells the whole text.
struct ShipPlugin {
  Text Ship;  ///< Name of the file, and a name in Python.
  Text Icon;
  Text Menu;  ///< As plug-ins spell it: see MenuInPlugin.
  Text ModName;
  Text Author;
  Text Version;
  Text Sources;
  Text Comments;

  friend bool operator==(const ShipPlugin&, const ShipPlugin&) = default;
};

/// Two menus have a shorter name in plug-ins: "Fed Ships" and "Card Ships". All others are the same
/// there and on the screen.
Text MenuInPlugin(TextView shown);
Text MenuOnScreen(TextView inPlugin);

/// The word that picks the ship's class in the plug-in, "Fed" for FedShipDef; empty for the plain
/// ShipDef. `menu` is spelled as in a plug-in. A menu of the user's own has no class: it is told by
/// `isCustomMenu`, or by `customMenus` when its name lacks the ending " Ships".
Text RaceWord(TextView menu, bool isCustomMenu, const std::vector<Text>& customMenus);

/// The plug-in's text. Values stand in it as they are: an apostrophe in one breaks the script.
FileText ShipPluginText(const ShipPlugin& plugin, TextView raceWord, TextView shortDate);

/// The values of a plug-in's text, all but Ship. A value that isn't there in the form in which
/// ShipPluginText writes it is empty; one that holds an apostrophe ends there. No value holds a
/// control character.
ShipPlugin ReadShipPlugin(FileTextView text);

/// The script of a ship, made from a template that is the script of the ship "Galaxy".
FileText ShipScriptText(const WholeText& pattern, TextView ship);

}  // namespace tarvo
