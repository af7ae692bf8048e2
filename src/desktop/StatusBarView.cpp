#include "desktop/StatusBarView.h"

#include <QEvent>
#include <QPainter>

#include "desktop/Skin.h"

namespace tarvo {
namespace {

constexpr int kSideRoom = 10;
constexpr int kRoomAboveAndBelow = 10;

}  // namespace

StatusFace::StatusFace(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setAccessibleDescription(QStringLiteral("Status line"));  // Else the tooltip with its tags.
  parent->installEventFilter(this);
}

void StatusFace::SetColours(const QColor& ground, const QColor& text) {
  ground_ = ground;
  text_ = text;
}

void StatusFace::Dock() {
  const QRect all = parentWidget()->rect();
  const int tall = fontMetrics().height() + kRoomAboveAndBelow;
  setGeometry(0, all.height() - tall, all.width(), tall);
}

bool StatusFace::eventFilter(QObject* watched, QEvent* event) {
  if (docked && event->type() == QEvent::Resize) Dock();
  return QLabel::eventFilter(watched, event);
}

void StatusFace::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (ground_.alpha() != 0) painter.fillRect(rect(), ground_);
  painter.fillRect(0, 0, width(), 1,
                   Mix(QColor(text_.red(), text_.green(), text_.blue(), 0), text_, 0.3));
  painter.setPen(text_);
  const QRect line = rect().adjusted(kSideRoom, 1, -kSideRoom, 0);
  painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                   fontMetrics().elidedText(text(), Qt::ElideMiddle, line.width()));
}

StatusBarView::StatusBarView(StatusBar& model, QWidget* parent)
    : ViewOf(model, new StatusFace(parent)) {}

void StatusBarView::Apply() {
  const QString line = Printable(model_.Panel1.Get());
  if (face_.text() != line) {
    face_.setText(line);
    // Rich text would swallow what looks like a tag.
    face_.setToolTip(
        line.isEmpty()
            ? line
            : QStringLiteral("<p style='white-space:pre'>%1</p>").arg(line.toHtmlEscaped()));
  }
  face_.SetColours(ToQt(model_.BackColour), ToQt(model_.ForeColour));
  ApplyCommon();
  face_.docked = model_.Width == 0 || model_.Height == 0;
  if (face_.docked) face_.Dock();
}

}  // namespace tarvo
