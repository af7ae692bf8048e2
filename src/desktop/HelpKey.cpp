#include "desktop/HelpKey.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace tarvo {

HelpKey::HelpKey(std::function<void()> showHelp) : showHelp_(std::move(showHelp)) {
  QCoreApplication::instance()->installEventFilter(this);
}

bool HelpKey::eventFilter(QObject*, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const auto& key = static_cast<const QKeyEvent&>(*event);
  if (key.key() != Qt::Key_F1 || key.modifiers() != Qt::NoModifier) return false;
  // Showing help may tell something in a message box, where F1 is hit again.
  if (showing_ || key.isAutoRepeat()) return true;
  showing_ = true;
  showHelp_();
  showing_ = false;
  return true;
}

}  // namespace tarvo
