#pragma once

#include "text/Text.h"

namespace tarvo {

/// The title of a message picks its icon; the word itself is never shown. A message without one
/// shows no box.
enum class Title { None, Information, Question, Warning, Critical };

/// All dialogue with the user. Whoever stands above (the assistant's folder, or the console)
/// implements it.
class Dialogue {
 public:
  virtual ~Dialogue() = default;

  /// Tells the user something.
  virtual void PacMsg(TextView text, Title title) = 0;

  /// Asks a question: gives "Yes" or "No", with the title Warning also "All". Any other answer,
  /// the empty text among them, counts as none of them.
  virtual Text PacInput(TextView text, Title title) = 0;

  /// Asks for a line of text; empty when the user gives none.
  virtual Text PacAskText(TextView text, Title title) = 0;

  /// Captions for the next PacInput alone; its answers stay "Yes" and "No".
  virtual void PacSetButtons(TextView yesCaption, TextView noCaption) = 0;
};

}  // namespace tarvo
