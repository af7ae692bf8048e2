#pragma once

#include <optional>
#include <vector>

#include "state/AppState.h"

namespace tarvo {

/// The messages that wait for the assistant's figure: PacQueue with its titles and prompts. Place 0
/// of the titles and prompts, the message in progress, is never touched here.

inline constexpr TextView kGoodBye = u"Good-Bye and Have a nice day!";

struct Message {
  tarvo::Text Text;
  tarvo::Title Title = tarvo::Title::None;
  bool IsQuestion = false;
  PacTipOf Tip = PacTipOf::Nobody;
};

/// Puts a message at the end. Ten may wait; one more finds no place, and the result is false,
/// unless it is a question, which has a dialog that waits for it, or the good-bye, at which the
/// process ends. A tip gives its place up to any other message.
bool AppendMessage(AppState& state, const Message& message);

/// Takes the first message off; one with no text where none waits.
Message TakeMessage(AppState& state);

/// A question, and the results that were to be told before it.
struct WaitingQuestion {
  Message Question;
  std::vector<Text> Before;
};

/// Takes the first question off, with the results in front of it; nothing where none waits.
std::optional<WaitingQuestion> TakeQuestion(AppState& state);

/// Takes the results off.
std::vector<Text> TakeResults(AppState& state);

/// Takes the tips off: those of the screen that is open, or all.
void DropTips(AppState& state, bool all);

/// Takes off the questions: their dialog doesn't wait for the figure any more.
void WithdrawQuestions(AppState& state);

bool IsWaiting(const AppState& state, TextView text);

}  // namespace tarvo
