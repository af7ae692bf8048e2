#pragma once

#include "text/Text.h"

namespace tarvo {

/// What the routines ask of the top window and the main menu above them.
class Shell {
 public:
  virtual ~Shell() = default;

  /// The status line.
  virtual void ShowStatus(TextView text) = 0;

  /// Something beside the command's own outcome, such as what it is waiting for.
  virtual void TellAside(TextView text) = 0;

  virtual void ShowMainMenu() = 0;

  /// The user has to choose the game's folder: the options open, and the menu waits behind them.
  virtual void ShowOptions() = 0;

  /// A work screen found a folder of the game missing: the user is to settle the game's folder.
  virtual void SettleGame() = 0;

  /// A work screen has closed: the menu takes over again.
  virtual void WorkScreenClosed() = 0;

  /// Runs or stops the timer that lets waiting messages follow.
  virtual void RunMessageTimer(bool run) = 0;
};

}  // namespace tarvo
