#pragma once

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Journal.h"

namespace tarvo {

/// The temporary siblings that files grow in: their names, and the journal that lets a later
/// process remove those of a process that was killed.
///
/// A sibling is named ".tarvo-TOKEN-N.tmp"; the token belongs to one object of this class in one
/// process. The journal, "TOKEN.pending" in a journal folder, lists the folders that may hold
/// siblings or the lock of a killed process, one a line, and is locked for as long as its owner
/// lives. Where it can't be made or written the work goes on without it.
class Siblings {
 public:
  /// The first of the journal folders that can be used takes the journal. It is made on first use,
  /// for the user alone; empty ones don't count.
  explicit Siblings(std::vector<std::string> journalFolders);
  Siblings(const Siblings&) = delete;
  Siblings& operator=(const Siblings&) = delete;

  /// Deletes the journal, unless a sibling is left.
  ~Siblings();

  /// The name of a new sibling in `folder`, to be made by the caller. A folder is told as Journal.h
  /// has it.
  std::string Next(const std::string& folder);

  /// Notes that `folder` is to hold the lock of this process.
  void NoteLock(const std::string& folder);

  /// A sibling that Next has named, or a lock, stands no longer, or was never made.
  void Gone() { --left_; }

  /// Deletes the siblings and locks of processes that have ended, and their journals. What can't be
  /// deleted stays for the next time.
  void RemoveAbandoned() const;

  static bool IsSibling(std::string_view name);

 private:
  void Note(const std::string& folder);
  void MakeJournal();
  void RemoveAbandonedIn(const std::string& journalFolder) const;

  std::vector<std::string> journalFolders_;
  std::string token_;
  std::unique_ptr<Journal> journal_;
  bool hasJournal_;  ///< False once the journal couldn't be made.
  std::set<std::string> noted_;
  std::uint64_t lastNumber_ = 0;
  std::int64_t left_ = 0;
};

/// The name of the file that is the lock of a folder, which counts as a sibling, and the place of
/// its one byte that is locked. They are the same for all builds of the program.
inline constexpr std::string_view kLockName = ".tarvo-lock.tmp";
inline constexpr std::int64_t kLockedByte = 1 << 30;

}  // namespace tarvo
