// Times the making and installing of packages against tar, on one large set of files.

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "../Measure.h"
#include "GameSet.h"

namespace tarvo::bench {

namespace {

namespace fs = std::filesystem;

constexpr double kRatioBound = 1.3;
constexpr long kPeakBoundKib = 32 * 1024;

struct Options {
  fs::path Tarvo;
  fs::path Folder;
  int Runs = 7;
  bool Huge = false;
};

/// The folders of one comparison.
struct Places {
  explicit Places(const Options& options)
      : Set(options.Folder / (options.Huge ? "huge" : "set")),
        Program(options.Folder / "program"),
        Package(Program / "Tarvos" / "Bench.Tarvo"),
        Archive(options.Folder / "bench.tar"),
        Installed(options.Folder / "installed"),
        Unpacked(options.Folder / "unpacked") {}

  fs::path Set, Program, Package, Archive, Installed, Unpacked;
};

/// What one of the four commands took over all runs.
struct Series {
  std::vector<double> Seconds;
  long PeakKib = 0;

  void Add(const RunResult& result) {
    Seconds.push_back(result.Seconds);
    PeakKib = std::max(PeakKib, result.PeakKib);
  }
};

struct Comparison {
  Series Pack, TarCreate, Install, TarExtract;
};

/// Runs the command with what earlier ones wrote already on the disk.
RunResult RunInQuiet(const std::vector<std::string>& command) {
  sync();
  return Run(command);
}

RunResult Pack(const Options& options, const Places& at) {
  fs::remove(at.Package);
  return RunInQuiet({options.Tarvo, "--quiet", "--game", at.Set, "--program", at.Program, "pack",
                     "Bench", "data", "scripts", "sfx"});
}

RunResult Install(const Options& options, const Places& at) {
  fs::remove_all(at.Installed);
  fs::create_directories(at.Installed);
  fs::copy_file(at.Set / "stbc.exe", at.Installed / "stbc.exe");
  return RunInQuiet({options.Tarvo, "--quiet", "--game", at.Installed, "--program", at.Program,
                     "install", "Bench"});
}

RunResult TarCreate(const Places& at) {
  fs::remove(at.Archive);
  return RunInQuiet({"tar", "-cf", at.Archive, "-C", at.Set, "data", "scripts", "sfx"});
}

RunResult TarExtract(const Places& at) {
  fs::remove_all(at.Unpacked);
  fs::create_directories(at.Unpacked);
  return RunInQuiet({"tar", "-xf", at.Archive, "-C", at.Unpacked});
}

/// One round of all four, tar first in every other round.
void Round(const Options& options, const Places& at, bool tarFirst, Comparison& all) {
  if (tarFirst) all.TarCreate.Add(TarCreate(at));
  all.Pack.Add(Pack(options, at));
  if (!tarFirst) all.TarCreate.Add(TarCreate(at));
  if (tarFirst) all.TarExtract.Add(TarExtract(at));
  all.Install.Add(Install(options, at));
  if (!tarFirst) all.TarExtract.Add(TarExtract(at));
}

/// Prints one pair; gives true when the bounds hold.
bool Report(const char* name, const Series& ours, const Series& peer, const Options& options) {
  const double mine = Median(ours.Seconds);
  const double theirs = Median(peer.Seconds);
  const double ratio = mine / theirs;
  // A huge set is there for the memory alone: one run says little about time.
  const bool quick = options.Huge || ratio <= kRatioBound;
  const bool small = ours.PeakKib <= kPeakBoundKib;
  std::printf("%-8s %8.3f s %8.3f s %7.2f %7.2f %9.1f MiB %9.1f MiB  %s\n", name, mine, theirs,
              ratio, kRatioBound, static_cast<double>(ours.PeakKib) / 1024,
              static_cast<double>(peer.PeakKib) / 1024, quick && small ? "ok" : "BROKEN");
  return quick && small;
}

bool Compare(const Options& options) {
  const Places at(options);
  fs::create_directories(at.Program / "Tarvos");
  MakeGameSet(at.Set, options.Huge ? SetSize{40, 40, 205'000'000} : SetSize{1920, 80, 8'388'608});
  std::printf("%.0f MB; medians of %d; memory may be %ld MiB\n",
              static_cast<double>(BytesBelow(at.Set)) / 1e6, options.Runs, kPeakBoundKib / 1024);
  Comparison all;
  for (int run = 0; run < options.Runs; ++run) {
    Round(options, at, run % 2 != 0, all);
    if (run == 0) RequireSameFiles(at.Set, at.Installed);
  }
  std::printf("%-8s %10s %10s %7s %7s %13s %13s\n", "", "tarvo", "tar", "ratio", "bound",
              "tarvo peak", "tar peak");
  const bool packed = Report("pack", all.Pack, all.TarCreate, options);
  const bool installed = Report("install", all.Install, all.TarExtract, options);
  for (const fs::path& output : {at.Installed, at.Unpacked, at.Package, at.Archive}) {
    fs::remove_all(output);
  }
  return packed && installed;
}

Options Parse(int count, char** arguments) {
  Options options;
  for (int i = 1; i < count; ++i) {
    const std::string word = arguments[i];
    if (word == "--huge") {
      options.Huge = true;
      options.Runs = 1;
    } else if (word == "--runs" && i + 1 < count) {
      options.Runs = std::atoi(arguments[++i]);
    } else if (options.Tarvo.empty()) {
      options.Tarvo = fs::absolute(word);
    } else if (options.Folder.empty()) {
      options.Folder = fs::absolute(word);
    } else {
      throw std::invalid_argument(word);
    }
  }
  if (options.Folder.empty() || options.Runs < 1) throw std::invalid_argument("too little");
  return options;
}

}  // namespace

}  // namespace tarvo::bench

int main(int count, char** arguments) {
  tarvo::bench::Options options;
  try {
    options = tarvo::bench::Parse(count, arguments);
  } catch (const std::invalid_argument&) {
    std::fputs("Usage: bench_packages TARVO FOLDER [--runs N] [--huge]\n", stderr);
    return 2;
  }
  try {
    return tarvo::bench::Compare(options) ? 0 : 1;
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "bench_packages: %s\n", failure.what());
    return 1;
  }
}
