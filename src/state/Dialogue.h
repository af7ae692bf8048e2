#pragma once

#include "state/AppState.h"
#include "state/Title.h"
#include "text/Text.h"

namespace tarvo {

/// All dialogue with the user. Whoever stands above (the assistant's folder, or the console)
/// implements it.
class Dialogue {
 public:
  virtual ~Dialogue() = default;

  /// Tells the user something.
  virtual void PacMsg(TextView text, Title title) = 0;

  /// Something that only an assistant says. It goes unsaid when its giver has closed before it.
  virtual void PacTip(TextView, PacTipOf) {}

  /// The work screen has closed: its tips that still wait go.
  virtual void PacForgetTips() {}

  /// The process is about to end. Tips that still wait go; results that do are told in the status
  /// line.
  virtual void PacEnd() {}

  /// Asks a question: gives "Yes" or "No", with the title Warning also "All". Any other answer,
  /// the empty text among them, counts as none of them.
  virtual Text PacInput(TextView text, Title title) = 0;

  /// True for a question that PacInput would not ask, since these words were the last to be said.
  virtual bool PacLeavesOut(TextView) const { return false; }

  /// PacInput for a question that must not go unasked. Where it would be left out, it is asked in
  /// other words, which tell it apart.
  Text PacInputInAnyCase(TextView text, TextView otherWords, Title title) {
    return PacInput(PacLeavesOut(text) ? otherWords : text, title);
  }

  /// Asks for a line of text; empty when the user gives none.
  virtual Text PacAskText(TextView text, Title title) = 0;

  /// Captions for the next PacInput alone, asked or not; its answers stay "Yes" and "No", and with
  /// Escape it gives "Neither".
  virtual void PacSetButtons(TextView yesCaption, TextView noCaption) = 0;

  /// The settings have been read, at the start of the process or anew: an assistant that is
  /// switched on comes on and greets.
  virtual void PacStart() {}

  /// A tick of the timer that lets waiting messages follow.
  virtual void PacNextMessage() {}
};

}  // namespace tarvo
