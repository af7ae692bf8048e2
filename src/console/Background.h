#pragma once

namespace tarvo {

/// Goes on where nobody waits for it: for its caller the program ends with `status`, and in the
/// process that returns from this nothing of the terminal is left. Where the system has no such
/// thing this does nothing.
void GoOnInBackground(int status);

}  // namespace tarvo
