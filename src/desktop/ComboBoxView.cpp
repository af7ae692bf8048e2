#include "desktop/ComboBoxView.h"

#include <QAbstractItemView>
#include <QFocusEvent>
#include <QLineEdit>
#include <algorithm>

#include "desktop/RowDelegate.h"
#include "desktop/Skin.h"

namespace tarvo {

DropDown::DropDown(QWidget* parent) : QComboBox(parent) {
  setItemDelegate(new RowDelegate(this));
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
}

void DropDown::MakeEditable() {
  setEditable(true);
  setInsertPolicy(QComboBox::NoInsert);
  setCompleter(nullptr);
  lineEdit()->installEventFilter(this);
}

/// The list is as wide as its rows, as far as the window is.
void DropDown::showPopup() {
  if (OnOpening) OnOpening();
  constexpr int kBeside = 40;  ///< For the frame and the scroll bar.
  int widest = 0;
  for (int row = 0; row < count(); ++row) {
    widest = std::max(widest, fontMetrics().horizontalAdvance(itemText(row)));
  }
  view()->setMinimumWidth(std::min(widest + kBeside, window()->width()));
  QComboBox::showPopup();
}

void DropDown::focusInEvent(QFocusEvent* event) {
  QComboBox::focusInEvent(event);
  clickedInto_ = event->reason() == Qt::MouseFocusReason;
}

bool DropDown::eventFilter(QObject* watched, QEvent* event) {
  if (clickedInto_ && watched == lineEdit() && event->type() == QEvent::MouseButtonRelease) {
    clickedInto_ = false;
    if (!lineEdit()->hasSelectedText()) lineEdit()->selectAll();
  }
  return QComboBox::eventFilter(watched, event);
}

void DropDown::SetItems(const QStringList& items) {
  const auto same = [&] {
    if (items.size() != count()) return false;
    for (int row = 0; row < count(); ++row) {
      if (itemText(row) != items[row]) return false;
    }
    return true;
  };
  if (same()) return;
  const QSignalBlocker quiet(this);
  clear();
  addItems(items);
  setCurrentIndex(-1);
}

ComboBoxView::ComboBoxView(ComboBox& model, QWidget* parent) : ViewOf(model, new DropDown(parent)) {
  face_.MakeEditable();
  // A typed text that happens to be an item isn't a picked one.
  QLineEdit& line = *face_.lineEdit();
  QObject::disconnect(&line, &QLineEdit::editingFinished, &face_, nullptr);
  QObject::disconnect(&line, &QLineEdit::returnPressed, &face_, nullptr);

  face_.OnOpening = [this] {
    if (!Live()) return;
    model_.DropDown();
    Apply();
  };
  QObject::connect(&line, &QLineEdit::textEdited, &face_, [this](const QString& text) {
    if (Live()) model_.SetText(FromQt(text));
  });
  QObject::connect(&face_, &QComboBox::activated, &face_, [this](int row) {
    const auto at = static_cast<std::size_t>(row);
    if (Live() && at < model_.Count()) model_.Pick(at);
  });
}

void ComboBoxView::Apply() {
  QStringList items;
  for (std::size_t row = 0; row < model_.Count(); ++row) items << ToQt(model_.Item(row));
  face_.SetItems(items);
  const QString text = ToQt(model_.Text());
  if (face_.currentText() != text) {
    const QSignalBlocker quiet(&face_);
    QLineEdit& line = *face_.lineEdit();
    const int cursor = line.cursorPosition();
    face_.setCurrentIndex(face_.findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive));
    face_.setEditText(text);
    line.setCursorPosition(line.hasFocus() ? std::min<int>(cursor, text.size()) : 0);
  }
  ApplyMark(*face_.lineEdit());
  ApplyFieldColours();
  ApplyCommon();
}

DriveListBoxView::DriveListBoxView(DriveListBox& model, QWidget* parent)
    : ViewOf(model, new DropDown(parent)) {
  QObject::connect(&face_, &QComboBox::activated, &face_, [this](int row) {
    const auto at = static_cast<std::size_t>(row);
    if (Live() && model_.Usable() && at < model_.Drives().size()) {
      model_.SetDrive(Text(model_.Drives()[at]));
    }
  });
}

void DriveListBoxView::Apply() {
  QStringList items;
  for (const Text& drive : model_.Drives()) items << ToQt(drive);
  face_.SetItems(items);
  face_.setCurrentIndex(face_.findText(ToQt(model_.Drive())));
  ApplyFieldColours();
  ApplyCommon();
}

}  // namespace tarvo
