#pragma once

#include <CLI/CLI.hpp>
#include <functional>

#include "console/Session.h"

namespace tarvo {

/// What runs once the command line is read; gives the exit status.
using Command = std::function<int(Session&)>;

/// Adds a command to the command line; when the user gives it, `chosen` becomes `run`.
CLI::App* AddCommand(CLI::App& parser, Command& chosen, const char* name, const char* about,
                     Command run);

/// Adds all commands, one of which the user must give. Names, options and outputs are a contract
/// that scripts rely on.
void AddCommands(CLI::App& parser, Command& chosen);

/// The commands by what they work on.
void AddPackageCommands(CLI::App& parser, Command& chosen);
void AddShipTGLCommands(CLI::App& parser, Command& chosen);
void AddTGLCommands(CLI::App& parser, Command& chosen);
void AddShipCommands(CLI::App& parser, Command& chosen);
void AddMenuCommands(CLI::App& parser, Command& chosen);
void AddSoundCommands(CLI::App& parser, Command& chosen);

}  // namespace tarvo
