#include "desktop/SkinStyle.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>

#include "desktop/MessageIcons.h"
#include "desktop/Skin.h"

namespace tarvo {
namespace {

constexpr qreal kFieldRadius = 4;
constexpr int kScrollBarWidth = 12;
constexpr int kShortestSlider = 24;

/// Leaves the painter as it was, with smooth edges in between.
class Smooth {
 public:
  explicit Smooth(QPainter& painter) : painter_(painter) {
    painter_.save();
    painter_.setRenderHint(QPainter::Antialiasing);
  }
  ~Smooth() { painter_.restore(); }

 private:
  QPainter& painter_;
};

void DrawFrame(QPainter& painter, const QStyleOption& option, const QBrush& fill) {
  const Smooth smooth(painter);
  const QColor text = option.palette.color(QPalette::Text);
  const bool focused = option.state & QStyle::State_HasFocus;
  painter.setPen(QPen(focused ? text : Mix(option.palette.color(QPalette::Base), text, 0.35), 1));
  painter.setBrush(fill);
  painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), kFieldRadius,
                          kFieldRadius);
}

void DrawScrollBar(const QProxyStyle& style, QPainter& painter, const QStyleOptionSlider& option,
                   const QWidget* widget) {
  const QColor ground = option.palette.color(QPalette::Base);
  const QColor text = option.palette.color(QPalette::Text);
  painter.fillRect(option.rect, ground);
  if (option.minimum == option.maximum) return;
  const bool held = (option.activeSubControls & QStyle::SC_ScrollBarSlider) &&
                    (option.state & QStyle::State_Sunken);
  const bool hovered = option.state & QStyle::State_MouseOver;
  const QRectF slider =
      style.subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, widget);
  DrawPill(painter, slider.adjusted(3, 2, -3, -2),
           Mix(ground, text,
               held      ? 0.85
               : hovered ? 0.65
                         : 0.45));
}

void DrawComboBox(const QProxyStyle& style, QPainter& painter, const QStyleOptionComboBox& option,
                  const QWidget* widget) {
  DrawFrame(painter, option, option.palette.brush(QPalette::Base));
  const Smooth smooth(painter);
  const QPointF middle =
      QRectF(style.subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, widget))
          .center();
  const QColor text = option.palette.color(QPalette::Text);
  const bool hovered = option.state & QStyle::State_MouseOver;
  QPen pen(hovered ? text : Mix(text, option.palette.color(QPalette::Base), 0.25), 1.6);
  pen.setCapStyle(Qt::RoundCap);
  pen.setJoinStyle(Qt::RoundJoin);
  painter.setPen(pen);
  painter.drawPolyline(
      QPolygonF{{middle + QPointF(-4, -2), middle + QPointF(0, 2), middle + QPointF(4, -2)}});
}

QRect ComboPart(const QRect& whole, QStyle::SubControl part) {
  constexpr int kArrowWidth = 22;
  switch (part) {
    case QStyle::SC_ComboBoxArrow:
      return {whole.right() - kArrowWidth + 1, whole.top(), kArrowWidth, whole.height()};
    case QStyle::SC_ComboBoxEditField:
      return whole.adjusted(5, 1, -kArrowWidth, -1);
    default:
      return whole;
  }
}

QRect ScrollBarPart(const QStyleOptionSlider& option, QStyle::SubControl part) {
  const bool upright = option.orientation == Qt::Vertical;
  const int length = upright ? option.rect.height() : option.rect.width();
  const int range = option.maximum - option.minimum;
  int slider = length;
  if (range > 0) {
    const auto share = static_cast<double>(option.pageStep) / (range + option.pageStep);
    slider =
        std::clamp(static_cast<int>(share * length), std::min(kShortestSlider, length), length);
  }
  const int start = QStyle::sliderPositionFromValue(
      option.minimum, option.maximum, option.sliderPosition, length - slider, option.upsideDown);
  const auto stretch = [&](int from, int size) {
    const QRect& all = option.rect;
    return upright ? QRect(all.left(), all.top() + from, all.width(), size)
                   : QRect(all.left() + from, all.top(), size, all.height());
  };
  switch (part) {
    case QStyle::SC_ScrollBarGroove:
      return option.rect;
    case QStyle::SC_ScrollBarSlider:
      return stretch(start, slider);
    case QStyle::SC_ScrollBarSubPage:
      return stretch(0, start);
    case QStyle::SC_ScrollBarAddPage:
      return stretch(start + slider, length - start - slider);
    default:
      return {};
  }
}

}  // namespace

