#include "desktop/Updates.h"

#include <QCoreApplication>
#include <QEvent>
#include <algorithm>

#include "desktop/View.h"

namespace tarvo {
namespace {

constexpr std::chrono::milliseconds kPaintInterval{16};

using Clock = std::chrono::steady_clock;

}  // namespace

void Updates::Watch(View& view) {
  Control& control = view.Shown();
  const auto [at, added] = entries_.insert_or_assign(&control, Entry{&view});
  control.Observe(this);
  MarkDirty(at->second);
}

void Updates::Forget(View& view) {
  Control& control = view.Shown();
  control.Observe(nullptr);
  entries_.erase(&control);
}

void Updates::Drop() {
  for (const auto& [control, entry] : entries_) entry.view->Detach();
  entries_.clear();
  dirty_.clear();
  overdue_.clear();
}

void Updates::ApplyAll() {
  // Parents were watched after their children, so a form comes on the screen complete. What gets
  // dirty on the way waits for the next turn.
  std::vector<const Control*> batch;
  batch.swap(dirty_);
  overdue_.clear();
  for (const Control* control : batch) {
    if (Entry* entry = Find(*control)) Apply(*entry);
  }
}

bool Updates::event(QEvent* event) {
  if (event->type() != QEvent::User) return QObject::event(event);
  posted_ = false;
  ApplyAll();
  return true;
}

void Updates::ControlChanged(Control& control) {
  Entry* entry = Find(control);
  if (!entry) return;
  entry->view->Noticed();
  MarkDirty(*entry);
  if (entry->view->PaintsAtOnce()) PaintNow(*entry);
}

void Updates::ControlRefreshed(Control& control) {
  if (Entry* entry = Find(control)) PaintNow(*entry);
}

void Updates::ControlFocused(Control& control) {
  if (Entry* entry = Find(control); entry && OnFocus) OnFocus(*entry->view);
}

void Updates::MarkDirty(Entry& entry) {
  if (entry.dirty) return;
  entry.dirty = true;
  dirty_.push_back(&entry.view->Shown());
  if (posted_) return;
  posted_ = true;
  QCoreApplication::postEvent(this, new QEvent(QEvent::User), Qt::LowEventPriority);
}

void Updates::Apply(Entry& entry) {
  entry.overdue = false;
  if (!entry.dirty) return;
  entry.dirty = false;
  entry.view->Apply();
}

void Updates::ApplyTree(const Control& control) {
  for (const Control* child : control.Children()) ApplyTree(*child);
  if (Entry* entry = Find(control)) Apply(*entry);
}

void Updates::PaintNow(Entry& entry) {
  const Moment now = Clock::now();
  const auto paint = [&](Entry& due) {
    const Control& control = due.view->Shown();
    ApplyTree(control);
    for (const Control* up = control.Parent(); up; up = up->Parent()) {
      if (Entry* above = Find(*up)) Apply(*above);
    }
    if (QWidget* widget = due.view->Widget(); widget && widget->isVisible()) widget->repaint();
    due.painted = Clock::now();
  };

  std::erase_if(overdue_, [&](const Control* control) {
    Entry* late = Find(*control);
    if (!late || !late->overdue) return true;
    if (late == &entry || now - late->painted < kPaintInterval) return false;
    paint(*late);
    return true;
  });

  if (now - entry.painted >= kPaintInterval) {
    paint(entry);
  } else if (!entry.overdue) {
    entry.overdue = true;
    overdue_.push_back(&entry.view->Shown());
  }
}

Updates::Entry* Updates::Find(const Control& control) {
  const auto found = entries_.find(&control);
  return found == entries_.end() ? nullptr : &found->second;
}

}  // namespace tarvo
