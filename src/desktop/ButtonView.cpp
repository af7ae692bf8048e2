#include "desktop/ButtonView.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

#include "desktop/LastInput.h"
#include "desktop/Pictures.h"
#include "desktop/Skin.h"
#include "desktop/SkinStyle.h"

namespace tarvo {
namespace {

/// How much is left of a button that is switched off: of its bar, and of its caption.
constexpr qreal kOffGround = 0.25;
constexpr qreal kOffCaption = 0.6;

constexpr qreal kBright = 4;  ///< The contrast to black of what can be read when it is dimmed.

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

void PillButton::SetLooks(const Look& atRest, const Look& focused) {
  atRest_ = atRest;
  focused_ = focused;
}

void PillButton::SetGround(const QColor& ground, PictureFit fit, bool flat) {
  ground_ = ground;
  fit_ = fit;
  flat_ = flat;
}

const PillButton::Look& PillButton::Shown() const {
  return hasFocus() && LastInput::WasKey() && focused_.caption.alpha() != 0 ? focused_ : atRest_;
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
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor light = Light();
  if (!isEnabled()) painter.setOpacity(kOffGround);
  const Ground ground = DrawGround(painter, light);
  if (!isEnabled()) painter.setOpacity(kOffCaption);
  painter.setPen(CaptionColour(painter, ground, light));
  if (HasCaption() || ground != Ground::Picture) DrawCaption(painter);
  if (hasFocus()) DrawRing(painter, ground);
}

PillButton::Ground PillButton::DrawGround(QPainter& painter, const QColor& light) const {
  if (flat_) return Ground::None;
  const Look& look = Shown();
  if (const QColor middle = PictureGround(painter, look.picture); middle.isValid()) {
    QColor laid = light;
    if (HasCaption()) {
      const QColor needed = LegibleLight(look.caption, middle);
      if (needed.alpha() > 0) laid = needed;
    } else {
      laid.setAlpha(light.alpha() / 2);  // A picture alone keeps its contrasts.
    }
    DrawPicture(painter, rect(), look.picture, fit_, laid);
    return Ground::Picture;
  }
  if (ground_.alpha() == 0) return Ground::None;
  const QColor bar = Lit(ground_, light);
  DrawPill(painter, rect(), Lit(bar, LegibleLight(look.caption, bar)));
  return Ground::Bar;
}

/// Dimmed like the bar it stands on, a dark caption would vanish: it takes the bar's colour.
QColor PillButton::CaptionColour(const QPainter& painter, Ground ground,
                                 const QColor& light) const {
  const Look& look = Shown();
  if (ground == Ground::None) return Lit(look.caption, light);
  if (isEnabled()) return look.caption;
  const QColor middle = PictureGround(painter, look.picture);
  return middle.isValid() && Contrast(middle, Qt::black) > kBright ? middle : ground_;
}

/// What the button's state lays over its colours.
QColor PillButton::Light() const {
  if (!isEnabled()) return Qt::transparent;
  if (isDown()) return {0, 0, 0, 64};
  if (underMouse() && !litByModel_) return {255, 255, 255, 89};
  return Qt::transparent;
}

/// The mark of the focus: within a bar, around a picture that stands alone.
void PillButton::DrawRing(QPainter& painter, Ground ground) const {
  const bool around = ground == Ground::Picture && !HasCaption();
  const qreal inset = around ? 0.75 : 2.5;
  const QRectF ring = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
  const qreal roundEnds = std::min(ring.width(), ring.height()) / 2;
  const bool isRound = around ? glyph_ != Button::Arrow::None : rounding_ <= 0;
  const qreal radius = isRound ? roundEnds : around ? 5 : rounding_;
  painter.setBrush(Qt::NoBrush);
  const bool onBlack = around && focused_.caption.alpha() != 0;
  painter.setPen(QPen(onBlack ? focused_.caption : Shown().caption, 1.5));
  painter.drawRoundedRect(ring, radius, radius);
}

void PillButton::mousePressEvent(QMouseEvent* event) {
  update();  // The keyboard's look goes.
  QAbstractButton::mousePressEvent(event);
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
  update();  // With the keyboard's look.
  if (IsHeldBy(*event)) {
    letGo_.stop();
    if (!isDown()) {
      setDown(true);
      emit pressed();
    }
  } else if (IsEnter(*event)) {
    if (!LastInput::WasRepetition()) click();
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
    if (!toolTip().isEmpty()) whole = toolTip() + whole.toHtmlEscaped();
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
  face_.SetLooks({ToQt(model_.ForeColour), ToQt(model_.Picture)},
                 {ToQt(model_.FocusColour), ToQt(model_.FocusPicture)});
  face_.SetGround(ToQt(model_.BackColour), model_.Fit, model_.Flat);
  face_.SetRounding(ToPixels(model_.Rounding));
  face_.SetGlyph(model_.Glyph);
  face_.SetLitByModel(model_.OnMouseMove != nullptr);
  ApplyCommon();
  if (!model_.Link) return;
  QFont underlined = face_.font();
  underlined.setUnderline(true);
  face_.setFont(underlined);
  face_.setCursor(Qt::WhatsThisCursor);
}

}  // namespace tarvo
