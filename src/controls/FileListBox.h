#pragma once

#include "controls/ListBox.h"

namespace tarvo {

class Files;

/// The files of a folder that match a pattern, as of the last refresh, sorted without regard to
/// case.
class FileListBox : public ListBox {
 public:
  FileListBox(Control* parent, Files& files, Selection selection, Text pattern = u"*")
      : ListBox(parent, selection), files_(files), pattern_(std::move(pattern)) {}
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  /// Without a backslash at its end, but for a drive's root. Empty until it was first set.
  const Text& Path() const { return path_; }

  /// Shows another folder. Raises an error, and keeps the old one, when it doesn't exist; throws
  /// PlatformError, with no files shown, when it can't be read.
  void SetPath(TextView path);

  /// Shows other files of the folder from the next Reload on.
  void SetPattern(Text pattern) { pattern_ = std::move(pattern); }

  /// Reads the folder anew; no row is selected then. A folder that has gone shows no files, and so
  /// does one that can't be read, with a PlatformError thrown.
  void Reload();

 private:
  Files& files_;
  Text pattern_;
  Text path_;
};

}  // namespace tarvo
