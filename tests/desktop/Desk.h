#pragma once

#include <gtest/gtest.h>

#include <QColor>
#include <QPoint>
#include <QStringList>
#include <functional>

#include "SampleForms.h"
#include "controls/Screens.h"
#include "desktop/QtForms.h"

class QWidget;

namespace tarvo::test {

/// Real windows on a real display, and hands that know no shortcut: pointer and keys come from a
/// program of their own by way of the X server.
class Desk : public testing::Test {
 protected:
  Desk();
  ~Desk() override;

  /// Turns an event loop, the outermost one, until `done`; false when that takes too long.
  static bool Until(const std::function<bool()>& done, int milliseconds = 4000);
  static void Turn(int milliseconds);

  /// Moves the pointer and keys, while an event loop turns.
  static void Hands(const QStringList& doings);
  void Click(const Control& control, QPoint offset = {});
  void ClickRow(const Control& list, int row, int times = 1);
  static void Key(const QString& key) { Hands({"key", key}); }

  /// Shows the work form and waits until it has the keyboard.
  WorkForm& ShowWork();

  QWidget* WindowOf(const Form& form);
  QPoint Middle(const Control& control);

  /// A pixel as the X server has it, read with no event loop turning.
  static QColor Pixel(QPoint place);

  MemoryFiles files_;
  QtForms forms_;
  Screens screens_{forms_};
};

/// What Qt has complained of so far; reading it forgets it.
QStringList TakeComplaints();
void ListenForComplaints();

}  // namespace tarvo::test
