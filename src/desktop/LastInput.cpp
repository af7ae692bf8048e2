#include "desktop/LastInput.h"

#include <QApplication>
#include <QEvent>

namespace tarvo {

bool LastInput::key_ = false;

void LastInput::Watch(QApplication& application) {
  application.installEventFilter(new LastInput(&application));
}

bool LastInput::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::KeyPress) key_ = true;
  if (event->type() == QEvent::MouseButtonPress) key_ = false;
  return false;
}

}  // namespace tarvo
