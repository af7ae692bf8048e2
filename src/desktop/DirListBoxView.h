#pragma once

#include <QAbstractListModel>

#include "controls/DirListBox.h"
#include "desktop/RowsWidget.h"
#include "desktop/View.h"

namespace tarvo {

/// Lets Qt read the rows of a folder list. It knows as many rows as there were at the last Reload.
class FolderRows : public QAbstractListModel {
 public:
  explicit FolderRows(const DirListBox& list) : list_(&list) {}

  void Reload();
  void LetGo() { list_ = nullptr; }

  int rowCount(const QModelIndex& parent) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  const DirListBox* list_;
  int count_ = 0;
};

class DirListBoxView : public ViewOf<DirListBox, RowsWidget> {
 public:
  DirListBoxView(DirListBox& model, QWidget* parent);
  void Apply() override;
  void Detach() override;

 private:
  FolderRows rows_;
  std::vector<DirListBox::Row> shownRows_;
  int shownIndex_ = -1;
};

}  // namespace tarvo
