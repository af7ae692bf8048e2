#pragma once

#include <QProxyStyle>

namespace tarvo {

/// Scroll bars, fields, drop-downs and the buttons of message boxes in the manner of the skin. The
/// colours come from the widget's palette; all that isn't drawn here is Fusion's.
class SkinStyle : public QProxyStyle {
 public:
  SkinStyle();

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                       SubControl subControl, const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* returnData) const override;
  QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                     const QWidget* widget) const override;
};

/// A bar with round ends, as all buttons of the skin are.
void DrawPill(QPainter& painter, const QRectF& area, const QColor& fill);

/// The mark of the focus within such a bar.
void DrawPillRing(QPainter& painter, const QRectF& area, const QColor& ink);

}  // namespace tarvo
