// Times the TGL library against gettext on the same 50,000 entries, each run a process of its own,
// all kinds in turn so that a busy machine slows them alike. Exits with 1 when a bound is broken.

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

extern char** environ;

namespace {

using Words = std::vector<std::string>;

constexpr int kEntries = 50000;

struct Job {
  const char* Name;
  Words Command;
  std::vector<double> Milliseconds = {};
  long PeakKilobytes = 0;

  double Median() {
    const auto middle = Milliseconds.begin() + static_cast<std::ptrdiff_t>(Milliseconds.size() / 2);
    std::nth_element(Milliseconds.begin(), middle, Milliseconds.end());
    return *middle;
  }
};

/// Names, descriptions of all lengths and wave files, as ship packs have them.
void MakeEntries(const char* path) {
  const Words words = {"Galaxy", "class",     "starship", "phaser",  "torpedoes", "shields",
                       "warp",   "Starfleet", "heavy",    "cruiser", "Klingon",   "hull"};
  std::mt19937 random(5889);
  std::ofstream out(path);
  out << "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n\n";
  for (int i = 0; i < kEntries; ++i) {
    const std::string name = "Ship " + std::to_string(10 * i + 7);
    out << "#. sfx/" << name << ".wav\nmsgid \"" << name << (i % 2 ? " Description" : "")
        << "\"\nmsgstr \"";
    for (unsigned left = 1 + random() % (i % 2 ? 40 : 4); left > 0; --left) {
      out << words[random() % words.size()] << (left % 9 ? " " : "\\n");
    }
    out << "\xE2\x80\xA6\"\n\n";
  }
}

/// Runs a command to its end, its output dropped; false when it fails.
bool RunOnce(Job& job) {
  std::vector<char*> arguments;
  for (std::string& word : job.Command) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
  const auto start = std::chrono::steady_clock::now();
  pid_t child = 0;
  int status = posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  rusage usage = {};
  const bool ran = status == 0 && wait4(child, &status, 0, &usage) == child && status == 0;
  const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
  if (!ran) std::fprintf(stderr, "%s failed\n", job.Name);
  job.Milliseconds.push_back(time.count());
  job.PeakKilobytes = std::max(job.PeakKilobytes, usage.ru_maxrss);
  return ran;
}

bool Holds(const char* what, double ratio, double bound) {
  std::printf("%-42s %6.3f  (at most %.2f)%s\n", what, ratio, bound,
              ratio <= bound ? "" : "  BROKEN");
  return ratio <= bound;
}

bool Report(std::vector<Job>& jobs, double fileBytes) {
  for (Job& job : jobs) {
    const auto [least, most] =
        std::minmax_element(job.Milliseconds.begin(), job.Milliseconds.end());
    const double least_ = *least;
    const double most_ = *most;
    std::printf("%-20s median %7.1f ms, %7.1f to %7.1f, peak %6.1f MB\n", job.Name, job.Median(),
                least_, most_, static_cast<double>(job.PeakKilobytes) / 1024);
  }
  const double format = jobs[0].Median();
  const double unformat = jobs[2].Median();
  bool holds = Holds("compile / msgfmt", jobs[1].Median() / format, 0.5);
  holds &= Holds("load / msgunfmt", jobs[3].Median() / unformat, 0.15);
  holds &= Holds("load, edit, save / msgfmt", jobs[4].Median() / format, 0.35);
  for (const std::size_t own : {1u, 3u, 4u}) {
    const std::string what = std::string("peak memory / file, ") + jobs[own].Name;
    const double peak = static_cast<double>(jobs[own].PeakKilobytes) * 1024;
    holds &= Holds(what.c_str(), peak / fileBytes, 6);
  }
  return holds;
}

}  // namespace

int main(int count, char** arguments) {
  const int rounds = count > 1 ? std::atoi(arguments[1]) : 15;
  if (rounds < 1) {
    std::fprintf(stderr, "tgl_bench [ROUNDS]\n");
    return 2;
  }
  const std::string work = std::filesystem::canonical(arguments[0]).replace_filename("tgl_work");
  const std::filesystem::path start = std::filesystem::current_path();
  std::filesystem::create_directories("tgl_bench_files");
  std::filesystem::current_path("tgl_bench_files");
  MakeEntries("entries.po");
  std::vector<Job> jobs = {
      {"msgfmt", {"msgfmt", "-o", "entries.mo", "entries.po"}},
      {"tgl compile", {work, "compile", "entries.po", "entries.TGL"}},
      {"msgunfmt", {"msgunfmt", "-o", "again.po", "entries.mo"}},
      {"tgl load", {work, "load", "entries.TGL"}},
      {"tgl load-edit-save", {work, "edit", "entries.TGL"}},
  };
  for (int round = 0; round < rounds; ++round) {
    // Both compilers make a new file; what it costs to replace one safely shows in the last job.
    std::filesystem::remove("entries.mo");
    std::filesystem::remove("entries.TGL");
    for (Job& job : jobs) {
      if (!RunOnce(job)) return 1;
    }
  }
  const auto bytes = static_cast<double>(std::filesystem::file_size("entries.TGL"));
  std::printf("%d entries, %d rounds, TGL file of %.1f MB\n", kEntries, rounds, bytes / 1048576);
  const bool holds = Report(jobs, bytes);
  std::filesystem::current_path(start);
  std::filesystem::remove_all("tgl_bench_files");
  return holds ? 0 : 1;
}
