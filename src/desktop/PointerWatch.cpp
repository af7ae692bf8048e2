#include "desktop/PointerWatch.h"

#include <QMouseEvent>
#include <QWidget>

#include "desktop/PointerTrail.h"
#include "desktop/View.h"

namespace tarvo {

PointerWatch::PointerWatch(View& view, QWidget& widget)
    : QObject(&widget), view_(view), widget_(widget) {
  widget.setMouseTracking(true);
  widget.installEventFilter(this);
  PointerTrail::Follow(*widget.window());
}

void PointerWatch::Crossed() {
  if (view_.Live()) view_.Shown().MoveMouse();
}

/// A move with no button held ends here: what lies behind would take it for its own.
bool PointerWatch::eventFilter(QObject*, QEvent* event) {
  const bool enters = event->type() == QEvent::Enter;
  if ((!enters && event->type() != QEvent::MouseMove) || !view_.Live()) return false;
  const auto& moved = static_cast<const QSinglePointEvent&>(*event);
  if (widget_.rect().contains(moved.position().toPoint())) view_.Shown().MoveMouse();
  return !enters && moved.buttons() == Qt::NoButton;
}

}  // namespace tarvo
