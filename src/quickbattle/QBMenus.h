#pragma once

#include "text/Text.h"

namespace tarvo {

/// The name under which plug-ins know the menu of this caption.
Text QBMenuSearchText(TextView caption);

/// True when the plug-in's text names the menu anywhere, letter case told apart. A menu without a
/// caption has no ships.
bool PluginIsInMenu(FileTextView plugin, TextView caption);

}  // namespace tarvo
