#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

/// What the temporary siblings ask of the system beside the files themselves. Folders are paths of
/// the host, in its own bytes on POSIX and in UTF-8 on Windows; names likewise.

/// A file that lists folders, locked against other processes for as long as it is open.
class Journal {
 public:
  virtual ~Journal() = default;

  /// Gives the bytes that were appended, fewer where that failed.
  virtual std::size_t Append(std::string_view bytes) = 0;

  /// Nothing when it can't be read to its end.
  virtual std::optional<std::string> ReadAll() = 0;

  /// Deletes the file; it stays open, and is read and written no more.
  virtual void Delete() = 0;
};

/// Makes a journal, with its folder, for the user alone; nothing where that can't be, or where the
/// folder belongs to somebody else.
std::unique_ptr<Journal> MakeJournal(const std::string& folder, const std::string& name);

/// Opens the journal of a process that has ended; nothing when its owner lives, or when it is none.
std::unique_ptr<Journal> TakeAbandonedJournal(const std::string& folder, const std::string& name);

/// All names in a folder: none where there is no such folder, nothing when it can't be read.
std::optional<std::vector<std::string>> NamesInHostFolder(const std::string& folder);

/// Gives true when no such file stands there afterwards.
bool RemoveHostFile(const std::string& folder, const std::string& name);

/// Deletes the lock of a folder unless a living process holds it. Gives true when none stands there
/// that nobody holds.
bool RemoveAbandonedLock(const std::string& folder);

/// True for a path that doesn't depend on the working folder.
bool IsWholeHostPath(std::string_view path);

}  // namespace tarvo
