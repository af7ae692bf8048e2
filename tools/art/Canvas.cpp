#include "Canvas.h"

#include <QPainter>
#include <array>

namespace tarvo::art {
namespace {

/// How many samples lie along one edge of a pixel. Large pictures need fewer.
int Fineness(int width) {
  return width > 200 ? 4 : 8;
}

/// The average of the square of samples at that pixel, colours weighed by their alpha.
QRgb Average(const QImage& fine, int x, int y, int fineness) {
  std::array<int, 4> sums{};
  for (int row = y * fineness; row < (y + 1) * fineness; ++row) {
    const auto* line = reinterpret_cast<const QRgb*>(fine.constScanLine(row));
    for (int column = x * fineness; column < (x + 1) * fineness; ++column) {
      const QRgb sample = line[column];
      sums[0] += qRed(sample);
      sums[1] += qGreen(sample);
      sums[2] += qBlue(sample);
      sums[3] += qAlpha(sample);
    }
  }
  const int count = fineness * fineness;
  for (int& sum : sums) sum = (sum + count / 2) / count;
  return qRgba(sums[0], sums[1], sums[2], sums[3]);
}

}  // namespace

QImage Drawn(int width, int height, const std::function<void(QPainter&)>& draw) {
  const int fineness = Fineness(width);
  QImage fine(width * fineness, height * fineness, QImage::Format_ARGB32_Premultiplied);
  fine.fill(Qt::transparent);
  {
    QPainter painter(&fine);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(fineness, fineness);
    draw(painter);
  }
  QImage picture(width, height, QImage::Format_ARGB32_Premultiplied);
  for (int y = 0; y < height; ++y) {
    auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
    for (int x = 0; x < width; ++x) line[x] = Average(fine, x, y, fineness);
  }
  return picture.convertToFormat(QImage::Format_ARGB32);
}

QColor ToQt(const Colour& colour) {
  return {colour.Red, colour.Green, colour.Blue, colour.Alpha};
}

QColor Mix(const QColor& a, const QColor& b, double share) {
  const auto part = [&](int from, int to) { return qRound(from + (to - from) * share); };
  return {part(a.red(), b.red()), part(a.green(), b.green()), part(a.blue(), b.blue()),
          part(a.alpha(), b.alpha())};
}

QColor WithAlpha(QColor colour, double alpha) {
  colour.setAlpha(qRound(alpha * 255));
  return colour;
}

}  // namespace tarvo::art
