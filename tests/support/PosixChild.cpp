#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <stdexcept>

#include "support/Child.h"

namespace tarvo::test {

struct Child::Process {
  pid_t Number = -1;
  int Pipe = -1;
};

Child::Child(const std::string& part, const std::string& argument)
    : process_(std::make_unique<Process>()) {
  int ends[2];
  if (pipe(ends) != 0) throw std::runtime_error("no pipe");
  process_->Pipe = ends[0];
  process_->Number = fork();
  if (process_->Number == 0) {
    close(ends[0]);
    setenv(kChildPart, part.c_str(), 1);
    setenv(kChildArgument, argument.c_str(), 1);
    setenv(kChildPipe, std::to_string(ends[1]).c_str(), 1);
    execl("/proc/self/exe", "child", nullptr);
    _exit(101);
  }
  close(ends[1]);
}

Child::~Child() {
  Kill();
  Wait();
  close(process_->Pipe);
}

bool Child::WaitUntilReady() {
  char byte;
  return read(process_->Pipe, &byte, 1) == 1;
}

void Child::Kill() {
  if (process_->Number > 0) kill(process_->Number, SIGKILL);
}

int Child::Wait() {
  int status = 0;
  if (process_->Number <= 0 || waitpid(process_->Number, &status, 0) < 0) return -1;
  process_->Number = -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

void KillThisProcess() {
  kill(getpid(), SIGKILL);
  std::abort();
}

std::string ChildOrder(const char* name) {
  const char* const order = std::getenv(name);
  return order ? order : "";
}

void SayReady() {
  if (write(std::stoi(ChildOrder(kChildPipe)), "!", 1) != 1) _exit(102);
}

}  // namespace tarvo::test
