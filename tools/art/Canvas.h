#pragma once

#include <QColor>
#include <QImage>
#include <functional>

#include "controls/Control.h"

class QPainter;

namespace tarvo::art {

/// A picture of width by height pixels on transparent ground. `draw` gets a painter in those
/// pixels; what it draws is drawn many times finer and averaged, so that edges, also those of
/// clipped parts, come out clean on every ground.
QImage Drawn(int width, int height, const std::function<void(QPainter&)>& draw);

QColor ToQt(const Colour& colour);

/// The colour that lies `share` of the way from a to b.
QColor Mix(const QColor& a, const QColor& b, double share);

QColor WithAlpha(QColor colour, double alpha);

}  // namespace tarvo::art
