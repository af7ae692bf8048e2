// Lets each call of the console tool on files fail, and looks at what it leaves and what it says.

#include <CLI/CLI.hpp>
#include <atomic>
#include <iostream>
#include <thread>

#include "faults/Trials.h"

namespace tarvo::test {
namespace {

/// Each worker takes the next command until none is left; false when one can't go on.
bool TryAll(const std::vector<const Command*>& commands, const std::string& below, int jobs,
            const Choice& choice, Results& results) {
  std::atomic<std::size_t> next = 0;
  std::atomic<bool> done = true;
  std::vector<std::jthread> workers;
  for (int job = 0; job < jobs; ++job) {
    workers.emplace_back([&] {
      try {
        Trials trials(below, choice, results);
        for (std::size_t at; done && (at = next++) < commands.size();) trials.Try(*commands[at]);
      } catch (const std::exception& error) {
        std::cerr << "faults: " << error.what() << '\n';
        done = false;
      }
    });
  }
  workers.clear();
  return done;
}

template <class Items>
std::set<std::string> NamesOf(const Items& items) {
  std::set<std::string> names;
  for (const auto& item : items) names.insert(item.Name);
  return names;
}

int Main(int argc, char** argv) {
  Choice choice{TARVO_TOOL, {}, 1, 1};
  std::set<std::string> names;
  std::string below = kUsualPlace;
  int jobs = 1;
  CLI::App parser("Lets each call of the console tool on files fail.", "faults");
  parser.add_option("--command", names, "The commands")->check(CLI::IsMember(NamesOf(kCommands)));
  parser.add_option("--fault", choice.Faults, "The faults; + is for all calls from there on")
      ->check(CLI::IsMember(NamesOf(kFaults)));
  parser.add_option("--every", choice.Every, "Make one trial of so many")
      ->check(CLI::PositiveNumber);
  parser.add_option("--seed", choice.Seed, "Which of them");
  parser.add_option("--jobs", jobs, "Trials at once")->check(CLI::Range(1, 2));
  parser.add_option("--tool", choice.Tool, "The console tool");
  parser.add_option("--below", below, "The folder for the scenes");
  CLI11_PARSE(parser, argc, argv);
  std::setvbuf(stdout, nullptr, _IOLBF, 0);
  std::vector<const Command*> commands;
  for (const Command& command : kCommands) {
    if (names.empty() || names.contains(command.Name)) commands.push_back(&command);
  }
  Results results;
  if (!TryAll(commands, below, jobs, choice, results)) return 2;
  PrintReport(results.Findings, results.Trials, choice.Tool);
  return results.Findings.empty() ? 0 : 1;
}

}  // namespace
}  // namespace tarvo::test

int main(int argc, char** argv) {
  return tarvo::test::Main(argc, argv);
}
