#pragma once

#include "state/AppState.h"

namespace tarvo {

/// The messages that wait for the assistant's figure: PacQueue with its titles and prompts. Place 0
/// of the titles and prompts, the message in progress, is never touched here.

inline constexpr TextView kGoodBye = u"Good-Bye and Have a nice day!";

struct Message {
  tarvo::Text Text;
  tarvo::Title Title = tarvo::Title::None;
  bool IsQuestion = false;
};

/// Puts a message at the end. Ten may wait; one more is lost, unless it is a question, which has a
/// dialog that waits for it, or the good-bye, at which the process ends.
void AppendMessage(AppState& state, const Message& message);

/// Takes the first message off; one with no text where none waits.
Message TakeMessage(AppState& state);

/// Takes off the questions: their dialog doesn't wait for the figure any more.
void WithdrawQuestions(AppState& state);

bool IsWaiting(const AppState& state, TextView text);

}  // namespace tarvo
