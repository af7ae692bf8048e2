// Times a program from its start to the first picture of its window, against the least that a Qt
// program can be; then watches it stand idle.
//
// The screen's ground gets a colour that neither program paints, and the pixel in the middle of the
// screen is read over and over until it has another: both programs open in the middle. To be run
// on a screen of its own, with no window manager (see ./firstpaint).

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "../Measure.h"

namespace tarvo::bench {

namespace {

using Steady = std::chrono::steady_clock;

constexpr double kRatioBound = 2.5;
constexpr long kGrowthBoundKib = 1024;
constexpr unsigned long kGround = 0xFF00FF;
constexpr std::chrono::seconds kPatience{20};

/// The screen, seen from outside of the programs.
class ScreenView {
 public:
  ScreenView() : display_(XOpenDisplay(nullptr)) {
    if (!display_) throw std::runtime_error("there is no X screen");
    const int screen = DefaultScreen(display_);
    x_ = DisplayWidth(display_, screen) / 2;
    y_ = DisplayHeight(display_, screen) / 2;
    XSetWindowBackground(display_, DefaultRootWindow(display_), kGround);
  }
  ~ScreenView() { XCloseDisplay(display_); }
  ScreenView(const ScreenView&) = delete;
  ScreenView& operator=(const ScreenView&) = delete;

  bool Empty() const {
    XImage* image =
        XGetImage(display_, DefaultRootWindow(display_), x_, y_, 1, 1, AllPlanes, ZPixmap);
    if (!image) throw std::runtime_error("the screen can't be read");
    const unsigned long pixel = XGetPixel(image, 0, 0) & 0xFFFFFF;
    XDestroyImage(image);
    return pixel == kGround;
  }

  void AwaitEmpty() const {
    const auto end = Steady::now() + kPatience;
    while (true) {
      XClearWindow(display_, DefaultRootWindow(display_));
      if (Empty()) return;
      if (Steady::now() > end) throw std::runtime_error("something covers the screen");
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
  }

 private:
  Display* display_;
  int x_ = 0;
  int y_ = 0;
};

/// A running program, ended with the object.
class Program {
 public:
  explicit Program(const std::string& path) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    char* const arguments[] = {const_cast<char*>(path.c_str()), nullptr};
    const int failure = posix_spawn(&id_, path.c_str(), &actions, nullptr, arguments, environ);
    posix_spawn_file_actions_destroy(&actions);
    if (failure != 0) throw std::runtime_error("can't start " + path);
  }
  ~Program() {
    kill(id_, SIGTERM);
    waitpid(id_, nullptr, 0);
  }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  bool Running() const {
    siginfo_t info{};
    return waitid(P_PID, static_cast<id_t>(id_), &info, WEXITED | WNOHANG | WNOWAIT) == 0 &&
           info.si_pid == 0;
  }

  /// Processor time of all its threads so far, user and system.
  double CpuSeconds() const {
    clockid_t clock{};
    timespec time{};
    if (clock_getcpuclockid(id_, &clock) != 0 || clock_gettime(clock, &time) != 0) {
      throw std::runtime_error("the program's time can't be read");
    }
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
  }

  long ResidentKib() const {
    std::ifstream file("/proc/" + std::to_string(id_) + "/statm");
    long all = 0;
    long resident = 0;
    if (!(file >> all >> resident)) throw std::runtime_error("the program's memory can't be read");
    return resident * (sysconf(_SC_PAGESIZE) / 1024);
  }

 private:
  pid_t id_ = 0;
};

double MillisecondsToPaint(const ScreenView& screen, const std::string& path) {
  screen.AwaitEmpty();
  const auto began = Steady::now();
  const Program program(path);
  while (screen.Empty()) {
    if (!program.Running()) throw std::runtime_error(path + " ended before it painted");
    if (Steady::now() - began > kPatience) throw std::runtime_error(path + " doesn't paint");
    std::this_thread::sleep_for(std::chrono::microseconds(200));
  }
  return std::chrono::duration<double, std::milli>(Steady::now() - began).count();
}

bool CompareFirstPaint(const ScreenView& screen, const std::string& bare, const std::string& real,
                       int runs) {
  std::vector<double> bareTimes;
  std::vector<double> realTimes;
  MillisecondsToPaint(screen, bare);  // The libraries come off the disk once.
  MillisecondsToPaint(screen, real);
  for (int run = 0; run < runs; ++run) {
    bareTimes.push_back(MillisecondsToPaint(screen, bare));
    realTimes.push_back(MillisecondsToPaint(screen, real));
  }
  const double ratio = Median(realTimes) / Median(bareTimes);
  const bool held = ratio <= kRatioBound;
  std::printf("first paint  bare %.1f ms  program %.1f ms  ratio %.2f  bound %.2f  %s\n",
              Median(bareTimes), Median(realTimes), ratio, kRatioBound, held ? "ok" : "BROKEN");
  return held;
}

bool WatchIdle(const ScreenView& screen, const std::string& real, int seconds, double bound) {
  screen.AwaitEmpty();
  const Program program(real);
  std::this_thread::sleep_for(std::chrono::seconds(5));  // The menu slides open, sounds load.
  const double cpu = program.CpuSeconds();
  const long memory = program.ResidentKib();
  std::this_thread::sleep_for(std::chrono::seconds(seconds));
  const double percent = (program.CpuSeconds() - cpu) / seconds * 100;
  const long growth = program.ResidentKib() - memory;
  const bool held = percent <= bound && growth < kGrowthBoundKib;
  std::printf(
      "idle %d s    processor %.3f %%  bound %.1f %%  memory %ld KiB, grown by %ld KiB  %s\n",
      seconds, percent, bound, memory, growth, held ? "ok" : "BROKEN");
  return held;
}

}  // namespace

}  // namespace tarvo::bench

int main(int count, char** arguments) {
  using namespace tarvo::bench;
  if (count < 3 || count > 6) {
    std::fputs("Usage: bench_firstpaint BARE PROGRAM [RUNS [IDLE-SECONDS [IDLE-PERCENT]]]\n",
               stderr);
    return 2;
  }
  try {
    const ScreenView screen;
    const int runs = count > 3 ? std::atoi(arguments[3]) : 15;
    const int seconds = count > 4 ? std::atoi(arguments[4]) : 20;
    const double bound = count > 5 ? std::atof(arguments[5]) : 0.2;
    const bool quick = CompareFirstPaint(screen, arguments[1], arguments[2], runs > 0 ? runs : 1);
    const bool calm = WatchIdle(screen, arguments[2], seconds > 0 ? seconds : 1, bound);
    return quick && calm ? 0 : 1;
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "bench_firstpaint: %s\n", failure.what());
    return 1;
  }
}
