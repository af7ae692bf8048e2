#include "desktop/ListBoxView.h"

#include <QScrollBar>

#include "desktop/Skin.h"

namespace tarvo {

void ListRows::Reload() {
  beginResetModel();
  count_ = list_ ? static_cast<int>(list_->Count()) : 0;
  endResetModel();
}

int ListRows::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : count_;
}

QVariant ListRows::data(const QModelIndex& index, int role) const {
  const auto row = static_cast<std::size_t>(index.row());
  if (!list_ || row >= list_->Count()) return {};
  if (role == Qt::DisplayRole) return Printable(list_->Item(row));
  if (role == Qt::CheckStateRole && list_->MultiSelect()) {
    return list_->Selected(row) ? Qt::Checked : Qt::Unchecked;
  }
  return {};
}

Qt::ItemFlags ListRows::flags(const QModelIndex&) const {
  const Qt::ItemFlags plain = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
  return list_ && list_->MultiSelect() ? plain | Qt::ItemIsUserCheckable : plain;
}

ListBoxView::ListBoxView(ListBox& model, QWidget* parent)
    : ViewOf(model, new RowsWidget(parent)), rows_(model) {
  face_.setModel(&rows_);
  const auto click = [this](int row) {
    const auto at = static_cast<std::size_t>(row);
    if (Live() && at < model_.Count()) model_.Click(at);
  };
  face_.OnPressed = click;
  if (!model.MultiSelect()) face_.OnWalked = click;
}

void ListBoxView::Noticed() {
  emptied_ = emptied_ || model_.Count() == 0;
}

void ListBoxView::Detach() {
  View::Detach();
  rows_.LetGo();
}

void ListBoxView::Apply() {
  ApplyFieldColours();
  ApplyCommon();
  if (model_.RowsVersion() != shownRows_) ApplyRows();
  ApplySelection();
  if (const auto row = model_.TakeRowToShow()) {
    face_.scrollTo(rows_.index(static_cast<int>(*row)));
  }
  emptied_ = false;
  face_.viewport()->update();
}

void ListBoxView::ApplyRows() {
  const int scroll = emptied_ ? 0 : face_.verticalScrollBar()->value();
  const int current = emptied_ ? -1 : face_.currentIndex().row();
  rows_.Reload();
  shownRows_ = model_.RowsVersion();
  const int last = rows_.rowCount({}) - 1;
  face_.SetCurrentRow(std::min(current, last));
  face_.doItemsLayout();
  face_.verticalScrollBar()->setValue(scroll);
}

void ListBoxView::ApplySelection() {
  if (model_.ListIndex() != shownIndex_) {
    shownIndex_ = model_.ListIndex();
    face_.SetCurrentRow(shownIndex_);
  }
  if (model_.MultiSelect()) return;  // Rows of a Toggle list tell their state themselves.
  const auto index = static_cast<std::size_t>(shownIndex_);
  if (shownIndex_ >= 0 && model_.Selected(index)) {
    face_.selectionModel()->select(rows_.index(shownIndex_), QItemSelectionModel::ClearAndSelect);
  } else {
    face_.selectionModel()->clearSelection();
  }
}

}  // namespace tarvo
