#include "desktop/QtForms.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QEventLoop>
#include <QPointer>
#include <QThread>
#include <QTimer>
#include <QWindow>
#include <algorithm>

#include "desktop/FormView.h"
#include "desktop/LabelView.h"
#include "desktop/Skin.h"
#include "desktop/ViewFactory.h"
#include "desktop/WidgetAccess.h"

namespace tarvo {

/// Destroyed by the event loop once the form's handlers have ended.
class QtForms::Record : public QObject {
 public:
  Record(Form& model, FormWidget* owner)
      : form(model),
        view(std::make_unique<FormView>(model, owner)),
        views(MakeViews(model, view->Ground())) {}

  // The widgets refer to rows in the views, so they go first.
  ~Record() override { delete view->Widget(); }

  Form& form;
  std::unique_ptr<FormView> view;
  std::vector<std::unique_ptr<View>> views;
};

namespace {

/// Keeps a modal window in front of the other windows of the program, which a click brings forward,
/// and the keyboard with it.
class Foreground : public QObject {
 public:
  explicit Foreground(QWidget* window) : window_(window) { qApp->installEventFilter(this); }

  bool eventFilter(QObject* object, QEvent* event) override {
    const auto type = event->type();
    if (type != QEvent::MouseButtonPress && type != QEvent::WindowActivate) return false;
    const auto* widget = qobject_cast<QWidget*>(object);
    if (widget && window_ && widget->window() != window_) {
      const bool clicked = type == QEvent::MouseButtonPress;
      QTimer::singleShot(0, window_, [window = window_, clicked] {
        window->raise();
        if (clicked) window->activateWindow();
      });
    }
    return false;
  }

 private:
  QPointer<QWidget> window_;
};

}  // namespace

QtForms::QtForms() {
  MakeWidgetsAccessible();
  QApplication::setQuitOnLastWindowClosed(false);
  updates_.OnFocus = [this](View& view) { Focus(view); };
  QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock,
                   &context_, [this] { DestroyClosed(); });
}

QtForms::~QtForms() {
  updates_.Drop();
  // Those that stand on others were made after them.
  while (!records_.empty()) records_.pop_back();
}

void QtForms::Made(Form& form) {
  Record* owner = form.Owner() ? Find(*form.Owner()) : nullptr;
  auto record = std::make_unique<Record>(
      form, owner ? static_cast<FormWidget*>(owner->view->Widget()) : nullptr);
  record->view->OnCloseBox = [this, &form] { screens_->Close(form); };
  for (const auto& view : record->views) updates_.Watch(*view);
  updates_.Watch(*record->view);
  records_.push_back(std::move(record));
}

void QtForms::RunModal(Form& form) {
  Record* record = Find(form);
  if (!record) return;
  record->view->BecomeModal();
  updates_.ApplyAll();
  QEventLoop loop;
  loops_.push_back({&form, &loop});
  // Some window managers give the keyboard to a blocked window that is clicked on.
  const QPointer<QWidget> window = record->view->Widget();
  const QPointer<QWidget> owner = window->parentWidget();
  const Foreground foreground(window->window());
  QObject::connect(qApp, &QGuiApplication::focusWindowChanged, &loop, [=](const QWindow* now) {
    if (!window || !window->isWindow() || !owner || !now || now != owner->windowHandle()) return;
    QTimer::singleShot(0, window, [window] { window->activateWindow(); });
  });
  loop.exec();
  std::erase_if(loops_, [&](const ModalLoop& entry) { return entry.loop == &loop; });
}

void QtForms::Closed(Form& form) {
  std::vector<Form*> standing;
  for (const auto& record : records_) {
    if (record->form.Owner() == &form) standing.push_back(&record->form);
  }
  for (Form* other : standing) screens_->Close(*other);

  const auto found = std::find_if(records_.begin(), records_.end(),
                                  [&](const auto& record) { return &record->form == &form; });
  if (found == records_.end()) return;
  Record* gone = found->release();
  records_.erase(found);
  const auto letGo = [this](View& view) {
    updates_.Forget(view);
    view.Detach();
  };
  for (const auto& view : gone->views) letGo(*view);
  letGo(*gone->view);
  closedSome_ = true;

  QWidget* widget = gone->view->Widget();
  widget->hide();
  FocusAfter(widget);
  gone->deleteLater();
  for (const ModalLoop& entry : loops_) {
    if (entry.form == &form) entry.loop->quit();
  }
  if (form.Kind() == Form::Style::Window) {
    QTimer::singleShot(0, &context_, [this] { QuitWithoutWindows(); });
  }
}

void QtForms::Quit() {
  // Posted, so that it also ends a loop that is yet to begin. QApplication::quit would ask every
  // window to close first.
  QTimer::singleShot(0, &context_, [] { QApplication::exit(); });
}

int QtForms::TextHeight(const Label& label) {
  return ToTwips(LabelPixels(label));
}

Text QtForms::HelpPage() const {
  for (auto at = records_.rbegin(); at != records_.rend(); ++at) {
    const Form& form = (*at)->form;
    if (form.Usable() && !form.HelpPage.Get().empty()) return form.HelpPage;
  }
  return {};
}

bool QtForms::Undo(bool typed) {
  for (auto at = records_.rbegin(); at != records_.rend(); ++at) {
    const Form& form = (*at)->form;
    const bool atHand = (*at)->view->Widget()->window() == QApplication::activeWindow();
    if (atHand && form.Usable()) return form.OnUndo && form.OnUndo(typed);
  }
  return false;
}

QtForms::Record* QtForms::Find(const Form& form) const {
  const auto found = std::find_if(records_.begin(), records_.end(),
                                  [&](const auto& record) { return &record->form == &form; });
  return found == records_.end() ? nullptr : found->get();
}

void QtForms::Focus(View& view) {
  updates_.ApplyAll();
  for (const auto& record : records_) {
    QWidget* widget = view.Widget();
    const bool own = record->view.get() == &view;
    const bool among = std::any_of(record->views.begin(), record->views.end(),
                                   [&](const auto& other) { return other.get() == &view; });
    if (own) record->view->FocusAnything();
    if (among && widget) record->view->Focus(widget);
  }
}

/// Where the keyboard goes when a form that had it has closed: to the topmost form of its window.
void QtForms::FocusAfter(const QWidget* closed) const {
  if (closed->isWindow()) return;
  const QWidget* window = closed->window();
  if (const QWidget* focused = window->focusWidget(); focused && focused->isVisible()) {
    if (!closed->isAncestorOf(focused)) return;
  }
  for (auto at = records_.rbegin(); at != records_.rend(); ++at) {
    const QWidget* widget = (*at)->view->Widget();
    if (widget->window() != window || !widget->isVisible() || !(*at)->form.Enabled) continue;
    (*at)->view->FocusAnything();
    return;
  }
}

void QtForms::QuitWithoutWindows() {
  const bool any = std::any_of(records_.begin(), records_.end(), [](const auto& record) {
    return record->form.Kind() == Form::Style::Window && record->form.Visible;
  });
  if (!any) Quit();
}

/// Runs before an event loop sleeps, which happens in no handler but those that wait in a loop of
/// their own: for a modal form, or for a box or menu of Qt.
void QtForms::DestroyClosed() {
  if (!closedSome_ || !loops_.empty() || QThread::currentThread()->loopLevel() > 1) return;
  closedSome_ = false;
  screens_->DestroyClosed();
}

}  // namespace tarvo
