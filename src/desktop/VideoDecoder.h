#pragma once

#include <atomic>

#include "platform/Video.h"
#include "text/Text.h"

namespace tarvo {

/// What the module tarvo_video does, under the name kVideoDecoder: gives the pictures of a
/// QuickTime film in memory, or none when it is broken or `givenUp` has become true. They take at
/// most kVideoMemory bytes: a long video gets smaller pictures, and loses its end when that isn't
/// enough.
using VideoDecoder = void(FileTextView film, int width, int height,
                          const std::atomic<bool>& givenUp, VideoPictures& pictures);

inline constexpr const char* kVideoDecoder = "TarvoDecodeVideo";
inline constexpr std::size_t kVideoMemory = 64 << 20;

}  // namespace tarvo
