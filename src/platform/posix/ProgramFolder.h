#pragma once

#include <string>

#include "platform/HostMachine.h"

namespace tarvo {

/// OpenProgramFolder for a program file in the folder `own` and a user whose copy of the installed
/// data lies in `userData`, or who has no place for one when that is empty. Both are paths of the
/// host.
FoundProgramFolder OpenProgramFolderAt(Files& files, const std::string& own,
                                       const std::string& userData);

}  // namespace tarvo