SkinStyle::SkinStyle() : QProxyStyle(QStringLiteral("fusion")) {}

QIcon SkinStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                              const QWidget* widget) const {
  switch (icon) {
    case SP_MessageBoxInformation:
      return MessageIcon(MessageSign::Information);
    case SP_MessageBoxQuestion:
      return MessageIcon(MessageSign::Question);
    case SP_MessageBoxWarning:
      return MessageIcon(MessageSign::Exclamation);
    case SP_MessageBoxCritical:
      return MessageIcon(MessageSign::Critical);
    default:
      return QProxyStyle::standardIcon(icon, option, widget);
  }
}

void DrawPill(QPainter& painter, const QRectF& area, const QColor& fill) {
  const Smooth smooth(painter);
  const qreal radius = std::min(area.width(), area.height()) / 2;
  painter.setPen(Qt::NoPen);
  painter.setBrush(fill);
  painter.drawRoundedRect(area, radius, radius);
}

void DrawPillRing(QPainter& painter, const QRectF& area, const QColor& ink) {
  const Smooth smooth(painter);
  const QRectF ring = area.adjusted(2.5, 2.5, -2.5, -2.5);
  const qreal radius = std::min(ring.width(), ring.height()) / 2;
  painter.setPen(QPen(ink, 1.5));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(ring, radius, radius);
}

void SkinStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const {
  switch (element) {
    case PE_PanelLineEdit:
      // The line of a drop-down stands in the field that the drop-down draws.
      if (!widget || !qobject_cast<QComboBox*>(widget->parentWidget())) {
        DrawFrame(*painter, *option, option->palette.brush(QPalette::Base));
      }
      return;
    case PE_Frame:
      DrawFrame(*painter, *option, Qt::NoBrush);
      return;
    case PE_FrameLineEdit:
    case PE_FrameFocusRect:
      return;
    case PE_PanelButtonCommand: {
      QColor fill = option->palette.color(QPalette::Button);
      if (option->state & State_Sunken)
        fill = Mix(fill, Qt::black, 0.25);
      else if (option->state & State_MouseOver)
        fill = Mix(fill, Qt::white, 0.3);
      DrawPill(*painter, option->rect, fill);
      if (option->state & State_HasFocus) {
        DrawPillRing(*painter, option->rect, option->palette.color(QPalette::ButtonText));
      }
      return;
    }
    default:
      QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
}

void SkinStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const {
  if (const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
      bar && control == CC_ScrollBar) {
    DrawScrollBar(*this, *painter, *bar, widget);
  } else if (const auto* box = qstyleoption_cast<const QStyleOptionComboBox*>(option);
             box && control == CC_ComboBox) {
    DrawComboBox(*this, *painter, *box, widget);
  } else {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
  }
}

/// A drop-down stands on the ground of a field, so its words have the colour of a field's.
void SkinStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
  const auto* box = qstyleoption_cast<const QStyleOptionComboBox*>(option);
  if (!box || element != CE_ComboBoxLabel) {
    return QProxyStyle::drawControl(element, option, painter, widget);
  }
  QStyleOptionComboBox label(*box);
  label.palette.setBrush(QPalette::ButtonText, label.palette.brush(QPalette::Text));
  QProxyStyle::drawControl(element, &label, painter, widget);
}

QRect SkinStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                SubControl subControl, const QWidget* widget) const {
  if (const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
      bar && control == CC_ScrollBar) {
    return ScrollBarPart(*bar, subControl);
  }
  if (control == CC_ComboBox && subControl != SC_ComboBoxListBoxPopup) {
    return visualRect(option->direction, option->rect, ComboPart(option->rect, subControl));
  }
  return QProxyStyle::subControlRect(control, option, subControl, widget);
}

int SkinStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                           const QWidget* widget) const {
  if (metric == PM_ScrollBarExtent) return kScrollBarWidth;
  if (metric == PM_DefaultFrameWidth) return 2;
  return QProxyStyle::pixelMetric(metric, option, widget);
}

int SkinStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* returnData) const {
  if (hint == SH_ComboBox_Popup || hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
  if (hint == SH_UnderlineShortcut) return 1;
  return QProxyStyle::styleHint(hint, option, widget, returnData);
}

}  // namespace tarvo
