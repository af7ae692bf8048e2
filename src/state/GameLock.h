#pragma once

#include <functional>

#include "state/Application.h"

namespace tarvo {

/// Runs a command that changes the game or the program folder, with no other program changing them
/// from its first read to its last write. `command` is what other programs are told meanwhile. A
/// command that runs inside of another one has its lock.
///
/// Where another program is at work this waits for it up to 10 s, saying so, and then tells the
/// user and notes that nothing was done: false. A change that was cut short is completed first. A
/// folder that can't hold a lock (it is read-only, or its file system knows none) keeps nobody from
/// his work: that is told once.
bool LockingGame(Application& app, TextView command, const std::function<void()>& run);

}  // namespace tarvo
