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
    state.PacTips[place] = state.PacTips[place + 1];
    state.PacQueue[place + 1].clear();
  }
}

/// Takes off the waiting messages in front of `end` that are of a kind, the last one first.
template <class OfKind>
void TakeOff(AppState& state, std::size_t end, OfKind&& isOfKind) {
  for (std::size_t place = end; place-- > 0;) {
    if (!state.PacQueue[place].empty() && isOfKind(place)) MoveUp(state, place);
  }
}

bool IsResult(const AppState& state, std::size_t place) {
  return state.PacTips[place] == PacTipOf::Nobody && !state.PacPrompts[place + 1];
}

std::vector<Text> TakeResultsBefore(AppState& state, std::size_t end) {
  std::vector<Text> results;
  TakeOff(state, end, [&](std::size_t place) {
    if (!IsResult(state, place)) return false;
    results.insert(results.begin(), state.PacQueue[place]);
    return true;
  });
  return results;
}

/// Gives true when there was a tip to give way.
bool DropLastTip(AppState& state) {
  bool dropped = false;
  TakeOff(state, kMessages, [&](std::size_t place) {
    return !dropped && (dropped = state.PacTips[place] != PacTipOf::Nobody);
  });
  return dropped;
}

}  // namespace

bool AppendMessage(AppState& state, const Message& message) {
  const bool mustWait = message.IsQuestion || message.Text == kGoodBye;
  const auto end = state.PacQueue.begin() + (mustWait ? kPlaces : kMessages);
  const auto free = std::find(state.PacQueue.begin(), end, Text());
  if (free == end) {
    return message.Tip == PacTipOf::Nobody && DropLastTip(state) && AppendMessage(state, message);
  }
  const auto place = static_cast<std::size_t>(free - state.PacQueue.begin());
  state.PacTips[place] = message.Tip;
  state.PacQueue[place] = message.Text;
  state.PacTitles[place + 1] = message.Title;
  state.PacPrompts[place + 1] = message.IsQuestion;
  return true;
}

Message TakeMessage(AppState& state) {
  Message first{state.PacQueue[0], state.PacTitles[1], state.PacPrompts[1], state.PacTips[0]};
  MoveUp(state, 0);
  return first;
}

std::optional<WaitingQuestion> TakeQuestion(AppState& state) {
  const auto found = std::find(state.PacPrompts.begin() + 1, state.PacPrompts.end(), true);
  if (found == state.PacPrompts.end()) return {};
  const auto place = static_cast<std::size_t>(found - state.PacPrompts.begin()) - 1;
  WaitingQuestion waiting{{state.PacQueue[place], state.PacTitles[place + 1], true}, {}};
  MoveUp(state, place);
  waiting.Before = TakeResultsBefore(state, place);
  return waiting;
}

std::vector<Text> TakeResults(AppState& state) {
  return TakeResultsBefore(state, kPlaces);
}

void DropTips(AppState& state, bool all) {
  TakeOff(state, kPlaces, [&](std::size_t place) {
    const PacTipOf tip = state.PacTips[place];
    return all ? tip != PacTipOf::Nobody : tip == PacTipOf::Screen;
  });
}

void WithdrawQuestions(AppState& state) {
  TakeOff(state, kPlaces, [&](std::size_t place) { return state.PacPrompts[place + 1]; });
}

bool IsWaiting(const AppState& state, TextView text) {
  return std::find(state.PacQueue.begin(), state.PacQueue.end(), text) != state.PacQueue.end();
}

}  // namespace tarvo
