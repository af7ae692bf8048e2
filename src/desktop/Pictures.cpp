#include "desktop/Pictures.h"

#include <QHash>
#include <QImage>
#include <QPainter>
#include <array>
#include <cmath>

#include "desktop/Skin.h"
#include "platform/HostMachine.h"

namespace tarvo {
namespace {

struct Picture {
  QImage image;   ///< Null where there is none.
  QColor ground;  ///< Invalid until it was asked for: large pictures are never asked.
  qreal density = 1;
};

QString HostFile(const QString& name) {
  if (name.startsWith(QLatin1String(":/"))) return name;
  return QString::fromStdString(HostPath(FromQt(name)));
}

/// The mean of the middle: of half of the width and half of the height.
QColor MeanOfMiddle(const QImage& image) {
  const QSize quarter = image.size() / 4;
  const QImage middle = image.copy(quarter.width(), quarter.height(),
                                   std::max(1, image.width() / 2), std::max(1, image.height() / 2));
  return middle.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).pixelColor(0, 0);
}

Picture Read(const QString& name, bool dense) {
  Picture picture;
  if (dense) {
    QString file = name;
    file.insert(file.lastIndexOf(QLatin1Char('.')), QStringLiteral("@2x"));
    if (picture.image.load(HostFile(file))) picture.density = 2;
  }
  if (picture.image.isNull()) picture.image.load(HostFile(name));
  if (picture.image.isNull()) return picture;
  const bool seeThrough = picture.image.hasAlphaChannel();
  picture.image.convertTo(seeThrough ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
  return picture;
}

Picture& PictureOf(const QPainter& painter, const QString& name) {
  static QHash<QString, Picture> known;
  const bool dense = painter.device()->devicePixelRatioF() > 1;
  const QString key = dense ? name + QStringLiteral("@2x") : name;
  auto at = known.find(key);
  if (at == known.end()) at = known.insert(key, Read(name, dense));
  return *at;
}

/// With its edges between pixels of the screen: what meets there leaves no seam.
QRectF OnPixels(const QRectF& area) {
  const QPointF first(std::round(area.left()), std::round(area.top()));
  const QPointF behind(std::round(area.right()), std::round(area.bottom()));
  return {first, behind};
}

/// A part of a length: where it begins, and how long it is.
struct Span {
  qreal from, length;
};

/// Two ends and what is between them.
std::array<Span, 3> Sliced(const Span& whole, qreal end) {
  const qreal middle = whole.length - 2 * end;
  return {Span{whole.from, end}, {whole.from + end, middle}, {whole.from + end + middle, end}};
}

/// Ends half as long as the picture is thick, in whole pixels of screen and picture. The painter
/// and the area are in pixels of the screen.
void DrawSliced(QPainter& painter, const QRectF& area, const QImage& image, bool across) {
  const auto along = [=](const QRectF& whole) {
    return across ? Span{whole.left(), whole.width()} : Span{whole.top(), whole.height()};
  };
  const auto thick = [=](const QRectF& whole) {
    return across ? Span{whole.top(), whole.height()} : Span{whole.left(), whole.width()};
  };
  const auto part = [=](const Span& length, const Span& thickness) {
    return across ? QRectF(length.from, thickness.from, length.length, thickness.length)
                  : QRectF(thickness.from, length.from, thickness.length, length.length);
  };
  const QRectF source = image.rect();
  const qreal scale = thick(area).length / thick(source).length;
  const qreal end =
      std::min(std::ceil(thick(source).length / 2), std::floor(along(source).length / 2));
  const qreal half = std::floor(along(area).length / 2);
  const auto from = Sliced(along(source), end);
  const auto to = Sliced(along(area), std::min(std::round(end * scale), half));
  for (std::size_t i = 0; i < to.size(); ++i) {
    painter.drawImage(part(to[i], thick(area)), image, part(from[i], thick(source)));
  }
}

QRectF NaturalArea(const QRectF& area, const Picture& picture) {
  QSizeF size = QSizeF(picture.image.size()) / picture.density;
  if (size.width() > area.width() || size.height() > area.height()) {
    size.scale(area.size(), Qt::KeepAspectRatio);
  }
  const QPointF corner(area.left() + std::floor((area.width() - size.width()) / 2),
                       area.top() + std::floor((area.height() - size.height()) / 2));
  return {corner, size};
}

QImage Lit(QImage image, const QColor& light) {
  QPainter over(&image);
  over.setCompositionMode(QPainter::CompositionMode_SourceAtop);
  over.fillRect(image.rect(), light);
  return image;
}

}  // namespace

bool DrawPicture(QPainter& painter, const QRect& area, const QString& name, PictureFit fit,
                 const QColor& light) {
  if (name.isEmpty()) return false;
  const Picture& picture = PictureOf(painter, name);
  if (picture.image.isNull()) return false;
  if (area.isEmpty()) return true;
  const QImage image = light.alpha() > 0 ? Lit(picture.image, light) : picture.image;
  const QTransform toScreen = painter.deviceTransform();
  const QRectF whole = OnPixels(
      toScreen.mapRect(fit == PictureFit::Natural ? NaturalArea(area, picture) : QRectF(area)));
  painter.save();
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.setTransform(toScreen.inverted(), true);  // To the screen's own pixels.
  if (fit == PictureFit::Across || fit == PictureFit::Down) {
    DrawSliced(painter, whole, image, fit == PictureFit::Across);
  } else {
    painter.drawImage(whole, image, image.rect());
  }
  painter.restore();
  return true;
}

QColor PictureGround(const QPainter& painter, const QString& name) {
  if (name.isEmpty()) return {};
  Picture& picture = PictureOf(painter, name);
  if (!picture.ground.isValid() && !picture.image.isNull()) {
    picture.ground = MeanOfMiddle(picture.image);
  }
  return picture.ground;
}

QIcon ProgramIcon() {
  QIcon icon;
  for (const int size : {16, 22, 24, 32, 48, 64}) {
    icon.addFile(QStringLiteral(":/icon/%1.png").arg(size));
  }
  return icon;
}

}  // namespace tarvo
