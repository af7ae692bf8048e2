#include "desktop/UndoKey.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace tarvo {
namespace {

/// True when the field that has the keyboard can take back what was typed in it.
bool CanTakeBack(QWidget* widget) {
  if (const auto* box = qobject_cast<QComboBox*>(widget)) widget = box->lineEdit();
  if (const auto* line = qobject_cast<QLineEdit*>(widget)) return line->isUndoAvailable();
  const auto* lines = qobject_cast<QPlainTextEdit*>(widget);
  return lines && lines->document()->isUndoAvailable();
}

}  // namespace

UndoKey::UndoKey(std::function<bool(bool)> undo) : undo_(std::move(undo)) {
  QCoreApplication::instance()->installEventFilter(this);
}

bool UndoKey::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
  const auto& key = static_cast<const QKeyEvent&>(*event);
  if (!key.matches(QKeySequence::Undo) || key.isAutoRepeat()) return false;
  return undo_(CanTakeBack(QApplication::focusWidget()));
}

}  // namespace tarvo
