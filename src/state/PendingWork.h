#pragma once

#include <vector>

#include "state/Application.h"

namespace tarvo {

/// Commands that write a lot don't wait for the disk with each file, but once, when all is written.
/// Until then a note in the folder \Backup\Unfinished of the program folder names the work, so that
/// the next start knows what a power cut may have taken. Notes belong to the game that was open.

enum class WorkKind { Install, Package };

/// Makes the note, which is on the disk when this returns and takes the place of one on the same
/// work. Gives its path; empty where the program folder can't hold one. Throws PlatformError. To be
/// called with the game locked, as EndWork and DropWork are.
Text BeginWork(Application& app, WorkKind kind, const Text& package);

/// All is written. Brings it to the disk and drops the note, or leaves both to BringToDisk where
/// the application may do that later. Throws PlatformError.
void EndWork(Application& app, const Text& note);

/// Nothing has changed.
void DropWork(Application& app, const Text& note);

/// True when written work waits for BringToDisk.
bool HasWrittenWork(Application& app);

/// Returns when the written work of this run of the computer is on the disk. It needs no lock on
/// the game; where another program is at it already, this leaves it to that one.
void BringToDisk(Application& app);

/// Packages whose work has not come to its end, because the program or the computer died.
struct UnfinishedWork {
  std::vector<Text> Installs;  ///< Not all of their files are in the game.
  std::vector<Text> Packages;  ///< They may not be whole.
};

/// To be called with the game locked: what another program is at isn't unfinished. A failure is
/// noted.
UnfinishedWork FindUnfinishedWork(Application& app);

/// The user has been told of them.
void ForgetUnfinishedWork(Application& app);

}  // namespace tarvo
