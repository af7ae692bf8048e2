#pragma once

#include <memory>
#include <string>

#include "platform/Files.h"
#include "platform/posix/Descriptor.h"
#include "platform/posix/PosixReplacement.h"

namespace tarvo {

/// The lock file of a folder. It holds the words of whoever holds the lock, in UTF-8. What is
/// locked is one byte far behind them, by a record lock: such a lock is seen by programs under
/// Wine, where the same byte is locked by the calls of Windows, and it ends with the process.
class PosixFolderLock : public FolderLock {
 public:
  /// Takes the lock of the folder of the host. `path` names the folder in errors. Throws
  /// PlatformError where it can't hold a lock.
  static LockAttempt Try(std::shared_ptr<PosixState> state, const std::string& folder,
                         TextView path, TextView purpose);

  /// Deletes the lock file unless a living process holds it. Gives false when one stands there that
  /// nobody holds and that can't be deleted.
  static bool RemoveAbandoned(const std::string& folder);

  PosixFolderLock(std::shared_ptr<PosixState> state, Descriptor file, std::string hostPath)
      : state_(std::move(state)), file_(std::move(file)), hostPath_(std::move(hostPath)) {}
  ~PosixFolderLock() override;

 private:
  std::shared_ptr<PosixState> state_;
  Descriptor file_;
  std::string hostPath_;
};

/// True when the open file is the one that stands at the path.
bool StandsAt(int descriptor, const std::string& hostPath);

}  // namespace tarvo
