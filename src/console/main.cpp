#include <algorithm>
#include <iostream>

#include "console/Background.h"
#include "console/Commands.h"
#include "console/Terminal.h"
#include "platform/HostMachine.h"
#include "state/PendingWork.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

/// What the command line says, in UTF-8.
struct CommandLine {
  std::string game;
  std::string program;
  bool yes = false;
  bool no = false;
  bool all = false;
  SessionOptions options;
  Command run;
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

/// Whether the parser, or one of its commands, has an option of that name with a value.
bool TakesValue(const CLI::App& parser, const std::string& name) {
  const CLI::Option* option = parser.get_option_no_throw(name);
  if (option && option->get_items_expected_min() > 0) return true;
  const std::vector<const CLI::App*> commands = parser.get_subcommands(nullptr);
  return std::ranges::any_of(commands, [&](auto* command) { return TakesValue(*command, name); });
}

/// The words with each empty value behind a "=" as a word of its own: the parser would take the next
/// option for the value else.
std::vector<std::string> Apart(const CLI::App& parser, const std::vector<std::string>& words) {
  std::vector<std::string> apart;
  bool ended = false;  // No word behind this one is an option.
  for (auto word = words.begin(); word != words.end(); ++word) {
    ended = ended || *word == "--";
    const std::string name = word->substr(0, word->find('='));
    const bool option = !ended && name.starts_with("--") && TakesValue(parser, name);
    const bool empty = option && *word == name + "=";
    apart.push_back(empty ? name : *word);
    if (empty) apart.emplace_back();
    if (option && *word == name && word + 1 != words.end()) apart.push_back(*++word);
  }
  return apart;
}

/// Raises the status where not all could be written that the user was to read.
int Closed(int status) {
  std::cout.flush();
  const int code = LastSystemError();
  if (std::cout) return status;
  const PlatformError error(u"write to", u"the standard output", code);
  std::cerr << Utf8FromText(Words(error)) << std::endl;
  return kFileFailure;
}

int Run(CommandLine& line, Terminal& terminal) {
  const HostMachine machine = OpenHostMachine();
  line.options.Game = line.game.empty() ? Text() : GamePathFromArgument(line.game);
  const FoundProgramFolder program =
      line.program.empty() ? OpenProgramFolder(*machine.files)
                           : FoundProgramFolder{GamePathFromArgument(line.program), {}};
  const Text failure = FailureWords(program);
  if (program.Path.empty()) {
    std::cerr << Utf8FromText(failure) << std::endl;
    return Closed(kFileFailure);
  }
  line.options.ProgramFolder = program.Path;
  line.options.Answer = line.all ? u"All" : line.yes ? u"Yes" : line.no ? u"No" : u"";
  line.options.SyncsLater = true;
  line.options.Terminal = terminal.ShowsErrors();
  Session session(
      {*machine.files, *machine.settings, *machine.registry, *machine.locale, *machine.clock},
      line.options, std::cout, std::cerr, [&] { return terminal.ReadLine(); });
  if (!failure.empty()) session.Complain(u"Warning: " + failure);
  const int status = Closed(line.run(session));
  if (HasWrittenWork(session.app)) {
    GoOnInBackground(status);
    BringToDisk(session.app);
  }
  return status;
}

}  // namespace
}  // namespace tarvo

int main(int argc, char** argv) {
  tarvo::Terminal terminal;
  CLI::App parser("Works on ship mods, packages and text databases without a window.", "tarvo");
  tarvo::CommandLine line;
  tarvo::AddGlobalOptions(parser, line);
  tarvo::AddCommands(parser, line.run);
  try {
    // The parser takes the words behind the program's name, the last one first.
    std::vector<std::string> words = tarvo::Terminal::Arguments(argc, argv);
    if (!words.empty()) words.erase(words.begin());
    for (const std::string& word : words) line.options.Command += u" " + tarvo::TextFromUtf8(word);
    line.options.Command.insert(0, u"tarvo");
    words = tarvo::Apart(parser, words);
    std::ranges::reverse(words);
    parser.parse(std::move(words));
  } catch (const CLI::ParseError& error) {
    return tarvo::Closed(parser.exit(error) == 0 ? tarvo::kDone : tarvo::kWrongUsage);
  }
  return tarvo::Run(line, terminal);
}
