#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/RunProgram.h"
#include "support/TemporaryFolder.h"

namespace tarvo::test {

/// What it prints goes to a file, since programs that outlive it would hold a pipe open.
Ran RunProgram(std::vector<std::string> words) {
  words.insert(words.begin(), {"timeout", "--kill-after=5", "120"});
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  const TemporaryFolder folder;
  folder.Put("output", "");
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, 1, folder.Host("output").c_str(), O_WRONLY, 0);
  posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
  pid_t process = 0;
  const int code = posix_spawnp(&process, "timeout", &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  int status = -1;
  if (code == 0) waitpid(process, &status, 0);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, folder.Get("output")};
}

}  // namespace tarvo::test
