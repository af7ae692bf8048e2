#include "platform/HostMachine.h"

#include "platform/SystemClock.h"
#include "platform/windows/UserFolders.h"
#include "platform/windows/WindowsFiles.h"
#include "platform/windows/WindowsLocale.h"
#include "platform/windows/WindowsRegistry.h"
#include "platform/windows/WindowsSettings.h"

namespace tarvo {

HostMachine OpenHostMachine() {
  HostMachine machine;
  machine.files = std::make_unique<WindowsFiles>(DefaultJournalFolders());
  machine.files->RemoveAbandoned();
  machine.settings = std::make_unique<WindowsSettings>();
  machine.registry = std::make_unique<WindowsRegistry>();
  machine.locale = std::make_unique<WindowsLocale>();
  machine.clock = std::make_unique<SystemClock>();
  return machine;
}

}  // namespace tarvo
