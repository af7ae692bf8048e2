#include "desktop/Pictures.h"

#include <QDir>
#include <QPainter>
#include <QPixmap>
#include <QPixmapCache>

namespace tarvo {

void DrawPicture(QPainter& painter, const QRect& area, const QString& name, const QColor& light) {
  if (name.isEmpty() || area.isEmpty()) return;
  const bool dense = painter.device()->devicePixelRatioF() > 1;
  const QString key = name + (dense ? QStringLiteral("@2x") : QString());
  QPixmap picture;
  if (!QPixmapCache::find(key, &picture)) {
    QString file = name;
    if (dense) file.insert(file.lastIndexOf(QLatin1Char('.')), QStringLiteral("@2x"));
    if (!picture.load(file)) picture.load(name);
    QPixmapCache::insert(key, picture);
  }
  if (picture.isNull()) return;
  if (light.alpha() > 0) {
    QPainter over(&picture);
    over.setCompositionMode(QPainter::CompositionMode_SourceAtop);
    over.fillRect(picture.rect(), light);
  }
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawPixmap(area, picture, picture.rect());
}

QIcon ProgramIcon() {
  QIcon icon;
  const QDir folder(QStringLiteral(":/icon"));
  for (const QString& file : folder.entryList({QStringLiteral("*.png")})) {
    icon.addFile(folder.filePath(file));
  }
  return icon;
}

}  // namespace tarvo
