#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "platform/Files.h"
#include "platform/PlatformError.h"

namespace tarvo::test {

/// What can be made to fail.
enum class FileStep {
  Look,  ///< FileExists, FolderExists, Stamp, FileSize, Attributes and RealPath.
  SetAttributes,
  Open,
  Read,
  Replace,
  Write,
  Copy,
  Commit,
  MakeEmptyFile,
  MakeFolder,
  RemoveFolder,
  Rename,
  Remove,
  List,
  Sync,
  Lock,
  Count,
};

/// What goes through the program when its process is killed: nothing in it catches this.
struct Killed {};

/// Files that fail on purpose, and otherwise do what the files behind them do. What a step throws
/// is a PlatformError like a real one's. Readers and replacements must not outlive the object.
class FailingFiles : public Files {
 public:
  explicit FailingFiles(Files& files) : files_(files) {}

  /// Lets the `nth` step of a kind from now on, 1 being the next, fail with `code`; what follows
  /// works again, unless `onwards`.
  void Fail(FileStep step, int nth, int code, bool onwards = false);

  /// Lets the `nth` step of any kind from now on fail with `code`.
  void FailAny(int nth, int code);

  /// Throws Killed in front of the `nth` step of any kind from now on, and of all that follow.
  void KillAt(int nth) { killAt_ = seen_ + nth; }

  /// Lets all replacements together take `bytes` more bytes, then fail as a full disk would.
  void FailAfterBytes(std::uint64_t bytes, int code);

  /// Takes back all of that.
  void Heal();

  /// Steps of a kind so far, the failed ones included.
  int Steps(FileStep step) const { return PlanOf(step).Seen; }

  /// Steps of all kinds so far.
  int AllSteps() const { return seen_; }

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

  /// Only counted where the disk is a real one: to wait for it would prove nothing in a test.
  void Sync(TextView folder) override;
  LockAttempt TryLock(TextView folder, TextView purpose) override;
  std::vector<Text> Drives() override { return files_.Drives(); }
  void RemoveAbandoned() override { files_.RemoveAbandoned(); }

 private:
  friend class FailingReader;
  friend class FailingReplacement;

  struct Plan {
    int Seen = 0;
    int FailAt = 0;  ///< The number of the step that fails; 0 for none.
    int Code = 0;
    bool Onwards = false;
  };

  Plan& PlanOf(FileStep step) { return plans_[static_cast<std::size_t>(step)]; }
  const Plan& PlanOf(FileStep step) const { return plans_[static_cast<std::size_t>(step)]; }

  /// Counts a step, and throws when it is the one to fail.
  void Take(FileStep step, TextView path);

  /// Of `bytes` to be written, those that still fit.
  std::uint64_t Fitting(std::uint64_t bytes) const;

  Files& files_;
  std::array<Plan, static_cast<std::size_t>(FileStep::Count)> plans_;
  int seen_ = 0;
  int failAt_ = 0;  ///< The number of the step of any kind that fails; 0 for none.
  int failCode_ = 0;
  int killAt_ = 0;
  std::optional<std::uint64_t> bytesLeft_;
  int fullCode_ = 0;
};

}  // namespace tarvo::test
