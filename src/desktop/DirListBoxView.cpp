#include "desktop/DirListBoxView.h"

#include "desktop/RowDelegate.h"
#include "desktop/Skin.h"

namespace tarvo {

void FolderRows::Reload() {
  beginResetModel();
  count_ = list_ ? static_cast<int>(list_->Rows().size()) : 0;
  endResetModel();
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
    case kDeepestRole:
      return list_->Rows().back().Depth;
    case kOpenRole:
      return row.Open;
    case kAtHandRole:
      return row.Path == list_->Path();
    default:
      return {};
  }
}

DirListBoxView::DirListBoxView(DirListBox& model, QWidget* parent)
    : ViewOf(model, new RowsWidget(parent)), rows_(model) {
  face_.setModel(&rows_);
  const auto onRow = [this](void (DirListBox::*act)(std::size_t)) {
    return [this, act](int row) {
      const auto at = static_cast<std::size_t>(row);
      if (Live() && at < model_.Rows().size()) (model_.*act)(at);
    };
  };
  face_.OnPressed = onRow(&DirListBox::Click);
  face_.OnWalked = face_.OnPressed;
  face_.OnOpened = onRow(&DirListBox::OpenRow);
  face_.OnUp = [this] {
    if (Live()) model_.GoUp();
  };
}

void DirListBoxView::Detach() {
  View::Detach();
  rows_.LetGo();
}

void DirListBoxView::Apply() {
  ApplyFieldColours();
  ApplyCommon();
  const bool reread = model_.Rows() != shownRows_;
  if (reread) {
    shownRows_ = model_.Rows();
    rows_.Reload();
    face_.doItemsLayout();
  }
  if (reread || model_.ListIndex() != shownIndex_) {
    shownIndex_ = model_.ListIndex();
    const QModelIndex row = rows_.index(shownIndex_);
    face_.SetCurrentRow(shownIndex_);
    face_.selectionModel()->select(row, QItemSelectionModel::ClearAndSelect);
    // A folder with as many of its subfolders as there is room for, and its parents above it.
    face_.scrollTo(row,
                   reread ? QAbstractItemView::PositionAtCenter : QAbstractItemView::EnsureVisible);
  }
  face_.viewport()->update();
}

}  // namespace tarvo
