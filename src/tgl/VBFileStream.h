#pragma once

#include <cstdint>
#include <memory>

#include "platform/Files.h"
#include "text/Text.h"
#include "tgl/FileStrings.h"

namespace tarvo {

/// A typed reader or writer over one file. Numbers are little-endian and have no alignment.
///
/// A file opened for reading is taken into memory in one go, and the stream reads from there; a
/// file opened for writing is a new one that takes the place of the old in CloseFile. Places count
/// bytes from 1.
///
/// Every read and write on a stream that isn't open raises RaisedError with the Source
/// "FileStream.ValidateFileHandle". What goes wrong on the disk is thrown as PlatformError.
class VBFileStream {
 public:
  enum class Access { Read, Replace };

  /// Keeps a reference to `files`.
  explicit VBFileStream(Files& files) : files_(files) {}

  /// Opens `Filename`, with the current place on its first byte; a file that this stream had open
  /// is dropped first, as by the destructor. Access::Read needs a file that exists and changes
  /// nothing on the disk.
  ///
  /// Raises RaisedError with the Source "VBFileStream.CreateFile" for a blank name and for a file
  /// of 2 GiB or more.
  void OpenFile(TextView Filename, Access access);

  /// Opens a file that is written in memory alone, for TakeWritten.
  void OpenMemory();

  /// Gives the bytes that were written since OpenMemory, and closes the stream.
  FileText TakeWritten();

  /// Closes the stream. A file that was written takes its place: when this returns the file is
  /// whole, and when it throws the old file stands as it was. Without this call the destructor
  /// drops what was written. Does nothing on a closed stream.
  void CloseFile();

  /// The name of the open file; empty when closed.
  const Text& Filename() const { return filename_; }

  /// Length of the file in bytes, while writing of what has been written; 0 when closed.
  std::int32_t FileSize() const;

  /// The place of the next read or write; 0 when closed.
  std::int64_t CurrentFilePos() const;

  /// Reads 4 bytes; the current place moves behind them. What isn't in the file counts as 0 bytes.
  std::int32_t ReadLong();

  /// Moves the place of the next read on by `Count` bytes, also past the end of the file.
  void Skip(std::uint32_t Count);

  /// Reads a string at the current place up to its terminator, which is consumed. A `Count` above 0
  /// is an upper bound on the units read, terminator included. The end of the file counts as a
  /// terminator.
  Text ReadString(StringType Type, std::int32_t Count = -1);

  /// Moves behind the string at the current place, and gives where it begins in what TakeFile
  /// gives.
  std::uint32_t PassString(StringType Type);

  /// Gives the bytes of the file away, with kEndBytes 0 bytes behind them, and closes the stream.
  FileText TakeFile();

  /// Both write at the end of the file. WriteString writes the bytes of a string and adds the
  /// terminator of its form. A file that would pass 2 GiB raises RaisedError with the Source
  /// "VBFileStream.Write".
  void WriteLong(std::int32_t Value);
  void WriteString(FileTextView Bytes, StringType Type);

 private:
  void Release();
  void ReadWholeFile();
  void ValidateFileHandle(Access access) const;
  void RoomFor(std::size_t count);

  Files& files_;
  Text filename_;
  Access access_ = Access::Read;
  FileText buffer_;        ///< Reading: as TakeFile. Writing: what isn't handed on yet.
  std::size_t size_ = 0;   ///< Reading: bytes in the file. Writing: bytes handed on.
  std::size_t place_ = 0;  ///< Reading: the current place, in bytes from 0.
  std::unique_ptr<FileReplacement> replacement_;
};

}  // namespace tarvo
