#include "desktop/LastInput.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>

namespace tarvo {
namespace {

/// Longer than any keyboard waits before it repeats a key.
constexpr qint64 kLongestWaitMs = 1500;

}  // namespace

bool LastInput::key_ = false;
bool LastInput::repetition_ = false;
int LastInput::held_ = 0;

void LastInput::Watch(QApplication& application) {
  application.installEventFilter(new LastInput(&application));
}

bool LastInput::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    key_ = true;
    // A stroke comes to its window before it comes to the widgets there, one behind the other.
    if (watched->isWindowType()) Note(static_cast<const QKeyEvent&>(*event));
  }
  if (event->type() == QEvent::MouseButtonPress) {
    key_ = false;
    held_ = 0;
  }
  return false;
}

void LastInput::Note(const QKeyEvent& press) {
  static QElapsedTimer sinceLast;
  repetition_ =
      press.isAutoRepeat() && press.key() == held_ && !sinceLast.hasExpired(kLongestWaitMs);
  held_ = press.key();
  sinceLast.start();
}

}  // namespace tarvo
