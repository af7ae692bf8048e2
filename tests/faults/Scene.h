#pragma once

#include "faults/Process.h"
#include "support/TemporaryFolder.h"

namespace tarvo::test {

/// A command line of the console tool, its words separated by "|".
struct Command {
  const char* Name;
  const char* Line;
  const char* Game = "Größeres Spiel";   ///< Empty for the one in the settings.
  std::vector<const char*> Before = {};  ///< What is run to get there.
};

/// All that change files.
extern const std::vector<Command> kCommands;

/// The tool runs in the scene, with home, settings and journals there.
Words ToolLine(const std::string& tool, const std::string& game, const std::string& line);
Words ToolEnvironment(const std::string& scene);

/// Makes two games, a program folder and a home in the folder "scene".
void MakeScene(const TemporaryFolder& folder);

/// Lines that complete a new scene, on the first game.
extern const std::vector<const char*> kPreparations;

/// True for a text database that is in order: written anew it gives the same bytes.
bool IsDatabaseInOrder(const std::string& path);

}  // namespace tarvo::test
