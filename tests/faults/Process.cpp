#include "faults/Process.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>

namespace tarvo::test {
namespace {

constexpr int kMinute = 60'000;

/// A descriptor that no program uses.
constexpr int kInherited = 99;

std::vector<char*> Pointers(const Words& words) {
  std::vector<char*> pointers;
  for (const std::string& word : words) pointers.push_back(const_cast<char*>(word.c_str()));
  pointers.push_back(nullptr);
  return pointers;
}

/// The process gets `open` as a descriptor of its own where it isn't -1.
pid_t Spawn(const Words& words, const Words& environment, const std::string& folder,
            const std::string& output, int open) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, 1, output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  posix_spawn_file_actions_adddup2(&actions, 1, 2);
  if (open != -1) posix_spawn_file_actions_adddup2(&actions, open, kInherited);
  posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());
  pid_t process = 0;
  const int code = posix_spawnp(&process, words[0].c_str(), &actions, nullptr,
                                Pointers(words).data(), Pointers(environment).data());
  posix_spawn_file_actions_destroy(&actions);
  if (code != 0) throw std::runtime_error("can't start " + words[0]);
  return process;
}

/// False when it hasn't ended after a minute.
bool Ends(pid_t process) {
  pollfd end{static_cast<int>(syscall(SYS_pidfd_open, process, 0)), POLLIN, 0};
  if (end.fd == -1) return true;
  const bool ends = poll(&end, 1, kMinute) != 0;
  close(end.fd);
  return ends;
}

/// Gives its exit status, the number of the signal as a negative one, or kHung.
int Wait(pid_t process) {
  const bool hung = !Ends(process);
  if (hung) kill(process, SIGKILL);
  int status = 0;
  waitpid(process, &status, 0);
  if (hung) return kHung;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

}  // namespace

pid_t Start(const Words& words, const Words& environment, const std::string& folder,
            const std::string& output) {
  return Spawn(words, environment, folder, output, -1);
}

int Run(const Words& words, const Words& environment, const std::string& folder,
        const std::string& output) {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("can't make a pipe");
  const pid_t process = Spawn(words, environment, folder, output, ends[1]);
  close(ends[1]);
  const int status = Wait(process);
  pollfd last{ends[0], POLLIN, 0};  // It hangs up with the last process that has the other end.
  const bool hung = poll(&last, 1, kMinute) == 0;
  close(ends[0]);
  return hung ? kHung : status;
}

void WaitForEnd(pid_t process) {
  if (!Ends(process)) throw std::runtime_error("a process in the background hangs");
}

std::string BytesOf(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return {};
  std::string bytes(std::filesystem::file_size(path), '\0');
  const ssize_t count = read(file, bytes.data(), bytes.size());
  close(file);
  if (count != static_cast<ssize_t>(bytes.size())) throw std::runtime_error("can't read " + path);
  return bytes;
}

}  // namespace tarvo::test
