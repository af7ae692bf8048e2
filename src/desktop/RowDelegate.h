#pragma once

#include <QStyledItemDelegate>

namespace tarvo {

/// Roles of rows beside their text.
enum RowRole {
  kDepthRole = Qt::UserRole,  ///< Steps of indentation of a folder; rows without one are plain.
  kDeepestRole,               ///< The most of them in this list.
  kOpenRole,                  ///< The folder is open, that is, one of the way to the current one.
  kAtHandRole,                ///< The folder whose subfolders the list shows.
};

/// Paints the rows of all lists: the chosen ones in the text's colour on its ground reversed, the
/// row under the mouse lit a little, as is the folder at hand, and a ring around the one that the
/// keyboard stands on.
class RowDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override;
  bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
};

}  // namespace tarvo
