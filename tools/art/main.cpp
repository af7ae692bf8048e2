// Draws the program's own pictures: art FOLDER, the folder being src/desktop/resources.

#include <QDir>
#include <QImageWriter>
#include <cstdio>

#include "Icon.h"

namespace {

bool Write(const QImage& picture, const QString& file) {
  QImageWriter writer(file, "png");
  writer.setCompression(100);
  if (QDir().mkpath(QFileInfo(file).path()) && writer.write(picture)) return true;
  std::fprintf(stderr, "art: can't write %s\n", qPrintable(file));
  return false;
}

bool WriteIcons(const QString& folder) {
  bool all = true;
  for (const int size : {16, 22, 24, 32, 48, 64, 128, 256, 512}) {
    all &= Write(tarvo::art::ProgramIcon(size), QStringLiteral("%1/%2.png").arg(folder).arg(size));
  }
  return all;
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) {
    std::fputs("Usage: art FOLDER\n", stderr);
    return 2;
  }
  const QString folder = QString::fromLocal8Bit(arguments[1]);
  return WriteIcons(folder + "/icon") ? 0 : 1;
}
