#pragma once

#include <QColor>
#include <QIcon>
#include <QRect>
#include <QString>

class QPainter;

namespace tarvo {

/// Draws the picture of that name, as in Image::Picture, to fill the area; nothing where there is
/// none. A file "name@2x.png" beside "name.png" serves dense screens. The light is laid over what
/// the picture covers.
void DrawPicture(QPainter& painter, const QRect& area, const QString& name,
                 const QColor& light = Qt::transparent);

/// The program's icon in all its sizes.
QIcon ProgramIcon();

}  // namespace tarvo
