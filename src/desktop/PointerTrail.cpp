#include "desktop/PointerTrail.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCursor>
#include <QMouseEvent>
#include <algorithm>
#include <cstdlib>

#include "desktop/PointerWatch.h"

namespace tarvo {
namespace {

/// The child of that kind; nothing where there is none.
template <class Kind>
Kind* ChildOf(const QObject& parent) {
  for (QObject* child : parent.children()) {
    if (auto* found = dynamic_cast<Kind*>(child)) return found;
  }
  return nullptr;
}

void Cross(const QWidget* widget) {
  if (!widget || qobject_cast<const QAbstractButton*>(widget)) return;
  if (auto* watch = ChildOf<PointerWatch>(*widget)) watch->Crossed();
}

}  // namespace

PointerTrail::PointerTrail(QWidget& window) : QObject(&window), window_(window) {
  qApp->installEventFilter(this);
}

void PointerTrail::Follow(QWidget& window) {
  if (!ChildOf<PointerTrail>(window)) new PointerTrail(window);
}

/// It comes before the widget that the pointer enters hears of that.
bool PointerTrail::eventFilter(QObject* watched, QEvent* event) {
  const auto* widget = qobject_cast<QWidget*>(watched);
  if (!widget || widget->window() != &window_) return false;
  if (event->type() == QEvent::Enter || event->type() == QEvent::MouseMove) {
    const auto& seen = static_cast<const QSinglePointEvent&>(*event);
    if (seen.buttons() != Qt::NoButton) return false;  // What was pressed has the pointer.
    GoTo(window_.mapFromGlobal(seen.globalPosition().toPoint()));
  } else if (event->type() == QEvent::Leave && widget == &window_) {
    GoTo(window_.mapFromGlobal(QCursor::pos()));
    // Under a window that has come over this one, it is still where it was.
    if (!window_.rect().contains(*last_)) last_.reset();
  }
  return false;
}

void PointerTrail::GoTo(QPoint place) {
  const QPoint from = last_.value_or(place);
  last_ = place;
  const QPoint way = place - from;
  const int steps = std::max(std::abs(way.x()), std::abs(way.y()));
  const QWidget* before = nullptr;
  for (int step = 1; step < steps; ++step) {
    const QWidget* widget = window_.childAt(from + way * step / steps);
    if (widget != before) Cross(widget);
    before = widget;
  }
}

}  // namespace tarvo
