#pragma once

#include <QObject>

class QApplication;

namespace tarvo {

/// Knows whether the user works by keyboard or by pointer: of the last key or button pressed
/// anywhere in the program.
class LastInput : public QObject {
 public:
  /// Begins to watch; to be called once.
  static void Watch(QApplication& application);

  static bool WasKey() { return key_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  using QObject::QObject;

  static bool key_;
};

}  // namespace tarvo
