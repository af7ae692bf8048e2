#include "desktop/RowsWidget.h"

#include <QKeyEvent>
#include <QMouseEvent>

#include "desktop/RowDelegate.h"

namespace tarvo {

RowsWidget::RowsWidget(QWidget* parent) : QListView(parent) {
  setItemDelegate(new RowDelegate(this));
  setUniformItemSizes(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollMode(QAbstractItemView::ScrollPerItem);  // The first row in sight is whole.
  setSelectionMode(QAbstractItemView::NoSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setTabKeyNavigation(false);
  viewport()->setAttribute(Qt::WA_Hover);
}

void RowsWidget::SetCurrentRow(int row) {
  setAutoScroll(false);
  const QModelIndex index = row < 0 ? QModelIndex() : model()->index(row, 0);
  selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
  setAutoScroll(true);
}

void RowsWidget::mousePressEvent(QMouseEvent* event) {
  const QModelIndex index = indexAt(event->pos());
  if (event->button() != Qt::LeftButton || !index.isValid()) return;
  setCurrentIndex(index);
  if (OnPressed) OnPressed(index.row());
}

// The base class would drag, and choose rows on the way.
void RowsWidget::mouseMoveEvent(QMouseEvent*) {}
void RowsWidget::mouseReleaseEvent(QMouseEvent*) {}

void RowsWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  if (!OnOpened) {
    mousePressEvent(event);  // Two quick clicks are two clicks.
    return;
  }
  const QModelIndex index = indexAt(event->pos());
  if (event->button() == Qt::LeftButton && index.isValid()) OnOpened(index.row());
}

void RowsWidget::keyPressEvent(QKeyEvent* event) {
  const int before = currentIndex().row();
  if (OnUp && (event->key() == Qt::Key_Backspace || event->key() == Qt::Key_Left)) {
    OnUp();
    return;
  }
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
                     (OnUp && event->key() == Qt::Key_Right);
  if (enter && OnOpened) {
    if (before >= 0) OnOpened(before);
    return;
  }
  if ((event->key() == Qt::Key_Space || enter) && event->modifiers() == Qt::NoModifier) {
    if (before >= 0 && OnPressed) OnPressed(before);
    return;
  }
  // With nothing chosen yet, the first step chooses the row that the keyboard stands on.
  const bool steps = event->key() == Qt::Key_Down || event->key() == Qt::Key_Up;
  if (steps && OnWalked && before >= 0 && !selectionModel()->hasSelection()) {
    OnWalked(before);
    return;
  }
  QListView::keyPressEvent(event);
  const int now = currentIndex().row();
  if (now != before && now >= 0 && OnWalked) OnWalked(now);
}

}  // namespace tarvo
