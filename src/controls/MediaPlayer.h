#pragma once

#include <memory>

#include "controls/Control.h"
#include "platform/Video.h"

namespace tarvo {

/// A video player without visible controls of its own. Stopped, it is empty and shows what is
/// behind it; so it is while a file is being opened, and with one that can't be played. It takes no
/// mouse.
class MediaPlayer : public Control {
 public:
  MediaPlayer(Control* parent, Video& video) : Control(parent), video_(video) {}
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  Property<Text> FileName{*this, {}};   ///< The video's game path, as of the next start.
  Property<bool> Repeats{*this, true};  ///< Plays without end; otherwise it stops at the end.

  /// Around the decoder's work on the file. The second one is raised whatever came of the work,
  /// also when a stop has ended it.
  std::function<void()> OnOpening;
  std::function<void()> OnOpened;

  /// Neither takes any time: the file is opened once the view has room for it.
  void Start();
  void Stop();
  bool Playing() const { return playing_; }

  /// For the view, which has a place of so many pixels to show the video in: opens the file, once
  /// for each start.
  void Open(int width, int height);

  /// What there is to show; empty as long as there is nothing.
  const VideoPictures& Pictures() const { return pictures_; }

 private:
  void Close();

  Video& video_;
  std::unique_ptr<VideoOpening> opening_;
  VideoPictures pictures_;
  bool playing_ = false;
  bool begun_ = false;  ///< The file of this start was opened, or is being opened.
};

}  // namespace tarvo
