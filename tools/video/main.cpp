// Draws the video loops that lie beside the program: render_videos FOLDER
// With --pictures it writes each picture as a PNG file instead.

#include <QDir>
#include <QImage>
#include <cstdio>
#include <exception>
#include <optional>

#include "Encoder.h"
#include "Scenes.h"

namespace tarvo::video {
namespace {

constexpr int kSeconds = 6;
constexpr int kPictures = kSeconds * kPicturesPerSecond;
constexpr int kDensity = 2;  ///< Pixels to the unit of a scene: for dense screens.

QImage Draw(const Scene& scene, int number) {
  QImage picture(scene.Size * kDensity, QImage::Format_RGB32);
  picture.fill(Qt::black);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(kDensity, kDensity);
  scene.Paint(painter, static_cast<double>(number) / kPictures);
  return picture;
}

void Render(const Scene& scene, const QDir& folder, bool pictures) {
  const QString file = folder.filePath(scene.File);
  std::optional<Encoder> film;
  if (!pictures) film.emplace(file, scene.Size * kDensity);
  for (int number = 0; number < kPictures; ++number) {
    const QImage picture = Draw(scene, number);
    if (film) {
      film->Add(picture);
    } else if (!picture.save(file + QString::asprintf("-%03d.png", number))) {
      throw std::runtime_error("can't write the pictures");
    }
  }
  if (film) film->End();
}

}  // namespace
}  // namespace tarvo::video

int main(int count, char** arguments) {
  using namespace tarvo::video;
  const bool pictures = count == 3 && qstrcmp(arguments[1], "--pictures") == 0;
  if (count != (pictures ? 3 : 2)) {
    std::fputs("Usage: render_videos [--pictures] FOLDER\n", stderr);
    return 2;
  }
  try {
    for (const Scene* scene : {&kMainScene, &kOptionsScene, &kTGLScene}) {
      Render(*scene, QDir(QString::fromLocal8Bit(arguments[count - 1])), pictures);
    }
    return 0;
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "render_videos: %s\n", failure.what());
    return 1;
  }
}
