#pragma once

#include <map>
#include <memory>
#include <optional>

#include "platform/Files.h"

namespace tarvo::test {

/// What stands on a disk in memory, which all files on it share. Two names in a folder always
/// differ in more than letter case, and there are no links. The program's drive is Z:.
class MemoryDisk {
 public:
  struct Node {
    Text Path;                              ///< As it was spelled when it was made.
    std::shared_ptr<const FileText> Bytes;  ///< Null for a folder.
    unsigned Attributes = kNormalFile;
    std::int64_t Changed = 0;
  };

  /// The drives C: and Z:, with nothing on them.
  MemoryDisk();

  /// The path under which Nodes has what a game path names; nothing for one that leads nowhere.
  static std::optional<Text> KeyOf(TextView path);

  /// What stands at a path; null for nothing.
  Node* Find(TextView path);

  /// The same, but throws when it is nothing.
  Node& At(TextView operation, TextView path);

  /// Throws as well when it is no file.
  Node& FileAt(TextView operation, TextView path);

  /// Throws where nothing stands and nothing can be put either, for want of a folder.
  void RequireFolderOf(TextView operation, TextView path);

  /// Puts a node where nothing stands.
  void Place(TextView operation, TextView path, Node node);

  /// The next moment.
  std::int64_t Tick() { return ++ticks_; }

  std::map<Text, Node> Nodes;  ///< By folded paths, without a backslash at the end.
  std::map<Text, Text> Locks;  ///< What the holders of locked folders say of themselves.

 private:
  bool HasFolderOf(TextView path) const;
  int MissingCode(TextView path) const;

  std::int64_t ticks_ = 0;
};

/// True for a path that can only mean a folder.
bool EndsInSeparator(TextView path);

}  // namespace tarvo::test
