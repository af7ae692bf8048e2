#pragma once

#include <string>
#include <vector>

#include "platform/Files.h"
#include "platform/windows/WindowsReplacement.h"

namespace tarvo {

/// Files on Windows, with its own drives and servers. For one thread.
class WindowsFiles : public Files {
 public:
  /// `journalFolders`: the folders, in UTF-8, of which the first that can be used keeps the journal
  /// of temporary files. It is made on first use; where none can be, there is no journal, and a
  /// killed process leaves its temporary files.
  explicit WindowsFiles(std::vector<std::string> journalFolders);

  bool FileExists(TextView path) override;
  bool FolderExists(TextView path) override;
  std::optional<FileStamp> Stamp(TextView path) override;
  std::uint64_t FileSize(TextView path) override;
  unsigned Attributes(TextView path) override;
  void SetAttributes(TextView path, unsigned attributes) override;
  std::unique_ptr<FileReader> Open(TextView path) override;
  using Files::Replace;
  std::unique_ptr<FileReplacement> Replace(TextView path, NewFile newFile) override;
  void MakeEmptyFile(TextView path) override;
  void MakeFolder(TextView path) override;
  void RemoveFolder(TextView path) override;
  void Rename(TextView from, TextView to) override;
  void Remove(TextView path) override;
  std::vector<Text> FileNames(TextView folder, TextView pattern = u"*") override;
  std::vector<Text> FolderNames(TextView folder) override;
  Text RealPath(TextView path) override;
  void Sync(TextView folder) override;
  LockAttempt TryLock(TextView folder, TextView purpose) override;
  std::vector<Text> Drives() override;
  void RemoveAbandoned() override { state_->siblings.RemoveAbandoned(); }

 private:
  std::vector<Text> Listed(TextView path, bool folders);

  std::shared_ptr<WindowsState> state_;
};

}  // namespace tarvo
