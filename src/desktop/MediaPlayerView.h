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

  bool InSight() const;

  /// It was painted, or its window has come back to the screen.
  std::function<void()> OnSeen;

 protected:
  void showEvent(QShowEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  std::shared_ptr<const VideoPicture> picture_;
};

/// The file is opened when the player has come on the screen, so that the window comes first.
/// While nothing of the player can be seen, nothing goes on.
class MediaPlayerView : public ViewOf<MediaPlayer, VideoFace> {
 public:
  MediaPlayerView(MediaPlayer& model, QWidget* parent);
  void Apply() override;
  void Detach() override;

 private:
  void GoOn();
  void Open();
  void Next();

  QTimer pace_;
  std::size_t shown_ = 0;  ///< The number of the picture that is shown.
};

}  // namespace tarvo
