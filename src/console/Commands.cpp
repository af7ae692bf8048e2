#include "console/Commands.h"

namespace tarvo {

CLI::App* AddCommand(CLI::App& parser, Command& chosen, const char* name, const char* about,
                     Command run) {
  CLI::App* command = parser.add_subcommand(name, about)->fallthrough();
  command->callback([&chosen, run = std::move(run)] { chosen = run; });
  return command;
}

void AddCommands(CLI::App& parser, Command& chosen) {
  parser.require_subcommand(1);
  AddPackageCommands(parser, chosen);
  AddMenuCommands(parser, chosen);
  AddSoundCommands(parser, chosen);
}

int FinishWithMessage(Session& session) {
  const Text message = session.dialogue.ClosingMessage();
  if (!message.empty()) session.output.Result({message}, Json(message));
  return session.Finish(true);
}

}  // namespace tarvo
