#pragma once

#include "platform/Files.h"
#include "text/Text.h"
#include "tgl/TGLStrings.h"

namespace tarvo {

/// A text database of the game: a collection of strings bound to a file name. A change is Load,
/// work on Strings, Update with the file's own name and true; a new file is made without Load.
/// Holds no file open between calls; both Load and Update can be called any number of times.
class TGLFile {
 public:
  /// Keeps a reference to `files`.
  explicit TGLFile(Files& files) : files_(files) {}

  /// A game path, kept without the blanks before and behind it.
  void SetFilename(TextView Filename);
  const Text& Filename() const { return filename_; }

  /// The collection; the caller works on this very object. Load puts other entries into it.
  TGLStrings& Strings() { return strings_; }
  const TGLStrings& Strings() const { return strings_; }

  /// Reads the file: its strings take the place of those that stood here, in the file's order.
  /// Raises what TGLFileRep::ReadFile raises; the strings then stay as they were.
  void Load();

  /// Writes the strings to `OutputFilename`. The file there is replaced as a whole: it is the old
  /// one until the new one is complete and on the disk, and stays the old one on any failure. Of
  /// two programs that update one file at a time the later one wins whole.
  ///
  /// Raises what TGLFileRep::WriteFile raises. What goes wrong on the disk is a RaisedError with
  /// the Source "helper_CopyFile" and a Description that ends in the system's words.
  void Update(TextView OutputFilename, bool Overwrite = false);

  /// The bytes that Update writes.
  FileText Bytes() const;

 private:
  Files& files_;
  TGLStrings strings_;
  Text filename_;
};

}  // namespace tarvo
