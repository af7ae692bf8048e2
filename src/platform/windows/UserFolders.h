#pragma once

#include <string>
#include <vector>

namespace tarvo {

/// Where the program keeps what belongs to the user, in UTF-8. Nothing is made here. Each is empty
/// when the system knows no folder for such data.

/// The folders that may take the journal of temporary files: %LOCALAPPDATA%\Tarvo Packager\Journal,
/// and the same below the folder for temporary files where that can't be used.
std::vector<std::string> DefaultJournalFolders();

/// The user's own program folder: %LOCALAPPDATA%\Tarvo Packager.
std::string DefaultProgramFolder();

/// Makes a folder, and what is missing of the folders above it. Gives 0, or the code of what kept
/// it from being there.
int MakeFolders(const std::wstring& hostPath);

}  // namespace tarvo
