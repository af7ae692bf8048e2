#pragma once

#include <QPainter>
#include <QSize>

namespace tarvo::video {

/// A picture in motion that comes round without a jump: everything in it depends on the phase, 0
/// to 1, and looks at 1 as it did at 0.
struct Scene {
  const char* File;
  QSize Size;  ///< Pixels of its place on the screen, at one to the unit of the painter.
  void (*Paint)(QPainter& painter, double phase);
};

extern const Scene kMainScene;     ///< A ship that turns over a grid.
extern const Scene kOptionsScene;  ///< A sweep round a dial.
extern const Scene kTGLScene;      ///< Read-outs that roll by.

}  // namespace tarvo::video
