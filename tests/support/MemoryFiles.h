#pragma once

#include "support/MemoryDisk.h"

namespace tarvo::test {

/// Files in memory, which keep what Files promises and throw what the real ones do.
class MemoryFiles : public Files {
 public:
  explicit MemoryFiles(std::shared_ptr<MemoryDisk> disk = std::make_shared<MemoryDisk>())
      : disk_(std::move(disk)) {}

  /// Puts a file at a path, with its folders, past all rules.
  void Put(TextView path, FileTextView bytes);

  /// The bytes of a file; "(missing)" where there is none.
  FileText Bytes(TextView path) const;

  MemoryDisk& Disk() const { return *disk_; }

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
  std::vector<Text> Drives() override { return {u"C:", u"Z:"}; }
  void RemoveAbandoned() override;

 private:
  std::vector<Text> Listed(TextView folder, bool folders);

  std::shared_ptr<MemoryDisk> disk_;
};

}  // namespace tarvo::test
