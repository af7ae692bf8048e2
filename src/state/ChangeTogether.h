#pragma once

#include <optional>
#include <vector>

#include "state/Application.h"

namespace tarvo {

/// What is to stand at a path; nothing for a file that is to go.
struct FileChange {
  Text Path;
  std::optional<FileText> Bytes;
};

/// Changes several files of the game and of the program folder, all of them or none. While it is at
/// it, a note in the folder \Backup\Unfinished of the program folder holds what is to be written:
/// where the process ends in between, FinishChange completes it.
///
/// Throws PlatformError with all files as they were. Where they couldn't be put back either, that
/// is noted, and the next FinishChange completes the change. To be called with the game locked.
void ChangeTogether(Application& app, const std::vector<FileChange>& changes);

/// Completes a change of this game that was cut short, and tells of it. A file that somebody has
/// changed since stays as it is. What fails is noted, and tried again the next time.
void FinishChange(Application& app);

/// True when a change of this game was cut short. Changes nothing; a failure is noted.
bool HasUnfinishedChange(Application& app);

}  // namespace tarvo
