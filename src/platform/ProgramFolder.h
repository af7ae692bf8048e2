#pragma once

#include "platform/HostMachine.h"

namespace tarvo {

/// The folders that may serve as the program folder, as game paths; empty for one that there isn't.
struct ProgramPlaces {
  Text Own;        ///< Where the program's own file lies.
  Text Installed;  ///< Where the data of an installed program lies.
  Text User;       ///< The user's own copy of it.
};

/// OpenProgramFolder for those places.
FoundProgramFolder OpenProgramFolderAt(Files& files, const ProgramPlaces& places);

/// What the decision asks of the system: whether this process may make files in a folder.
bool CanWriteIn(TextView folder);

/// Makes a folder for the user alone, and what is missing of the folders above it. Gives 0, or the
/// code of what kept it from being there.
int MakeUserFolder(TextView folder);

}  // namespace tarvo
