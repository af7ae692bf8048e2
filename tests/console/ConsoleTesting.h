#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <sstream>

#include "console/Commands.h"
#include "platform/HostMachine.h"
#include "state/PendingWork.h"
#include "support/FailingFiles.h"
#include "support/Fakes.h"
#include "support/TemporaryFolder.h"
#include "text/Utf8.h"

namespace tarvo::test {

/// What one run of the tool gave.
struct Outcome {
  int status;
  std::string results;
  std::string words;
};

/// The system's own words for one of its codes.
inline std::string SystemWords(int code) {
  return Utf8FromText(SystemErrorText(code));
}

/// Runs a command line on the doors; the words after "tarvo" and the global options.
inline Outcome RunTool(const SessionDoors& doors, const SessionOptions& options,
                       std::vector<std::string> words,
                       std::function<std::optional<std::string>()> readLine) {
  CLI::App parser;
  Command command;
  AddCommands(parser, command);
  std::reverse(words.begin(), words.end());
  parser.parse(std::move(words));
  std::ostringstream results;
  std::ostringstream said;
  Session session(doors, options, results, said, std::move(readLine));
  const int status = command(session);
  if (options.SyncsLater) BringToDisk(session.app);
  return {status, results.str(), said.str()};
}

class Console : public testing::Test {
 protected:
  void SetUp() override {
    folder.Put("game/stbc.exe", "game");
    folder.Put("game/Scripts/ships/A.py", "a");
    folder.Put("game/scripts2/B b.py", "bb");
    folder.Put("program/ShipTGLs/A.TGL", "tgl");
    options.Game = folder.Game(u"game");
    options.ProgramFolder = folder.Game(u"program");
  }

  /// Runs a command line; the words after "tarvo" and the global options.
  Outcome Do(std::vector<std::string> words) {
    return RunTool({files, settings, registry, locale, clock}, options, std::move(words),
                   [this]() -> std::optional<std::string> {
                     if (typed.empty()) return {};
                     std::string line = typed.front();
                     typed.pop_front();
                     return line;
                   });
  }

  TemporaryFolder folder;
  std::unique_ptr<Files> disk = OpenFiles(folder.Host("journal"));
  FailingFiles files{*disk};
  MemorySettings settings;
  MemoryRegistry registry;
  FixedLocale locale;
  ScriptedClock clock;
  SessionOptions options;
  std::deque<std::string> typed;
};

}  // namespace tarvo::test
