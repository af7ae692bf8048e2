#pragma once

#include <set>

#include "support/MemoryFiles.h"

namespace tarvo::test {

/// What goes through the program when the power is cut: nothing in it catches this.
struct PowerCut {};

/// Files in memory that know what of them is on the disk: what Files promises, and not more. Of all
/// else any part may be there after a power cut, in any order: a new name, a deletion, a content
/// that is missing, cut short or zeros. What is sure: a content is on the disk before its name when
/// the file is waited for or replaces an old one; a rename is done or not; changes of one name, and
/// of a folder and what is in it, keep their order. Replacements must not outlive the object.
class PowerCutFiles : public MemoryFiles {
 public:
  /// Begins with all of `found` on the disk.
  explicit PowerCutFiles(const MemoryDisk& found)
      : MemoryFiles(std::make_shared<MemoryDisk>(found)), onDisk_(found.Nodes) {}

  /// Cuts the power in front of the `nth` step from now on, 1 being the next. A step is a call that
  /// changes something, or Sync; a Commit that waits has a second one before the name is on the
  /// disk.
  void CutAt(int nth) { cutAt_ = steps_ + nth; }

  int Steps() const { return steps_; }
  bool IsCut() const { return cutAt_ != 0 && steps_ >= cutAt_; }

  /// The disk as it may be found when the power is cut now, or was cut.
  MemoryDisk AfterPowerCut(unsigned seed) const;

  void SetAttributes(TextView path, unsigned attributes) override;
  using Files::Replace;
  std::unique_ptr<FileReplacement> Replace(TextView path, NewFile newFile) override;
  void MakeEmptyFile(TextView path) override;
  void MakeFolder(TextView path) override;
  void RemoveFolder(TextView path) override;
  void Rename(TextView from, TextView to) override;
  void Remove(TextView path) override;
  void Sync(TextView folder) override;

 private:
  friend class PowerCutReplacement;

  using Nodes = std::map<Text, MemoryDisk::Node>;

  /// What stands under some keys afterwards; nothing for what is gone.
  using Change = std::map<Text, std::optional<MemoryDisk::Node>>;

  void Step();
  void Note(Change change) { pending_.push_back(std::move(change)); }
  void Note(std::initializer_list<TextView> paths);
  std::optional<MemoryDisk::Node> NodeAt(const Text& key) const;
  void Reach(std::vector<bool>& reached, std::size_t change) const;
  void Apply(Nodes& nodes, const std::vector<bool>& reached) const;
  void BringLastToDisk();

  Nodes onDisk_;
  std::vector<Change> pending_;  ///< What may be on the disk, the first one first.
  std::set<std::shared_ptr<const FileText>> unsynced_;  ///< Contents that may be.
  int steps_ = 0;
  int cutAt_ = 0;
  int siblings_ = 0;
};

}  // namespace tarvo::test
