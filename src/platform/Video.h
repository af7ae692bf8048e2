#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "text/Text.h"

namespace tarvo {

inline constexpr int kPicturesPerSecond = 15;

/// One picture of a video: rows of Width pixels without gaps, each pixel 0xffRRGGBB.
struct VideoPicture {
  int Width = 0;
  int Height = 0;
  std::vector<std::uint32_t> Pixels;
};

/// The pictures of a video in the order in which they are shown, kPicturesPerSecond of them. One
/// that stands for longer comes several times.
using VideoPictures = std::vector<std::shared_ptr<const VideoPicture>>;

/// A video that is being opened. Its end gives that up, and waits for nothing.
class VideoOpening {
 public:
  virtual ~VideoOpening() = default;
};

/// Video files as pictures, without their sound.
class Video {
 public:
  virtual ~Video() = default;

  /// Begins to open a file, named by its game path, and returns at once. Later the event loop of
  /// the caller's thread calls `opened`, once, unless the opening has ended before: with all
  /// pictures, the shape kept and at most `width` by `height` pixels large, or with none of a file
  /// that is missing or can't be played. Never throws.
  virtual std::unique_ptr<VideoOpening> Open(TextView file, int width, int height,
                                             std::function<void(VideoPictures)> opened) = 0;
};

}  // namespace tarvo
