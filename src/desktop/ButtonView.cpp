#include "desktop/ButtonView.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

#include "desktop/Pictures.h"
#include "desktop/Skin.h"
#include "desktop/SkinStyle.h"

namespace tarvo {
namespace {

/// How much is left of a button that is switched off: of its bar, and of its caption.
constexpr qreal kOffGround = 0.25;
constexpr qreal kOffCaption = 0.6;

/// The longest time between the two halves of a key's repetition.
constexpr int kRepetitionMs = 40;

bool IsEnter(const QKeyEvent& event) {
  return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

int DegreesFromUp(Button::Arrow glyph) {
  switch (glyph) {
    case Button::Arrow::Right:
      return 90;
    case Button::Arrow::Down:
      return 180;
    case Button::Arrow::Left:
      return 270;
    default:
      return 0;
  }
}

}  // namespace

PillButton::PillButton(QWidget* parent) : QAbstractButton(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
}

void PillButton::SetColours(const QColor& ground, const QColor& caption) {
  ground_ = ground;
  caption_ = caption;
}

QRect PillButton::CaptionArea() const {
  const int room = ground_.alpha() == 0 ? 2 : std::max(6, height() / 3);
  return rect().adjusted(room, 0, -room, 0);
}

QString PillButton::Elided() const {
  return fontMetrics().elidedText(text(), Qt::ElideRight, CaptionArea().width(),
                                  Qt::TextShowMnemonic);
}

void PillButton::paintEvent(QPaintEvent*) {
  const QColor light = Light();
  const auto lit = [&](const QColor& colour) {
    return Mix(colour, QColor(light.red(), light.green(), light.blue(), colour.alpha()),
               light.alphaF());
  };
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const bool bare = ground_.alpha() == 0;
  if (!isEnabled()) painter.setOpacity(kOffGround);
  if (!picture_.isEmpty()) {
    QColor thin = light;  // A picture keeps its contrasts.
    thin.setAlpha(light.alpha() / 2);
    DrawPicture(painter, rect(), picture_, thin);
  } else if (!bare) {
    DrawPill(painter, rect(), lit(ground_));
  }
  // Dimmed alike, a dark caption would vanish in its bar: it takes the bar's colour instead.
  if (!isEnabled()) painter.setOpacity(kOffCaption);
  const bool asBar = !bare && !isEnabled();
  painter.setPen(asBar ? ground_ : bare ? lit(caption_) : caption_);
  DrawCaption(painter);
  if (hasFocus()) DrawRing(painter);
}

/// What the button's state lays over its colours.
QColor PillButton::Light() const {
  if (!isEnabled()) return Qt::transparent;
  if (isDown()) return {0, 0, 0, 64};
  if (underMouse()) return {255, 255, 255, 89};
  return Qt::transparent;
}

/// The mark of the focus: within a bar, around a picture.
void PillButton::DrawRing(QPainter& painter) const {
  const qreal inset = picture_.isEmpty() ? 2.5 : 0.75;
  const QRectF ring = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
  const qreal radius = picture_.isEmpty() ? std::min(ring.width(), ring.height()) / 2 : 5;
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(caption_, 1.5));
  painter.drawRoundedRect(ring, radius, radius);
}

/// In the painter's pen.
void PillButton::DrawCaption(QPainter& painter) const {
  if (glyph_ == Button::Arrow::None) {
    painter.drawText(CaptionArea(), Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextSingleLine,
                     Elided());
    return;
  }
  const qreal size = std::min(width(), height()) * 0.24;
  painter.save();
  painter.translate(QRectF(rect()).center());
  painter.rotate(DegreesFromUp(glyph_));
  painter.setBrush(painter.pen().color());
  painter.setPen(QPen(painter.pen().color(), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolygon(QPolygonF{{{-size, size * 0.6}, {0, -size * 0.7}, {size, size * 0.6}}});
  painter.restore();
}

void PillButton::keyPressEvent(QKeyEvent* event) {
  if (IsHeldBy(*event)) {
    letGo_.stop();
    if (!isDown()) {
      setDown(true);
      emit pressed();
    }
  } else if (IsEnter(*event)) {
    if (!event->isAutoRepeat()) click();
  } else if (event->key() == Qt::Key_Escape) {
    event->ignore();  // The form's Escape button has it.
  } else {
    QAbstractButton::keyPressEvent(event);
  }
}

void PillButton::keyReleaseEvent(QKeyEvent* event) {
  if (!IsHeldBy(*event)) return QAbstractButton::keyReleaseEvent(event);
  // A key that repeats is told as let go and pressed again, and not always as a repetition.
  if (!event->isAutoRepeat()) letGo_.start(kRepetitionMs, this);
}

void PillButton::timerEvent(QTimerEvent* event) {
  if (event->timerId() != letGo_.timerId()) return QAbstractButton::timerEvent(event);
  letGo_.stop();
  if (!isDown()) return;
  setDown(false);
  emit released();
}

bool PillButton::IsHeldBy(const QKeyEvent& event) const {
  return glyph_ != Button::Arrow::None && (IsEnter(event) || event.key() == Qt::Key_Space);
}

bool PillButton::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip && Elided() != text()) {
    QString whole = text();
    whole.remove(QLatin1Char('&'));
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), whole, this);
    return true;
  }
  return QAbstractButton::event(event);
}

ButtonView::ButtonView(Button& model, QWidget* parent) : ViewOf(model, new PillButton(parent)) {
  QObject::connect(&face_, &QAbstractButton::clicked, &face_, [this] {
    if (Live()) model_.Press();
  });
  QObject::connect(&face_, &QAbstractButton::pressed, &face_, [this] {
    if (Live()) model_.Hold();
  });
  QObject::connect(&face_, &QAbstractButton::released, &face_, [this] {
    if (Live()) model_.LetGo();
  });
}

void ButtonView::Apply() {
  const QString caption = ToQt(model_.Caption);
  if (face_.text() != caption) face_.setText(caption);
  face_.SetColours(ToQt(model_.BackColour), ToQt(model_.ForeColour));
  face_.SetGlyph(model_.Glyph);
  face_.SetPicture(ToQt(model_.Picture));
  ApplyCommon();
  if (!model_.Link) return;
  QFont underlined = face_.font();
  underlined.setUnderline(true);
  face_.setFont(underlined);
  face_.setCursor(Qt::WhatsThisCursor);
}

}  // namespace tarvo
