#pragma once

#include <cstddef>

#include "controls/Control.h"

namespace tarvo {

class Files;

/// A folder with its parents above it and its subfolders below, to walk the tree with.
class DirListBox : public Control {
 public:
  /// One row: a parent, the folder itself, or a subfolder.
  struct Row {
    Text Name;  ///< Bare name; "Z:\" for a drive's root.
    Text Path;
    int Depth;  ///< 0 for the root.
    bool Open;  ///< The folder itself and its parents.

    friend bool operator==(const Row&, const Row&) = default;
  };

  DirListBox(Control* parent, Files& files) : Control(parent), files_(files) {}
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  /// Without a backslash at its end, but for a drive's root. Empty until it was first set.
  const Text& Path() const { return path_; }

  /// By program or by the user. Raises an error, and keeps the old folder, when the new one
  /// doesn't exist or can't be read; another folder than before raises OnChange. A backslash at
  /// the end is ignored.
  void SetPath(TextView path);

  const std::vector<Row>& Rows() const { return rows_; }

  /// The user opens a row. A folder that can't be opened leaves the list as it was.
  void OpenRow(std::size_t row);

  std::function<void()> OnChange;

 private:
  Files& files_;
  Text path_;
  std::vector<Row> rows_;
};

}  // namespace tarvo
