#pragma once

#include <QObject>

class QWidget;

namespace tarvo {

class View;

/// Tells a control of the pointer that comes onto its widget or moves on it. It goes with the
/// widget.
class PointerWatch : public QObject {
 public:
  PointerWatch(View& view, QWidget& widget);

  /// The pointer has crossed the widget, too fast to be seen on it.
  void Crossed();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  View& view_;
  QWidget& widget_;
};

}  // namespace tarvo
