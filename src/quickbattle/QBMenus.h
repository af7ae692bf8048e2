#pragma once

#include <array>

#include "text/Text.h"

namespace tarvo {

/// The Quick Battle menus of the game. A menu's index counts from 0: the built-in menus have 0 to
/// 7, the custom ones follow in the order of their file.
inline constexpr std::array<TextView, 8> kBuiltInQBMenus = {
    u"Federation Ships", u"Klingon Ships", u"Romulan Ships", u"Ferengi Ships",
    u"Cardassian Ships", u"Kessok Ships",  u"Other Ships",   u"Bases"};

inline constexpr int kFirstCustomMenu = static_cast<int>(kBuiltInQBMenus.size());

/// The text by which ship plug-ins name the menu of that caption.
Text QBMenuSearchText(TextView caption);

/// True when the menu's search text occurs anywhere in the ship plug-in. A ship can be in several
/// menus. No ship is in a menu without a caption.
bool PluginIsInMenu(FileTextView plugin, TextView caption);

/// The group line of a ship plug-in: its first field that begins with "menuGroup"; empty when it
/// has none. The menu that it names is the one that the ship is moved from.
FileTextView GroupLine(FileTextView plugin);

}  // namespace tarvo
