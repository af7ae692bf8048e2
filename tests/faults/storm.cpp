// Merges many ship definitions into one game, several of them at once, and reads both of the game's
// databases back.

#include <sys/wait.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <map>
#include <set>
#include <sstream>

#include "SampleGame.h"
#include "faults/Process.h"
#include "support/TemporaryFolder.h"

namespace tarvo::test {
namespace {

namespace fs = std::filesystem;

struct Options {
  int Runs = 1;
  int Definitions = 200;
  std::vector<int> Runners = {1, 2, 4};
  Words Tools = {
      TARVO_TOOL};  ///< A command for each runner. The last one goes for those behind it.
  Words Programs;   ///< The program folders likewise.
  std::string Below = kUsualPlace;
};

/// A path as the tools of all systems take it.
std::string GamePath(const fs::path& path) {
  std::string text = "Z:" + fs::absolute(path).native();
  std::ranges::replace(text, '/', '\\');
  return text;
}

class Storm {
 public:
  explicit Storm(const Options& options) : options_(options), folder_(options.Below) {
    if (options_.Programs.empty()) options_.Programs = {folder_.Host("program")};
    setenv("XDG_STATE_HOME", folder_.Host("state").c_str(), 1);
    for (char** variable = environ; *variable; ++variable) environment_.push_back(*variable);
    DefineShips();
  }

  /// True when both databases hold every ship in the end.
  bool Blow(int runners) {
    fs::remove_all(folder_.Path("game"));
    WriteEmptyGame(folder_.Path("game"));
    const int failed = MergeAll(static_cast<std::size_t>(runners));
    const std::set<std::string> ships = NamesIn("game/data/TGL/Ships.tgl");
    const std::set<std::string> menus = NamesIn("game/data/TGL/QuickBattle/QuickBattle.TGL");
    const auto held = std::ranges::count_if(ships_, [&](const std::string& ship) {
      return ships.contains(ship) && ships.contains(ship + " Description") && menus.contains(ship);
    });
    std::cout << "With " << runners << " at once " << held << " of " << ships_.size()
              << " in both databases; " << failed << " merges said that they failed\n";
    return held == std::ssize(ships_);
  }

 private:
  std::string OutputOf(const Words& words) {
    Run(words, environment_, folder_.Host(), folder_.Host("output"));
    return folder_.Get("output");
  }

  /// All program folders get the same definitions.
  void DefineShips() {
    const fs::path first = options_.Programs[0];
    fs::create_directories(first);
    for (int number = 1; number <= options_.Definitions; ++number) {
      ships_.push_back("Storm" + std::to_string(number));
      const std::string output = OutputOf({TARVO_TOOL, "--program", GamePath(first), "define",
                                           ships_.back(), "--long-name", "USS"});
      if (!output.starts_with("Ship TGL Definition has been Saved"))
        throw std::runtime_error(output);
    }
    for (const fs::path program : options_.Programs) {
      if (program == first) continue;
      fs::create_directories(program);
      fs::copy(first / "ShipTGLs", program / "ShipTGLs",
               fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    }
  }

  pid_t StartMerge(std::size_t runner, const std::string& ship) {
    const auto of = [&](const Words& all) { return all[std::min(runner, all.size() - 1)]; };
    std::istringstream tool(of(options_.Tools));
    Words words(std::istream_iterator<std::string>(tool), {});
    words.insert(words.end(), {"--game", GamePath(folder_.Path("game")), "--program",
                               GamePath(of(options_.Programs)), "merge", ship});
    return Start(words, environment_, fs::current_path(), "/dev/null");
  }

  /// Each runner takes the next ship until none is left. Gives the number of failures told.
  int MergeAll(std::size_t runners) {
    std::map<pid_t, std::size_t> running;
    auto ship = ships_.begin();
    for (std::size_t runner = 0; runner < runners && ship != ships_.end(); ++runner) {
      running[StartMerge(runner, *ship++)] = runner;
    }
    int failed = 0;
    for (int status = 0; !running.empty(); failed += status != 0) {
      const std::size_t runner = running.extract(waitpid(-1, &status, 0)).mapped();
      if (ship != ships_.end()) running[StartMerge(runner, *ship++)] = runner;
    }
    return failed;
  }

  std::set<std::string> NamesIn(const std::string& database) {
    std::istringstream lines(OutputOf({TARVO_TOOL, "tgl", "show", folder_.Host(database)}));
    std::set<std::string> names;
    for (std::string line; std::getline(lines, line);)
      names.insert(line.substr(0, line.find('\t')));
    return names;
  }

  Options options_;
  TemporaryFolder folder_;
  Words environment_;
  Words ships_;
};

int Main(int argc, char** argv) {
  Options options;
  CLI::App parser("Merges many ship definitions into one game, several at once.", "storm");
  parser.add_option("--runs", options.Runs, "How often");
  parser.add_option("--definitions", options.Definitions, "How many definitions");
  parser.add_option("--runners", options.Runners, "How many at once; several numbers one by one");
  parser.add_option("--tool", options.Tools, "The tool of each runner, such as \"wine tarvo.exe\"");
  parser.add_option("--program", options.Programs,
                    "The program folder of each runner; takes the definitions");
  parser.add_option("--below", options.Below, "The folder for the game");
  CLI11_PARSE(parser, argc, argv);
  Storm storm(options);
  bool whole = true;
  for (int run = 0; run < options.Runs; ++run) {
    for (const int runners : options.Runners) whole = storm.Blow(runners) && whole;
  }
  return whole ? 0 : 1;
}

}  // namespace
}  // namespace tarvo::test

int main(int argc, char** argv) {
  return tarvo::test::Main(argc, argv);
}
