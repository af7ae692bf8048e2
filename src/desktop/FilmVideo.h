#pragma once

#include <QStringList>
#include <memory>

#include "platform/Video.h"

namespace tarvo {

class Files;

/// Video by way of the module tarvo_video. The module, and with it libav, is loaded with the first
/// file that there is to open, and works on a thread of its own. Without the module every video is
/// one that can't be played. A QApplication must exist before it and live longer.
class FilmVideo : public Video {
 public:
  /// `folders`: where on the host the module may lie.
  explicit FilmVideo(Files& files, QStringList folders = UsualFolders());

  /// Gives up what is being opened, and waits a moment for it.
  ~FilmVideo() override;

  std::unique_ptr<VideoOpening> Open(TextView file, int width, int height,
                                     std::function<void(VideoPictures)> opened) override;

  /// Beside the program's own file, and where an installed program has its modules.
  static QStringList UsualFolders();

 private:
  class Work;
  class Opening;

  Files& files_;
  std::shared_ptr<Work> work_;
};

}  // namespace tarvo
