#include "controls/MediaPlayer.h"

namespace tarvo {

void MediaPlayer::Start() {
  if (playing_) return;
  playing_ = true;
  begun_ = false;
  Changed();
}

void MediaPlayer::Stop() {
  if (!playing_) return;
  playing_ = false;
  pictures_.clear();
  if (opening_) Close();
  Changed();
}

void MediaPlayer::Open(int width, int height) {
  if (!playing_ || begun_) return;
  begun_ = true;
  Raise(OnOpening);
  opening_ = video_.Open(FileName.Get(), width, height, [this](VideoPictures pictures) {
    pictures_ = std::move(pictures);
    Changed();
    Close();
  });
}

void MediaPlayer::Close() {
  opening_.reset();
  Raise(OnOpened);
}

}  // namespace tarvo
