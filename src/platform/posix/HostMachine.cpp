#include "platform/HostMachine.h"

#include <filesystem>

#include "platform/SystemClock.h"
#include "platform/posix/HostPaths.h"
#include "platform/posix/IniSettings.h"
#include "platform/posix/NameLookup.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/PosixLocale.h"
#include "platform/posix/UserFolders.h"
#include "platform/posix/WinePrefixes.h"
#include "platform/posix/WineRegistry.h"
#include "text/Paths.h"
#include "text/Utf8.h"

namespace tarvo {

std::unique_ptr<Files> OpenFiles(std::string journalFolder) {
  return std::make_unique<PosixFiles>(std::move(journalFolder));
}

HostMachine OpenHostMachine() {
  const auto state = std::make_shared<PosixState>(DefaultJournalFolders());
  HostMachine machine;
  machine.files = std::make_unique<PosixFiles>(state);
  machine.files->RemoveAbandoned();
  machine.settings = std::make_unique<IniSettings>(DefaultSettingsFile(), state);
  machine.registry = std::make_unique<WineRegistry>(UsualWinePrefixes(CurrentWineEnvironment()));
  machine.locale = std::make_unique<PosixLocale>();
  machine.clock = std::make_unique<SystemClock>();
  return machine;
}

std::string HostPath(TextView gamePath) {
  const std::optional<HostParts> parts = SplitGamePath(gamePath);
  if (!parts) return {};
  try {
    return NameLookup().Resolve("/", parts->Names);
  } catch (const PlatformError&) {
    return *SpelledHostPath(gamePath);
  }
}

Text GamePathFromArgument(std::string_view argument) {
  const bool hasDrive = argument.size() >= 2 && argument[1] == ':';
  if (hasDrive || argument.starts_with('\\')) {
    return FolderWithoutTail(TextFromUtf8(argument));
  }
  std::error_code failed;
  const auto folder = std::filesystem::absolute(argument, failed).lexically_normal();
  return FolderWithoutTail(GamePathOf(folder.native()));
}

}  // namespace tarvo
