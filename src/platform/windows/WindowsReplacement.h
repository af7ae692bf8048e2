#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/BufferedReplacement.h"
#include "platform/Siblings.h"
#include "platform/windows/FileState.h"
#include "platform/windows/HostPaths.h"

namespace tarvo {

/// What the parts of one WindowsFiles share; a replacement may outlive the Files that began it.
struct WindowsState {
  explicit WindowsState(std::vector<std::string> journalFolders)
      : siblings(std::move(journalFolders)) {}

  Siblings siblings;
  std::set<std::wstring> unsynced;  ///< New files that may still be on their way to the disk.
};

/// What another program holds is tried again for a second at most. A link that leads to nothing is
/// refused.
class WindowsReplacement : public BufferedReplacement {
 public:
  /// Begins the file that will stand at `target`. `path` names the file in errors. Throws
  /// PlatformError as Files::Replace does.
  WindowsReplacement(std::shared_ptr<WindowsState> state, const HostParts& target, TextView path,
                     NewFile newFile);
  ~WindowsReplacement() override { Drop(); }

  void Commit() override;

 private:
  void WriteOut(FileTextView bytes) override;
  void FindTarget(const std::wstring& hostPath);
  std::optional<FileState> Standing() const;
  void OpenSibling();
  void Finish();
  void PutInPlace();
  void Drop();

  bool IsWaitedFor() const { return old_ || newFile_ == NewFile::OnDisk; }

  std::shared_ptr<WindowsState> state_;
  NewFile newFile_;
  std::wstring target_;
  std::optional<FileState> old_;  ///< Of the file to be replaced, as last seen.
  std::wstring sibling_;          ///< Empty when there is none.
  Handle file_;
};

/// Moves a file by the flags of MoveFileExW. Gives 0, or the code of the failure once a second has
/// passed in which another program held one of them.
int MoveWhenFree(const std::wstring& from, const std::wstring& to, DWORD flags);

}  // namespace tarvo
