#pragma once

#include <array>
#include <cstdint>

#include "text/Text.h"

namespace tarvo {

/// The record of process-wide state. A field that nobody has set is empty, 0 or false.
struct AppState {
  /// The game's folder, or empty. Normally without a backslash at its end, but as it stands when
  /// it comes from the registry.
  Text GamePath;

  Text AppVersion;

  /// Whose progress bar ReadFileText drives: "Game Tools", "Packager", "TGL Tools", or empty for
  /// no bar. It isn't reset when a screen closes.
  Text CurrentScreen;

  std::uint32_t ReadChunkSize = 0;    ///< Bytes that ReadFileText reads at a time.
  std::int16_t MissingFileCount = 0;  ///< Misses of CheckFile since the last reset.
  bool SoundFX = false;
  bool VideoFX = false;
  bool PacHelper = false;  ///< The assistant is in charge of the dialogue.

  Text PacAnswer;  ///< The answer of the dialog frmPac_InputBox.

  /// Captions that replace "&Yes" and "&No" in the next dialog; empty keeps the usual one.
  std::array<Text, 2> PacButtonCaptions;
};

}  // namespace tarvo
