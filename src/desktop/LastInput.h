#pragma once

#include <QObject>

class QApplication;
class QKeyEvent;

namespace tarvo {

/// Knows of the last key or button pressed anywhere in the program: whether the user works by
/// keyboard or by pointer, and whether he holds a key down.
class LastInput : public QObject {
 public:
  /// Begins to watch; to be called once.
  static void Watch(QApplication& application);

  static bool WasKey() { return key_; }

  /// Whether the last press of a key was the repetition of one that is held. What the system calls
  /// so may be a stroke of its own: where a key was let go between two windows nobody was told.
  static bool WasRepetition() { return repetition_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  using QObject::QObject;

  static void Note(const QKeyEvent& press);

  static bool key_;
  static bool repetition_;
  static int held_;  ///< The key pressed last, if no button was since.
};

}  // namespace tarvo
