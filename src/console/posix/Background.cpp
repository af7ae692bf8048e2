#include "console/Background.h"

#include <fcntl.h>
#include <unistd.h>

#include <initializer_list>

namespace tarvo {
namespace {

/// A pipe that stays open would have its reader wait for the end of the work.
void LeaveTerminal() {
  setsid();
  const int nowhere = open("/dev/null", O_RDWR);
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(nowhere, stream);
}

}  // namespace

/// The one that goes on has all that this one held, its journal of temporaries among it.
void GoOnInBackground(int status) {
  const pid_t child = fork();
  if (child > 0) _exit(status);
  if (child == 0) LeaveTerminal();
}

}  // namespace tarvo
