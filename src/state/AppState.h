#pragma once

#include <array>
#include <cstdint>

#include "state/Title.h"
#include "text/Text.h"

namespace tarvo {

/// What the assistant's figure does.
enum class PacActivity {
  Idle,  ///< It stands where it stopped, or isn't on.
  Walk,
  Talk
};

/// Whose tip a message is: something that only the assistant says.
enum class PacTipOf {
  Nobody,  ///< No tip: the result of a command, or a question.
  Program,
  Screen  ///< The work screen that is open.
};

/// As PacTalkTicks: the figure has said all that it says.
inline constexpr std::int16_t kPacSpoken = 999;

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

  PacActivity PacState = PacActivity::Idle;
  float PacX = 0;                 ///< The figure's left edge in its window, in twips.
  std::int16_t PacFrame = 0;      ///< The frame of the running animation, from 0.
  std::int16_t PacLastFrame = 0;  ///< The last one of that animation.
  std::int16_t PacTalkTicks = 0;  ///< Ticks since the figure began to speak.
  Text PacSpeech;                 ///< The message in progress: spoken, or walked in with.

  /// The waiting messages, the first in front; an empty text marks a free place.
  std::array<Text, 21> PacQueue;

  /// At 0 of the message in progress; that of PacQueue[i] stands at i + 1.
  std::array<Title, 22> PacTitles{};

  /// Numbered as PacTitles: the message is the question of an open dialog.
  std::array<bool, 21> PacPrompts{};

  /// Numbered as PacQueue.
  std::array<PacTipOf, 21> PacTips{};

  bool PacAsking = false;   ///< The message that is being handed over is a question.
  bool PacExiting = false;  ///< The process ends as soon as the figure has walked off.
  Text PacAnswer;           ///< The answer of the dialog frmPac_InputBox.

  /// Captions that replace "&Yes" and "&No" in the next dialog; empty keeps the usual one.
  std::array<Text, 2> PacButtonCaptions;
};

}  // namespace tarvo
