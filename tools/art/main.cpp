// Draws the pictures of the project in this folder: art FOLDER

#include <QDir>
#include <QImageWriter>
#include <cstdio>

#include "Badges.h"
#include "DialogButtons.h"
#include "Figure.h"
#include "Icon.h"
#include "Poses.h"
#include "Skin.h"

namespace {

bool Write(const QImage& picture, const QString& file) {
  QImageWriter writer(file);  // In the format that the name tells.
  if (file.endsWith(".png")) writer.setCompression(100);
  if (QDir().mkpath(QFileInfo(file).path()) && writer.write(picture)) return true;
  std::fprintf(stderr, "art: can't write %s\n", qPrintable(file));
  return false;
}

bool WriteIcons(const QString& folder, QImage (*draw)(int), std::initializer_list<int> sizes) {
  bool all = true;
  for (const int size : sizes) {
    all &= Write(draw(size), QStringLiteral("%1/%2.png").arg(folder).arg(size));
  }
  return all;
}

/// FOLDER/NAME and, twice as dense, FOLDER/NAME@2x, each with the format behind it.
bool WriteBoth(const QString& folder, const QString& name, const std::function<QImage(int)>& draw,
               const QString& format = ".png") {
  return Write(draw(1), folder + '/' + name + format) &&
         Write(draw(2), folder + '/' + name + "@2x" + format);
}

bool WriteAssistant(const QString& folder) {
  bool all = true;
  for (const tarvo::art::NamedSet& set : tarvo::art::PoseSets()) {
    for (int frame = 0; frame < tarvo::art::kFrames; ++frame) {
      all &= WriteBoth(folder, set.name + QString::number(frame), [&](int density) {
        return tarvo::art::AssistantFrame(set.poses[frame], density);
      });
    }
  }
  for (const auto& [name, title] : tarvo::art::kTitles) {
    all &= WriteBoth(folder, name,
                     [&](int density) { return tarvo::art::TitlePicture(title, density); });
  }
  return all;
}

bool WriteDialog(const QString& folder) {
  bool all = true;
  for (const auto& [name, reply] : tarvo::art::kReplies) {
    all &= WriteBoth(folder, name,
                     [&](int density) { return tarvo::art::ReplyPicture(reply, density); });
  }
  return all;
}

bool WriteSkin(const QString& folder) {
  bool all = true;
  for (const tarvo::art::SkinPicture& picture : tarvo::art::SkinPictures()) {
    all &= WriteBoth(
        folder, picture.name, [&](int density) { return tarvo::art::Drawn(picture, density); },
        ".bmp");
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
  const QString resources = folder + "/src/desktop/resources";
  bool all = WriteIcons(resources + "/icon", tarvo::art::ProgramIcon,
                        {16, 22, 24, 32, 48, 64, 128, 256, 512});
  all &= WriteIcons(folder + "/packaging/icons/mimetypes", tarvo::art::PackageIcon,
                    {16, 22, 24, 32, 48, 64, 128, 256});
  all &= WriteAssistant(resources + "/assistant");
  all &= WriteDialog(resources + "/dialog");
  all &= WriteSkin(folder + "/data/Gfx");
  return all ? 0 : 1;
}
