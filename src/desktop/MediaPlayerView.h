#pragma once

#include <QTimer>

#include "controls/MediaPlayer.h"
#include "desktop/View.h"

namespace tarvo {

/// Shows one picture in its middle, on black; without one what is behind it.
class VideoFace : public QWidget {
 public:
  explicit VideoFace(QWidget* parent);

  void Show(std::shared_ptr<const VideoPicture> picture);

  std::function<void()> OnPainted;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::shared_ptr<const VideoPicture> picture_;
};

/// The file is opened when the player has come on the screen, so that the window comes first.
/// While nothing of the player can be seen, nothing goes on: the next painting wakes it.
class MediaPlayerView : public ViewOf<MediaPlayer, VideoFace> {
 public:
  MediaPlayerView(MediaPlayer& model, QWidget* parent);
  void Apply() override;
  void Detach() override;

 private:
  void Painted();
  void Open();
  void Next();
  bool InSight() const;

  QTimer pace_;
  std::size_t shown_ = 0;  ///< The number of the picture that is shown.
};

}  // namespace tarvo
