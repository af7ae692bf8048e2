#pragma once

#include <memory>
#include <string>

#include "platform/Files.h"
#include "platform/windows/Handle.h"
#include "platform/windows/WindowsReplacement.h"

namespace tarvo {

/// The lock file of a folder. It holds the words of whoever holds the lock, in UTF-8, and one byte
/// far behind them is locked. Under Wine that is a record lock of the host, which the programs of
/// the host meet.
class WindowsFolderLock : public FolderLock {
 public:
  /// Takes the lock of a folder. `path` names the folder in errors. Throws PlatformError where it
  /// can't hold a lock.
  static LockAttempt Try(std::shared_ptr<WindowsState> state, const std::wstring& folder,
                         TextView path, TextView purpose);

  /// Deletes the lock file unless a living process holds it. Gives false when one stands there that
  /// nobody holds and that can't be deleted.
  static bool RemoveAbandoned(const std::wstring& folder);

  WindowsFolderLock(std::shared_ptr<WindowsState> state, Handle file)
      : state_(std::move(state)), file_(std::move(file)) {}
  ~WindowsFolderLock() override;

 private:
  std::shared_ptr<WindowsState> state_;
  Handle file_;
};

}  // namespace tarvo
