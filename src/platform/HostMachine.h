#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/Locale.h"
#include "platform/PlatformError.h"
#include "platform/Registry.h"
#include "platform/Settings.h"

namespace tarvo {

/// The real doors of the machine that the program runs on, but for screen and sound.
struct HostMachine {
  std::unique_ptr<Files> files;
  std::unique_ptr<Settings> settings;
  std::unique_ptr<Registry> registry;
  std::unique_ptr<Locale> locale;
  std::unique_ptr<Clock> clock;
};

/// The files of the machine. `journalFolder` is a path of the host, in UTF-8 on Windows: the folder
/// for the journal of temporary files, made on first use; empty for no journal.
std::unique_ptr<Files> OpenFiles(std::string journalFolder);

/// Opens them for the user of the process, and deletes the temporary files that ended processes
/// of his have left.
HostMachine OpenHostMachine();

/// The folder where the program's data and the user's packages lie.
struct FoundProgramFolder {
  Text Path;  ///< A game path without a backslash at its end; empty when it can't be told.
  std::vector<PlatformError> Failures;  ///< What keeps the data there from being complete.
};

/// The folder of the program's own file where that can be written and the data lies there, as in
/// a build. Where the program is installed, with its data in ../share/tarvo-packager, or its own
/// folder can't be written: the user's own copy of the data, brought up to date first.
FoundProgramFolder OpenProgramFolder(Files& files);

/// Its failures as one message; empty when there are none.
Text FailureWords(const FoundProgramFolder& found);

/// What a game path names, as the host writes it (in UTF-8 on Windows), letter case ignored. What
/// doesn't exist stays as spelled; empty for a path that can't lead anywhere on this host.
std::string HostPath(TextView gamePath);

/// A folder from the command line, in UTF-8: as the host writes it, relative to the working folder
/// or absolute, or as a game path with a drive. Gives a game path without a backslash at its end.
Text GamePathFromArgument(std::string_view argument);

}  // namespace tarvo
