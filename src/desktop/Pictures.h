#pragma once

#include <QColor>
#include <QIcon>
#include <QRect>
#include <QString>

#include "controls/PictureFit.h"

class QPainter;

namespace tarvo {

/// Pictures by their names as in Image::Picture. A file "name@2x.bmp" beside "name.bmp" serves
/// dense screens. A picture is read when it is first drawn, once for all controls.

/// Draws the picture into the area. The light is laid over what the picture covers. Draws nothing
/// and gives false where there is no such picture.
bool DrawPicture(QPainter& painter, const QRect& area, const QString& name,
                 PictureFit fit = PictureFit::Stretched, const QColor& light = Qt::transparent);

/// The colour that a caption in the middle of the picture stands on; an invalid one where there is
/// no such picture.
QColor PictureGround(const QPainter& painter, const QString& name);

/// The icon of the program's windows. Larger sizes would only make the start slower: each goes to the
/// display as it is.
QIcon ProgramIcon();

}  // namespace tarvo
