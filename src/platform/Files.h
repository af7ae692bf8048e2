#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "text/Text.h"

namespace tarvo {

/// The only way to the disk.
///
/// Paths are game paths: a drive, a colon, and parts separated by backslashes, such as
/// "Z:\games\bc\stbc.exe"; one that begins with a backslash lies on the program's drive, and with
/// two on a server, on Windows. Letter case is ignored: a part is looked up exactly, then without
/// regard to it, and only what doesn't exist is made as spelled. Links are followed.
///
/// What goes wrong is thrown as PlatformError with the path as the caller gave it, unless a
/// function says otherwise. Where letter case must be ignored and a folder on the way can't be
/// listed, the error names that folder.
///
/// No path is a pattern but those that a function calls so: a name may hold * or ? like any letter.

/// An open file. Positions count bytes from 0.
class FileReader {
 public:
  virtual ~FileReader() = default;

  /// Bytes in the file when it was opened.
  virtual std::uint64_t Size() const = 0;

  /// Fills `block` from `position`; gives the bytes read, fewer than asked only at the file's end.
  virtual std::size_t ReadAt(std::uint64_t position, std::span<char> block) = 0;
};

/// A file on its way to the disk. It grows in a temporary sibling of the target, and takes the
/// target's place in Commit: until then, and on any failure, the target stands as it was. Without
/// Commit the destructor drops what was written.
class FileReplacement {
 public:
  virtual ~FileReplacement() = default;

  virtual void Write(FileTextView bytes) = 0;

  /// Appends `count` bytes of `source` from `position` on, in the kernel where it can; gives the
  /// bytes copied, fewer than `count` only at the source's end.
  virtual std::uint64_t CopyFrom(FileReader& source, std::uint64_t position,
                                 std::uint64_t count) = 0;

  /// Puts the file in its place, with the mode, owner and attributes of the file that it replaces.
  /// Where an old file is replaced the new one is on the disk before the old one goes, and so is a
  /// new file when Commit returns, unless it was begun with NewFile::Later. Call it once.
  virtual void Commit() = 0;
};

/// Whether a file that replaces none is waited for. The folder that it stands in is waited for
/// along with it.
enum class NewFile {
  OnDisk,  ///< It is on the disk when Commit returns.
  Later    ///< The caller has it from elsewhere, and calls Sync for many of them at once.
};

/// Held by the one program that changes a folder. Lets go of it when it is destroyed, and by any
/// death of the process.
class FolderLock {
 public:
  virtual ~FolderLock() = default;
};

struct LockAttempt {
  std::unique_ptr<FolderLock> Lock;  ///< Null while another program holds the folder.
  Text Holder;                       ///< What that program says of itself; empty when unknown.
};

/// Marks of a file. A platform without one of them never reports it and drops it when set.
enum FileAttributes : unsigned {
  kNormalFile = 0,
  kReadOnlyFile = 1,  ///< On POSIX: no write permission bit is set, also for root.
  kHiddenFile = 2,
  kSystemFile = 4,
  kArchiveFile = 32,
};

/// Two equal stamps of a file mean that it wasn't written in between.
struct FileStamp {
  std::uint64_t Size = 0;    ///< Bytes.
  std::int64_t Changed = 0;  ///< Nanoseconds since 1970 in UTC.

  friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

class Files {
 public:
  virtual ~Files() = default;

  /// False where nothing stands, where a link leads nowhere, and for a folder. What can't be looked
  /// at is no answer but a failure, and thrown.
  virtual bool FileExists(TextView path) = 0;

  /// The same for a folder.
  virtual bool FolderExists(TextView path) = 0;

  /// The file's size and time of change; nothing where FileExists gives false.
  virtual std::optional<FileStamp> Stamp(TextView path) = 0;

  /// Bytes in the file.
  virtual std::uint64_t FileSize(TextView path) = 0;

  /// FileAttributes bits. SetAttributes replaces them all.
  virtual unsigned Attributes(TextView path) = 0;
  virtual void SetAttributes(TextView path, unsigned attributes) = 0;

  /// Opens a file for reading alone.
  virtual std::unique_ptr<FileReader> Open(TextView path) = 0;

  /// Begins a file that will stand at `path`, in a folder that exists. Refuses a target that is
  /// read-only or a folder, before a byte is written. A target that is a link is followed.
  virtual std::unique_ptr<FileReplacement> Replace(TextView path, NewFile newFile) = 0;
  std::unique_ptr<FileReplacement> Replace(TextView path) { return Replace(path, NewFile::OnDisk); }

  /// Makes a file of no bytes; a file that is there already stays as it is.
  virtual void MakeEmptyFile(TextView path) = 0;

  /// Makes one folder; throws when something of that name is there already. A backslash at the
  /// end is ignored.
  virtual void MakeFolder(TextView path) = 0;

  /// Deletes an empty folder. A link to a folder goes as a link, and what it leads to stays.
  virtual void RemoveFolder(TextView path) = 0;

  /// Renames a file. Throws, and loses neither, when something stands at `to` already.
  virtual void Rename(TextView from, TextView to) = 0;

  /// Deletes a file; throws when there is none. Never deletes a folder or a read-only file.
  virtual void Remove(TextView path) = 0;

  /// Bare names of the files that match a pattern such as "*.Tarvo", sorted without regard to
  /// case. Several patterns are separated by ";". Throws when the folder can't be read. Temporary
  /// siblings aren't shown. A name of the host that holds a backslash can't be told in a game path
  /// and is left out.
  virtual std::vector<Text> FileNames(TextView folder, TextView pattern = u"*") = 0;

  /// Bare names of the folders in a folder, sorted likewise.
  virtual std::vector<Text> FolderNames(TextView folder) = 0;

  /// The path of a file or folder as the disk has it: each name in its own letter case, and no link
  /// on the way. Two paths lead to the same place when their real paths are equal.
  virtual Text RealPath(TextView path) = 0;

  /// Returns when all that was written to the file system of a folder is on the disk.
  virtual void Sync(TextView folder) = 0;

  /// Takes the lock of a folder, which every program that works on it meets, be it another build or
  /// one under Wine, and by whatever path it came. `purpose` is what the others are told meanwhile.
  /// The lock is the hidden file ".tarvo-lock.tmp" in the folder, which goes with it. Throws where
  /// the folder can't hold one.
  virtual LockAttempt TryLock(TextView folder, TextView purpose) = 0;

  /// The drives of the machine, each as "Z:".
  virtual std::vector<Text> Drives() = 0;

  /// Deletes the temporary siblings and locks of processes of this user that have ended. Called
  /// once at the start of a program. Throws nothing: what can't be deleted stays for the next
  /// start.
  virtual void RemoveAbandoned() = 0;
};

/// True when `name` matches a pattern with the wildcards * (any run) and ? (any one unit), without
/// regard to letter case. "*.*" matches every name, as users of the patterns expect.
bool MatchesPattern(TextView name, TextView pattern);

}  // namespace tarvo
