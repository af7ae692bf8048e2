#pragma once

#include "console/Session.h"
#include "gametools/frmGameTools.h"

namespace tarvo {

/// The Game Tools screen, whose routines the commands run. That the custom menus can't be read is
/// noted only where `needsMenus`: it is no failure of a command that has no use for them.
frmGameTools& OpenGameTools(Session& session, bool needsMenus = false);

}  // namespace tarvo
