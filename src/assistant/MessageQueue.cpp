#include "assistant/MessageQueue.h"

#include <algorithm>

namespace tarvo {
namespace {

constexpr std::size_t kMessages = 10;

/// A question and the good-bye can both come on top.
constexpr std::size_t kPlaces = kMessages + 2;

/// Closes the gap at a place that has become free.
void MoveUp(AppState& state, std::size_t place) {
  for (; place < kPlaces; ++place) {
    state.PacQueue[place] = std::move(state.PacQueue[place + 1]);
    state.PacTitles[place + 1] = state.PacTitles[place + 2];
    state.PacPrompts[place + 1] = state.PacPrompts[place + 2];
    state.PacQueue[place + 1].clear();
  }
}

}  // namespace

void AppendMessage(AppState& state, const Message& message) {
  const bool mustWait = message.IsQuestion || message.Text == kGoodBye;
  const auto end = state.PacQueue.begin() + (mustWait ? kPlaces : kMessages);
  const auto free = std::find(state.PacQueue.begin(), end, Text());
  if (free == end) return;
  const auto place = static_cast<std::size_t>(free - state.PacQueue.begin());
  state.PacQueue[place] = message.Text;
  state.PacTitles[place + 1] = message.Title;
  state.PacPrompts[place + 1] = message.IsQuestion;
}

Message TakeMessage(AppState& state) {
  Message first{state.PacQueue[0], state.PacTitles[1], state.PacPrompts[1]};
  MoveUp(state, 0);
  return first;
}

void WithdrawQuestions(AppState& state) {
  for (std::size_t place = kPlaces; place-- > 0;) {
    if (state.PacPrompts[place + 1]) MoveUp(state, place);
  }
}

bool IsWaiting(const AppState& state, TextView text) {
  return std::find(state.PacQueue.begin(), state.PacQueue.end(), text) != state.PacQueue.end();
}

}  // namespace tarvo
