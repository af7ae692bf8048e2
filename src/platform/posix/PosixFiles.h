#pragma once

#include <string>
#include <vector>

#include "platform/Files.h"
#include "platform/posix/PosixReplacement.h"

namespace tarvo {

/// Files on a POSIX host. Drive Z: is its root folder, and there is no other. For one thread.
class PosixFiles : public Files {
 public:
  /// `journalFolder`: the folder of the host where the journal of temporary files is kept, usually
  /// DefaultJournalFolder(). It is made on first use; where it can't be, or is empty, there is no
  /// journal, and a killed process leaves its temporary files.
  explicit PosixFiles(std::string journalFolder);

  /// The path of the host that a game path leads to, each part exactly or without regard to case,
  /// and as spelled where it doesn't exist. Empty for a path that can't lead anywhere, such as one
  /// on another drive.
  std::string HostPath(TextView path);
  bool StateOf(TextView path, struct stat& state);

  bool FileExists(TextView path) override;
  bool FolderExists(TextView path) override;
  std::optional<FileStamp> Stamp(TextView path) override;
  std::uint64_t FileSize(TextView path) override;
  unsigned Attributes(TextView path) override;
  void SetAttributes(TextView path, unsigned attributes) override;
  std::unique_ptr<FileReader> Open(TextView path) override;
  std::unique_ptr<FileReplacement> Replace(TextView path) override;
  void MakeEmptyFile(TextView path) override;
  void MakeFolder(TextView path) override;
  void RemoveFolder(TextView path) override;
  void Rename(TextView from, TextView to) override;
  void Remove(TextView pathOrPattern) override;
  std::vector<Text> FileNames(TextView folder, TextView pattern = u"*") override;
  std::vector<Text> FolderNames(TextView folder) override;
  Text RealPath(TextView path) override;
  void Sync(TextView folder) override;
  std::vector<Text> Drives() override { return {u"Z:"}; }
  void RemoveAbandoned() override { state_->siblings.RemoveAbandoned(); }

 private:
  std::string FilePath(TextView operation, TextView path);
  std::string FolderPath(TextView operation, TextView path);
  std::vector<std::string> Listed(TextView path, bool folders);
  void RemoveFile(const std::string& hostPath, TextView path);
  void RemoveMatching(TextView pattern, std::size_t nameAt);

  std::shared_ptr<PosixState> state_;
};

}  // namespace tarvo
