// Times the Game Tools on a game with 5,000 ships, by turns with programs that look for the same
// words in the same files.

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "../Measure.h"
#include "ScreenWork.h"
#include "ShipSet.h"

namespace tarvo::bench {

namespace {

namespace fs = std::filesystem;

constexpr double kWeaponsBound = 1.7;
constexpr double kCheckBound = 0.5;
constexpr double kTabSeconds = 2;
constexpr double kMenuSeconds = 0.15;

struct Options {
  std::string Self;
  fs::path Tarvo;
  fs::path Folder;
  int Runs = 7;
};

/// The folders and files of one comparison.
struct Places {
  explicit Places(const Options& options)
      : Game(options.Folder / "game"),
        Program(options.Folder / "program"),
        Output(options.Folder / "output") {}

  fs::path Game, Program, Output;
};

/// Seconds of all rounds, by what took them.
using Series = std::map<std::string, std::vector<double>>;

/// The output goes to a file: grep looks for the first match alone when it is dropped.
double Time(const Places& at, const std::vector<std::string>& command) {
  return Run(command, at.Output.string()).Seconds;
}

void TimeWeapons(const Options& options, const Places& at, Series& all) {
  all["weapons"].push_back(
      Time(at, {options.Tarvo, "--quiet", "--game", at.Game, "--program", at.Program, "weapons"}));
}

void TimeGrep(const Places& at, Series& all) {
  all["grep"].push_back(Time(at, {"grep", "-rhoF", "-e", "SetFireSound", "-e",
                                  "Tactical.Projectiles.", at.Game / "scripts/ships/Hardpoints"}));
}

void TimeRipgrep(const Places& at, Series& all) {
  all["rg"].push_back(
      Time(at, {"rg", "-o", "-j1", "--max-depth", "1", "-e", "\"FilenameHigh\": \"", "-e",
                "\"FilenameMed\": \"", "-e", "\"FilenameLow\": \"", "-e", "\"Name\": \"", "-e",
                "\"HardpointFile\": \"", at.Game / "scripts/ships"}));
}

/// What the screen takes in a process of its own: `part` is "--check" or "--tabs".
void TimeScreen(const char* part, const Options& options, const Places& at, Series& all) {
  Run({options.Self, part, at.Game, at.Program}, at.Output.string());
  std::ifstream output(at.Output);
  std::string name;
  double seconds = 0;
  while (output >> name >> seconds) all["screen: " + name].push_back(seconds);
}

/// One round; which of a pair begins changes from round to round.
void Round(const Options& options, const Places& at, bool peerFirst, Series& all) {
  if (peerFirst) TimeGrep(at, all);
  TimeWeapons(options, at, all);
  if (!peerFirst) TimeGrep(at, all);
  if (peerFirst) TimeRipgrep(at, all);
  TimeScreen("--check", options, at, all);
  if (!peerFirst) TimeRipgrep(at, all);
  TimeScreen("--tabs", options, at, all);
}

bool Holds(const char* what, double value, double bound) {
  const bool holds = value <= bound;
  std::printf("%-34s %8.3f  (at most %.2f)%s\n", what, value, bound, holds ? "" : "  BROKEN");
  return holds;
}

bool Report(Series& all) {
  std::map<std::string, double> medians;
  for (const auto& [name, seconds] : all) {
    medians[name] = Median(seconds);
    std::printf("%-34s %8.3f s\n", name.c_str(), medians[name]);
  }
  bool holds = Holds("weapons / grep", medians["weapons"] / medians["grep"], kWeaponsBound);
  holds &= Holds("check / rg", medians["screen: check"] / medians["rg"], kCheckBound);
  holds &= Holds("opening the Menus tab, s", medians["screen: tab"], kTabSeconds);
  holds &= Holds("opening a menu of 1,000 ships, s", medians["screen: menu"], kMenuSeconds);
  return holds;
}

bool Compare(const Options& options) {
  const Places at(options);
  fs::create_directories(at.Program);
  MakeShipSet(at.Game);
  Series all;
  for (int run = 0; run < options.Runs; ++run) Round(options, at, run % 2 != 0, all);
  std::printf("%d ships; medians of %d\n", kShips, options.Runs);
  fs::remove(at.Output);
  return Report(all);
}

Options Parse(int count, char** arguments) {
  Options options;
  options.Self = fs::canonical("/proc/self/exe");
  for (int i = 1; i < count; ++i) {
    const std::string word = arguments[i];
    if (word == "--runs" && i + 1 < count) {
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

int Main(int count, char** arguments) {
  const std::string first = count > 1 ? arguments[1] : "";
  if (count == 4 && (first == "--check" || first == "--tabs")) {
    WorkOnScreen(arguments[2], arguments[3], first == "--check");
    return 0;
  }
  return Compare(Parse(count, arguments)) ? 0 : 1;
}

}  // namespace

}  // namespace tarvo::bench

int main(int count, char** arguments) {
  try {
    return tarvo::bench::Main(count, arguments);
  } catch (const std::invalid_argument&) {
    std::fputs("Usage: bench_ships TARVO FOLDER [--runs N]\n", stderr);
    return 2;
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "bench_ships: %s\n", failure.what());
    return 1;
  }
}
