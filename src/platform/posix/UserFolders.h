#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace tarvo {

/// Where the program keeps what belongs to the user, as paths of the host. Nothing is made here.

/// The user's home folder; empty when the system knows none.
std::string HomeFolder();

/// $XDG_STATE_HOME/tarvo-packager, by default ~/.local/state/tarvo-packager; behind it a folder for
/// when that can't be used, which stands when the machine starts anew: /var/tmp/tarvo-packager-UID.
std::vector<std::string> DefaultJournalFolders();

/// $XDG_CONFIG_HOME/tarvo-packager/settings.ini, by default below ~/.config; empty without a home.
std::string DefaultSettingsFile();

/// $XDG_DATA_HOME/tarvo-packager, by default ~/.local/share/tarvo-packager; empty without a home.
std::string DefaultProgramFolder();

/// Makes a folder, and what is missing of the folders above it. Gives false, with errno set, when
/// there is no such folder afterwards.
bool MakeFolders(const std::string& hostPath, mode_t mode);

}  // namespace tarvo
