#include "desktop/DirListBoxView.h"

#include <QScrollBar>

#include "desktop/RowDelegate.h"
#include "desktop/Skin.h"

namespace tarvo {

void FolderRows::Reload() {
  beginResetModel();
  count_ = list_ ? static_cast<int>(list_->Rows().size()) : 0;
  endResetModel();
}

int FolderRows::RowOf(const Text& path) const {
  const auto& rows = list_->Rows();
  for (int row = 0; row < count_; ++row) {
    if (rows[static_cast<std::size_t>(row)].Path == path) return row;
  }
  return -1;
}

int FolderRows::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : count_;
}

QVariant FolderRows::data(const QModelIndex& index, int role) const {
  const auto at = static_cast<std::size_t>(index.row());
  if (!list_ || at >= list_->Rows().size()) return {};
  const DirListBox::Row& row = list_->Rows()[at];
  switch (role) {
    case Qt::DisplayRole:
      return ToQt(row.Name);
    case kDepthRole:
      return row.Depth;
    case kOpenRole:
      return row.Open;
    default:
      return {};
  }
}

DirListBoxView::DirListBoxView(DirListBox& model, QWidget* parent)
    : ViewOf(model, new RowsWidget(parent)), rows_(model) {
  face_.setModel(&rows_);
  face_.OnOpened = [this](int row) {
    const auto at = static_cast<std::size_t>(row);
    if (Live() && at < model_.Rows().size()) model_.OpenRow(at);
  };
}

void DirListBoxView::Detach() {
  View::Detach();
  rows_.LetGo();
}

void DirListBoxView::Apply() {
  ApplyFieldColours();
  ApplyCommon();
  if (model_.Rows() != shownRows_) ApplyRows();
  face_.viewport()->update();
}

void DirListBoxView::ApplyRows() {
  const bool moved = model_.Path() != shownPath_;
  const int scroll = face_.verticalScrollBar()->value();
  const auto at = static_cast<std::size_t>(face_.currentIndex().row());
  const Text stoodOn = !moved && at < shownRows_.size() ? shownRows_[at].Path : model_.Path();
  shownRows_ = model_.Rows();
  shownPath_ = model_.Path();
  rows_.Reload();
  face_.doItemsLayout();
  face_.SetCurrentRow(rows_.RowOf(stoodOn));
  const QModelIndex folder = rows_.index(rows_.RowOf(shownPath_));
  face_.selectionModel()->select(folder, QItemSelectionModel::ClearAndSelect);
  if (moved) {
    // The folder with as many of its subfolders as there is room for, and its parents above it.
    face_.scrollTo(folder, QAbstractItemView::PositionAtCenter);
  } else {
    face_.verticalScrollBar()->setValue(scroll);
  }
}

}  // namespace tarvo
