#include "desktop/RowDelegate.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>

#include "desktop/Skin.h"

namespace tarvo {
namespace {

constexpr int kSideRoom = 8;
constexpr int kRoomAboveAndBelow = 8;
constexpr int kIndentation = 12;
constexpr int kFolderWidth = 22;  ///< The mark and the room behind it.
constexpr int kLeastText = 64;    ///< Of the name of the deepest folder.

bool IsFolder(const QModelIndex& index) {
  return index.data(kDepthRole).isValid();
}

/// A list that scrolls before it is shown takes the pointer to be over it, wherever that is.
bool IsUnderPointer(const QStyleOptionViewItem& option) {
  const auto* list = qobject_cast<const QAbstractItemView*>(option.widget);
  return (option.state & QStyle::State_MouseOver) && (!list || list->viewport()->underMouse());
}

/// In a narrow list the steps of a deep tree are shorter, so that there is room for all of them.
int Indentation(const QStyleOptionViewItem& option, const QModelIndex& index) {
  const int deepest = std::max(1, index.data(kDeepestRole).toInt());
  const int room = option.rect.width() - 2 * kSideRoom - kFolderWidth - kLeastText;
  const int most = std::clamp(room, deepest, deepest * kIndentation);
  return index.data(kDepthRole).toInt() * most / deepest;
}

QRect TextArea(const QStyleOptionViewItem& option, const QModelIndex& index) {
  const int mark = IsFolder(index) ? Indentation(option, index) + kFolderWidth : 0;
  return option.rect.adjusted(kSideRoom + mark, 0, -kSideRoom, 0);
}

/// A folder with its tab; an open one is outlined, a closed one filled.
void DrawFolder(QPainter& painter, const QPointF& corner, const QColor& colour, bool open) {
  QPainterPath folder;
  folder.moveTo(0, 1.5);
  folder.quadTo(0, 0, 1.5, 0);
  folder.lineTo(5, 0);
  folder.lineTo(6.5, 2);
  folder.lineTo(12.5, 2);
  folder.quadTo(14, 2, 14, 3.5);
  folder.lineTo(14, 9.5);
  folder.quadTo(14, 11, 12.5, 11);
  folder.lineTo(1.5, 11);
  folder.quadTo(0, 11, 0, 9.5);
  folder.closeSubpath();
  folder.translate(corner + QPointF(0.5, 0.5));
  painter.setPen(QPen(colour, 1.2));
  painter.setBrush(open ? Qt::NoBrush : QBrush(colour));
  painter.drawPath(folder);
}

}  // namespace

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
  const QColor ground = option.palette.color(QPalette::Base);
  const QColor text = option.palette.color(QPalette::Text);
  const bool chosen = (option.state & QStyle::State_Selected) ||
                      index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
  const bool hovered = IsUnderPointer(option);
  const QColor ink = chosen ? option.palette.color(QPalette::HighlightedText) : text;

  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  const QRectF bar = QRectF(option.rect).adjusted(1, 0.5, -1, -0.5);
  const bool atHand = index.data(kAtHandRole).toBool();
  if (chosen || hovered || atHand) {
    painter->setPen(Qt::NoPen);
    painter->setBrush(chosen ? Mix(text, ground, hovered ? 0 : 0.12)
                             : Mix(ground, text, hovered && atHand ? 0.32 : 0.16));
    painter->drawRoundedRect(bar, 3, 3);
  }
  if ((option.state & QStyle::State_HasFocus)) {
    painter->setPen(QPen(chosen ? ink : Mix(text, ground, 0.3), 1));
    painter->setBrush(Qt::NoBrush);
    const qreal inset = chosen ? 1.5 : 0.5;
    painter->drawRoundedRect(bar.adjusted(inset, inset, -inset, -inset), 3, 3);
  }
  const QRect line = TextArea(option, index);
  if (IsFolder(index)) {
    DrawFolder(*painter, {line.left() - kFolderWidth + 0.0, line.center().y() - 5.0},
               Mix(ink, chosen ? text : ground, 0.2), index.data(kOpenRole).toBool());
  }
  painter->setFont(option.font);
  painter->setPen(ink);
  painter->drawText(
      line, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
      option.fontMetrics.elidedText(index.data().toString(), Qt::ElideRight, line.width()));
  painter->restore();
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
  return {0, option.fontMetrics.height() + kRoomAboveAndBelow};
}

bool RowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                            const QStyleOptionViewItem& option, const QModelIndex& index) {
  if (event->type() != QEvent::ToolTip || !index.isValid()) return false;
  const QString text = index.data().toString();
  const bool fits = option.fontMetrics.horizontalAdvance(text) <= TextArea(option, index).width();
  QToolTip::showText(event->globalPos(), fits ? QString() : text, view);
  return true;
}

bool RowDelegate::editorEvent(QEvent*, QAbstractItemModel*, const QStyleOptionViewItem&,
                              const QModelIndex&) {
  return false;
}

}  // namespace tarvo
