#include "assistant/PacDialogue.h"

#include <optional>

#include "assistant/MessageQueue.h"
#include "assistant/frmPac_Helper.h"
#include "assistant/frmPac_InputBox.h"
#include "platform/Windows.h"
#include "state/Shell.h"
#include "text/Lines.h"

namespace tarvo {
namespace {

std::optional<BoxIcon> IconOf(Title title) {
  switch (title) {
    case Title::Information:
      return BoxIcon::Information;
    case Title::Question:
      return BoxIcon::Question;
    case Title::Warning:
      return BoxIcon::Exclamation;
    case Title::Critical:
      return BoxIcon::Critical;
    case Title::None:
    case Title::Mad:
      break;
  }
  return {};
}

void ShowBox(Application& app, TextView text, Title title) {
  if (const auto icon = IconOf(title)) {
    app.machine.windows.ShowMessage(text, u"Tarvo Packager", *icon);
  }
}

}  // namespace

void PacDialogue::PacMsg(TextView text, Title title) {
  if (!app_.State.PacHelper) return ShowBox(app_, text, title);
  Hand({Text(text), title, app_.State.PacAsking});
}

void PacDialogue::PacTip(TextView text, PacTipOf giver) {
  if (app_.State.PacHelper) Hand({Text(text), Title::Information, false, giver});
}

void PacDialogue::PacForgetTips() {
  DropTips(app_.State, false);
}

void PacDialogue::PacEnd() {
  DropTips(app_.State, true);
  std::vector<Text> results = TakeResults(app_.State);
  if (!unsaid_.empty()) results.push_back(unsaid_);
  if (!results.empty()) app_.shell->ShowStatus(Joined(results, u"  "));
}

void PacDialogue::Hand(const Message& message) {
  AppState& state = app_.State;
  auto& helper = app_.Screen<frmPac_Helper>();
  if (helper.HasLeft()) {
    helper.PacWalkIn();
    if (const Message first = TakeMessage(state); !first.Text.empty()) Begin(first);
  }
  const bool free = state.PacState == PacActivity::Idle && state.PacQueue[0].empty();
  // A question is never left out: its dialog waits for it.
  const bool isBeingSaid = state.PacState == PacActivity::Talk && !message.IsQuestion &&
                           message.Text == helper.lblPac_Label.Caption.Get();
  if (free || state.PacSpeech.empty()) {
    Begin(message);
  } else if (!isBeingSaid && !AppendMessage(state, message) && message.Tip == PacTipOf::Nobody) {
    unsaid_ += (unsaid_.empty() ? Text() : u"  ") + message.Text;
    app_.shell->ShowStatus(unsaid_);
  }
}

bool PacDialogue::PacLeavesOut(TextView text) const {
  const auto* helper = app_.screens.Find<frmPac_Helper>();
  return app_.State.PacHelper && helper && text == helper->lblPac_Label.Caption.Get();
}

Text PacDialogue::PacInput(TextView text, Title title) {
  if (PacLeavesOut(text)) {
    PacSetButtons({}, {});
    app_.shell->ShowStatus(u"Not asked twice in a row, and taken as refused: " + Text(text));
    return {};
  }
  Announce(text, title);
  auto& dialog = app_.Screen<frmPac_InputBox>();
  dialog.LayOutQuestion(text, title);
  app_.screens.RunModal(dialog);
  return app_.State.PacAnswer;
}

Text PacDialogue::PacAskText(TextView text, Title title) {
  Announce(text, title);
  auto& dialog = app_.Screen<frmPac_InputBox>();
  dialog.LayOutRequest(text);
  app_.screens.RunModal(dialog);
  return app_.State.PacAnswer;
}

void PacDialogue::PacSetButtons(TextView yesCaption, TextView noCaption) {
  app_.State.PacButtonCaptions = {Text(yesCaption), Text(noCaption)};
}

void PacDialogue::PacStart() {
  auto& helper = app_.Screen<frmPac_Helper>();
  app_.State.PacExiting = false;
  if (!app_.State.PacHelper) return DropTips(app_.State, true);
  helper.PacWalkIn();
  PacTip(u"Hi There I'm Pac-Man!!!  I will help you with this Program!", PacTipOf::Program);
}

void PacDialogue::PacNextMessage() {
  AppState& state = app_.State;
  if (state.PacQueue[0].empty()) unsaid_.clear();
  if (state.PacQueue[0].empty() || state.PacState != PacActivity::Idle) return;
  if (const auto waiting = TakeQuestion(state)) {
    app_.Screen<frmPac_InputBox>().ShowBefore(waiting->Before);
    return Begin(waiting->Question);
  }
  const Message first = TakeMessage(state);
  if (!state.PacHelper) return ShowWaiting(first);
  if (first.Text == kGoodBye) state.PacExiting = true;
  Begin(first);
}

/// Hands the words of the dialog that opens next to the figure.
void PacDialogue::Announce(TextView text, Title title) {
  app_.State.PacAnswer.clear();
  if (!app_.State.PacHelper) return;
  app_.State.PacAsking = true;
  PacMsg(text, title);
  app_.State.PacAsking = false;
}

/// The figure walks to its place and speaks. One that stands there takes the last step again.
void PacDialogue::Begin(const Message& message) {
  AppState& state = app_.State;
  state.PacSpeech = message.Text;
  state.PacTitles[0] = message.Title;
  state.PacPrompts[0] = message.IsQuestion;
  app_.Screen<frmPac_Helper>().StepBack();
  PacEnableDialog();
}

/// Lets the user answer as soon as the figure has got to the question. No other message follows
/// until he has.
void PacDialogue::PacEnableDialog() {
  if (!app_.State.PacPrompts[0]) return;
  app_.shell->RunMessageTimer(false);
  app_.Screen<frmPac_InputBox>().Wake();
}

/// A message that waited when the assistant was switched off. Its box holds up those behind it.
void PacDialogue::ShowWaiting(const Message& message) {
  app_.shell->RunMessageTimer(false);
  ShowBox(app_, message.Text, message.Title);
  app_.shell->RunMessageTimer(true);
}

}  // namespace tarvo
