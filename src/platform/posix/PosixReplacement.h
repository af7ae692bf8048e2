#pragma once

#include <sys/stat.h>

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/BufferedReplacement.h"
#include "platform/Siblings.h"
#include "platform/posix/Descriptor.h"
#include "platform/posix/NameLookup.h"

namespace tarvo {

class PosixFileReader;

/// What the parts of one PosixFiles share; a replacement may outlive the Files that began it.
struct PosixState {
  explicit PosixState(std::vector<std::string> journalFolders)
      : siblings(std::move(journalFolders)) {}

  NameLookup names;
  Siblings siblings;
  std::set<std::string> newFolders;  ///< Made by us, and perhaps not on the disk yet.
};

class PosixReplacement : public BufferedReplacement {
 public:
  /// Begins the file that will stand at `hostPath`, or where the link there leads. `path` names
  /// the file in errors. Throws PlatformError as Files::Replace does.
  PosixReplacement(std::shared_ptr<PosixState> state, const std::string& hostPath, TextView path,
                   NewFile newFile);
  ~PosixReplacement() override { Drop(); }

  std::uint64_t CopyFrom(FileReader& source, std::uint64_t position, std::uint64_t count) override;
  void Commit() override;

 private:
  void FollowLinks(const std::string& hostPath);
  std::optional<struct stat> Standing() const;
  void OpenSibling();
  void WriteOut(FileTextView bytes) override;
  bool IsWaitedFor() const { return old_ || newFile_ == NewFile::OnDisk; }
  void Written(std::uint64_t bytes);
  std::uint64_t CopyInKernel(PosixFileReader& source, std::uint64_t position, std::uint64_t count);
  void TakeOver(const struct stat& old);
  void TakeOverAttributes(bool isSameOwner);
  void Finish();
  void PutInPlace();
  void SyncFolders();
  void Drop();

  std::shared_ptr<PosixState> state_;
  NewFile newFile_;
  std::string target_;
  std::optional<struct stat> old_;  ///< Of the file to be replaced, as last seen.
  std::string sibling_;             ///< Empty when there is none.
  Descriptor file_;
  std::uint64_t written_ = 0;  ///< Bytes.
  std::uint64_t started_ = 0;  ///< Of those, the bytes that are on their way to the disk.
};

}  // namespace tarvo
