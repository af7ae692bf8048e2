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

  /// The row that the user stands on, from 0; -1 as long as there are no rows. SetPath leads it to
  /// the row of the folder itself.
  int ListIndex() const { return listIndex_; }

  /// The folder of that row, open or not; empty as long as there are no rows.
  Text ListedFolder() const;

  /// The user comes to a row. It isn't opened.
  void Click(std::size_t row);

  /// The user opens a row. A folder that can't be opened leaves the list as it was.
  void OpenRow(std::size_t row);

  /// The user goes up: from a subfolder to the row of the folder itself, else he opens the row
  /// above.
  void GoUp();

  std::function<void()> OnChange;
  std::function<void()> OnClick;  ///< The user came to a row.

 private:
  Files& files_;
  Text path_;
  std::vector<Row> rows_;
  int listIndex_ = -1;
};

}  // namespace tarvo
