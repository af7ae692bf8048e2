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
  // Entries and texts may begin with a slash, on every system.
  parser.allow_windows_style_options(false);
  AddPackageCommands(parser, chosen);
  AddShipTGLCommands(parser, chosen);
  AddTGLCommands(parser, chosen);
  AddShipCommands(parser, chosen);
  AddMenuCommands(parser, chosen);
  AddSoundCommands(parser, chosen);
}

}  // namespace tarvo
