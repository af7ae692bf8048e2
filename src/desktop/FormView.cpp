#include "desktop/FormView.h"

#include <QApplication>
#include <QCloseEvent>
#include <QPainter>

#include "controls/Button.h"
#include "desktop/LastInput.h"
#include "desktop/Skin.h"

namespace tarvo {
namespace {

/// A window that gets another size may be told of a wrong place at first, and may then jump by the
/// height of its frame. So a place counts when the window has come to rest there, and a jump soon
/// after a change of size is taken back.
constexpr int kRestMs = 50;
constexpr int kResizedMs = 300;

Qt::WindowFlags FlagsOf(Form::Style style) {
  const Qt::WindowFlags box = Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                              Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
  switch (style) {
    case Form::Style::Window:
      return Qt::Window | box | Qt::WindowMinimizeButtonHint;
    case Form::Style::Dialog:
      return Qt::Dialog | box;
    case Form::Style::Child:
      break;
  }
  return Qt::Widget;
}

bool TakesKeyboard(const QWidget& widget, const QWidget& form) {
  return (widget.focusPolicy() & Qt::TabFocus) && widget.isEnabled() && widget.isVisibleTo(&form) &&
         !widget.focusProxy();
}

}  // namespace

FormWidget::FormWidget(QWidget* parent, Qt::WindowFlags flags)
    : QWidget(parent, flags), ground_(new QWidget(this)) {}

void FormWidget::SetColour(const QColor& colour) {
  if (colour == colour_) return;
  colour_ = colour;
  setAttribute(Qt::WA_OpaquePaintEvent, colour.alpha() == 255);
  update();
}

void FormWidget::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (OnCloseBox) OnCloseBox();
}

void FormWidget::moveEvent(QMoveEvent*) {
  if (OnMoved) OnMoved();
}

void FormWidget::resizeEvent(QResizeEvent*) {
  ground_->resize(size());
}

void FormWidget::keyPressEvent(QKeyEvent* event) {
  if (LastInput::WasRepetition() || !OnKey || !OnKey(event->key())) event->ignore();
}

void FormWidget::paintEvent(QPaintEvent* event) {
  if (colour_.alpha() == 0) return;
  QPainter(this).fillRect(event->rect(), colour_);
}

FormView::FormView(Form& model, FormWidget* owner)
    : ViewOf(model, new FormWidget(!owner                               ? nullptr
                                   : model.Kind() == Form::Style::Child ? owner->Ground()
                                                                        : owner->window(),
                                   FlagsOf(model.Kind()))) {
  face_.setAttribute(Qt::WA_ShowWithoutActivating, model.LeavesKeyboard);
  face_.hide();  // A child of a visible widget would come with its first event else.
  face_.OnCloseBox = [this] { CloseBox(); };
  moved_.setSingleShot(true);
  moved_.setInterval(kRestMs);
  face_.OnMoved = [this] { moved_.start(); };
  QObject::connect(&moved_, &QTimer::timeout, &moved_, [this] { Moved(); });
  face_.OnKey = [this](int key) { return Key(key); };
}

void FormView::Apply() {
  const QString caption = ToQt(model_.Caption);
  if (face_.windowTitle() != caption) face_.setWindowTitle(caption);
  if (!model_.AccessibleName.Get().empty()) {
    face_.setAccessibleName(ToQt(model_.AccessibleName));
  }
  face_.SetColour(ToQt(model_.BackColour));
  WatchPointer(*Ground());
  ApplyPlace();
  ApplyUse();
  ApplyShown();
}

void FormView::ApplyPlace() {
  const QRect wanted = PixelRect(model_);
  if (wanted.isEmpty()) return;  // Nothing is shown, and no window can be that small.
  if (IsWindow()) {
    ApplyWindowPlace(wanted);
  } else {
    face_.setGeometry(wanted);
  }
}

void FormView::ApplyWindowPlace(const QRect& wanted) {
  if (face_.size() != wanted.size() || face_.minimumSize() != wanted.size()) {
    face_.setFixedSize(wanted.size());
    if (face_.isVisible()) resized_.start();
  }
  if (!everPlaced_ || wanted.topLeft() != placed_) {
    everPlaced_ = true;
    placed_ = wanted.topLeft();
    face_.move(placed_);
  }
}

void FormView::ApplyUse() {
  const bool usable = model_.Enabled;
  if (Ground()->isEnabled() == usable) return;
  QWidget* focused = face_.window()->focusWidget();
  if (!usable && focused && face_.isAncestorOf(focused)) focus_ = focused;
  Ground()->setEnabled(usable);
  if (usable && face_.isVisible()) FocusAnything();
}

void FormView::ApplyShown() {
  const bool show = model_.Visible && !PixelRect(model_).isEmpty();
  if (show == !face_.isHidden()) return;
  if (show && !IsWindow()) face_.raise();
  face_.setVisible(show);
  if (show) FocusAnything();
}

void FormView::BecomeModal() {
  if (!IsWindow() || face_.windowModality() == Qt::WindowModal) return;
  const bool shown = face_.isVisible();
  if (shown) face_.hide();
  face_.setWindowModality(Qt::WindowModal);
  if (shown) face_.show();
}

void FormView::Focus(QWidget* widget) {
  focus_ = widget;
  if (face_.isVisible()) widget->setFocus(Qt::OtherFocusReason);
}

void FormView::FocusAnything() {
  if (!focus_ || !TakesKeyboard(*focus_, face_)) {
    focus_ = nullptr;
    QWidget* next = face_.nextInFocusChain();
    while (next != &face_ && !(face_.isAncestorOf(next) && TakesKeyboard(*next, face_))) {
      next = next->nextInFocusChain();
    }
    // With nothing to focus the form itself listens, for the keys of its buttons.
    focus_ = next;
  }
  focus_->setFocus(Qt::OtherFocusReason);
}

bool FormView::Key(int key) {
  if (!Live()) return true;
  if (key == Qt::Key_Escape) return model_.PressEscape();
  if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
  Button* button = model_.DefaultButton;
  if (button) button->Press();
  return button != nullptr;
}

void FormView::CloseBox() {
  if (!Live() || !model_.Enabled) return;
  if (model_.CancelButton.Get() || model_.OnEscape) {
    model_.PressEscape();
  } else if (OnCloseBox) {
    OnCloseBox();
  }
}

void FormView::Moved() {
  if (!Live() || !IsWindow() || !face_.isVisible()) return;
  // A place that the program has set and that is still on its way wins.
  if (PixelRect(model_).topLeft() != placed_) return;
  const QPoint now = face_.pos();
  if (now == placed_) return;
  if (resized_.isValid() && !resized_.hasExpired(kResizedMs)) {
    face_.move(placed_);
    return;
  }
  placed_ = now;
  model_.Left = ToTwips(now.x());
  model_.Top = ToTwips(now.y());
}

}  // namespace tarvo
