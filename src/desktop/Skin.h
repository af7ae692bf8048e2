#pragma once

#include <QColor>
#include <QFont>
#include <QRect>
#include <QString>

#include "controls/Control.h"

class QApplication;

namespace tarvo {

/// The bridge from the models' kinds of value to Qt's, and the look of what no model describes.

/// Unit for unit: unlike QString::fromUtf16 it takes no unit for a byte order mark.
QString ToQt(TextView text);
inline QString ToQt(const Property<Text>& text) {
  return ToQt(text.Get());
}
Text FromQt(const QString& text);

/// A text of files as one line: what can't be printed shows as a mark, and moves nothing else.
QString Printable(TextView text);

QColor ToQt(const Colour& colour);

/// The installed face for the role; points count at 96 dpi whatever the screen says, so that texts
/// fit the controls that are measured in twips.
QFont ToQt(const Font& font);

/// Twips to logical pixels, 15 to 1, rounded to the nearest.
int ToPixels(int twips);
inline int ToTwips(int pixels) {
  return pixels * 15;
}

/// Place and size of a control on its parent. Both edges are rounded, so that controls which touch
/// in twips touch in pixels.
QRect PixelRect(const Control& control);

/// `a` with `share` (0 to 1) of it replaced by `b`.
QColor Mix(const QColor& a, const QColor& b, double share);

/// How well the one can be told from the other: 1 for not at all to 21 for black from white.
double Contrast(const QColor& a, const QColor& b);

/// What has to be laid over the ground for a caption of that colour to be legible on it: black, or
/// white where the caption is the darker of the two; transparent where it is legible as it stands.
QColor LegibleLight(const QColor& caption, const QColor& ground);

/// `colour` with the light laid over it.
QColor Lit(const QColor& colour, const QColor& light);

/// Sets style, palette and font of the whole program once, before the first window.
void ApplySkin(QApplication& application);

}  // namespace tarvo
