#include <unistd.h>

#include <CLI/CLI.hpp>
#include <iostream>

#include "console/PackageCommands.h"
#include "console/Session.h"
#include "platform/HostMachine.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

/// What the command line says, in UTF-8.
struct CommandLine {
  std::string game;
  std::string program;
  std::string name;
  std::vector<std::string> entries;
  bool yes = false;
  bool no = false;
  bool all = false;
  SessionOptions options;
  std::function<int(Session&)> run;
};

void AddGlobalOptions(CLI::App& parser, CommandLine& line) {
  parser.add_option("--game", line.game, "The game's folder")->type_name("DIR");
  parser.add_option("--program", line.program, "The program folder")->type_name("DIR");
  auto* yes = parser.add_flag("--yes", line.yes, "Answer every question with Yes");
  auto* no = parser.add_flag("--no", line.no, "Answer every question with No");
  auto* all = parser.add_flag("--all", line.all, "Answer every question with Yes to All");
  yes->excludes(no)->excludes(all);
  no->excludes(all);
  parser.add_flag("--json", line.options.Json, "The result as one JSON value");
  parser.add_flag("--quiet", line.options.Quiet, "No messages of information, no progress line");
}

CLI::App* AddCommand(CLI::App& parser, CommandLine& line, const char* name, const char* about,
                     std::function<int(Session&)> run) {
  CLI::App* command = parser.add_subcommand(name, about)->fallthrough();
  command->callback([&line, run = std::move(run)] { line.run = run; });
  return command;
}

void AddCommands(CLI::App& parser, CommandLine& line) {
  const auto name = [&line] { return TextFromUtf8(line.name); };
  const auto takesName = [&line](CLI::App* command) {
    command->add_option("NAME", line.name, "The package's name, without .Tarvo")->required();
    return command;
  };
  AddCommand(parser, line, "game", "Find the game", RunGame);
  takesName(AddCommand(parser, line, "pack", "Make a package",
                       [&line, name](Session& session) {
                         std::vector<Text> entries;
                         for (const std::string& entry : line.entries)
                           entries.push_back(TextFromUtf8(entry));
                         return RunPack(session, name(), entries);
                       }))
      ->add_option("ENTRY", line.entries, "A file or folder below its root")
      ->required();
  takesName(AddCommand(parser, line, "list", "List a package",
                       [name](Session& session) { return RunList(session, name()); }));
  takesName(AddCommand(parser, line, "verify", "Read a package through",
                       [name](Session& session) { return RunVerify(session, name()); }));
  takesName(AddCommand(parser, line, "install", "Install a package into the game",
                       [name](Session& session) { return RunInstall(session, name()); }));
}

std::optional<std::string> ReadTerminalLine() {
  std::string line;
  if (!isatty(STDIN_FILENO) || !std::getline(std::cin, line)) return {};
  return line;
}

int Run(CommandLine& line) {
  const HostMachine machine = OpenHostMachine();
  line.options.Game = line.game.empty() ? Text() : GamePathFromArgument(line.game);
  line.options.ProgramFolder =
      line.program.empty() ? ProgramFolder() : GamePathFromArgument(line.program);
  line.options.Answer = line.all ? u"All" : line.yes ? u"Yes" : line.no ? u"No" : u"";
  line.options.Terminal = isatty(STDERR_FILENO);
  Session session(
      {*machine.files, *machine.settings, *machine.registry, *machine.locale, *machine.clock},
      line.options, std::cout, std::cerr, ReadTerminalLine);
  return line.run(session);
}

}  // namespace
}  // namespace tarvo

int main(int argc, char** argv) {
  CLI::App parser("Makes, checks and installs Tarvo packages without a window.", "tarvo");
  parser.require_subcommand(1);
  tarvo::CommandLine line;
  tarvo::AddGlobalOptions(parser, line);
  tarvo::AddCommands(parser, line);
  try {
    parser.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return parser.exit(error) == 0 ? tarvo::kDone : tarvo::kWrongUsage;
  }
  return tarvo::Run(line);
}
