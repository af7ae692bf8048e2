#pragma once

#include <string>
#include <vector>

#include "platform/Files.h"
#include "platform/posix/PosixReplacement.h"

namespace tarvo {

/// Files on a POSIX host. Drive Z: is its root folder, and there is no other. For one thread.
class PosixFiles : public Files {
 public:
  /// The parts may be shared with others that write files for the same user.
  explicit PosixFiles(std::shared_ptr<PosixState> state) : state_(std::move(state)) {}

  /// `journalFolder`: the folder of the host where the journal of temporary files is kept. It is
  /// made on first use; where it can't be, or is empty, there is no journal, and a killed process
  /// leaves its temporary files.
  explicit PosixFiles(std::string journalFolder)
      : PosixFiles(std::make_shared<PosixState>(std::vector{std::move(journalFolder)})) {}

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
  std::vector<Text> Drives() override { return {u"Z:"}; }
  void RemoveAbandoned() override { state_->siblings.RemoveAbandoned(); }

 private:
  std::string FilePath(TextView operation, TextView path);
  std::string FolderPath(TextView operation, TextView path);
  bool StateOf(TextView path, struct stat& state);
  std::vector<std::string> Listed(TextView path, bool folders);

  std::shared_ptr<PosixState> state_;
};

}  // namespace tarvo
