#pragma once

#include <QAbstractListModel>
#include <memory>

#include "controls/ListBox.h"
#include "desktop/RowsWidget.h"
#include "desktop/View.h"

namespace tarvo {

/// Lets Qt read the rows of a list. It knows as many rows as there were at the last Reload.
class ListRows : public QAbstractListModel {
 public:
  explicit ListRows(const ListBox& list) : list_(&list) {}

  void Reload();
  void LetGo() { list_ = nullptr; }

  int rowCount(const QModelIndex& parent) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  const ListBox* list_;
  int count_ = 0;
};

/// List boxes and file lists.
class ListBoxView : public ViewOf<ListBox, RowsWidget> {
 public:
  ListBoxView(ListBox& model, QWidget* parent);
  void Apply() override;
  void Noticed() override;
  void Detach() override;

 private:
  void ApplyRows();
  void ApplySelection();

  ListRows rows_;
  std::uint64_t shownRows_ = 0;  ///< ListBox::RowsVersion of what is shown.
  int shownIndex_ = -1;
  bool emptied_ = false;  ///< The list was empty in between: it starts at its top again.
};

}  // namespace tarvo
