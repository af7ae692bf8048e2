#pragma once

#include <QImage>
#include <span>

#include "SkinParts.h"

namespace tarvo::art {

/// A picture that stands on the screens.
struct SkinPicture {
  const char* name;
  int width, height;  ///< In pixels at normal density.
  Drawing draw;
};

std::span<const SkinPicture> SkinPictures();

/// `density` times as fine, on black ground.
QImage Drawn(const SkinPicture& picture, int density);

}  // namespace tarvo::art
