#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/Locale.h"
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

/// The files of the machine. `journalFolder` is a folder of the host for the journal of temporary
/// files, made on first use; empty for no journal.
std::unique_ptr<Files> OpenFiles(std::string journalFolder);

/// Opens them for the user of the process, and deletes the temporary files that ended processes
/// of his have left.
HostMachine OpenHostMachine();

/// The folder of the program's own file, as a game path without a backslash at its end.
Text ProgramFolder();

/// What a game path names, as the host writes it, with letter case ignored as in Files. A part that
/// doesn't exist stays as spelled; empty for a path that can't lead anywhere on this host.
std::string HostPath(TextView gamePath);

/// A folder from the command line, in UTF-8: as the host writes it, relative to the working folder
/// or absolute, or as a game path with a drive. Gives a game path without a backslash at its end.
Text GamePathFromArgument(std::string_view argument);

}  // namespace tarvo
