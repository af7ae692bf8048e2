#pragma once

#include "state/Application.h"
#include "state/Dialogue.h"

namespace tarvo {

struct Message;

/// The dialogue of the desktop program: message boxes and the dialog frmPac_InputBox, or with the
/// assistant on its figure, which speaks one message after the other.
class PacDialogue : public Dialogue {
 public:
  /// `app` is made with a reference to this object, so it may still be under way here.
  explicit PacDialogue(Application& app) : app_(app) {}

  void PacMsg(TextView text, Title title) override;
  void PacTip(TextView text, PacTipOf giver) override;
  void PacForgetTips() override;
  void PacEnd() override;
  Text PacInput(TextView text, Title title) override;
  bool PacLeavesOut(TextView text) const override;
  Text PacAskText(TextView text, Title title) override;
  void PacSetButtons(TextView yesCaption, TextView noCaption) override;
  void PacStart() override;
  void PacNextMessage() override;

 private:
  void Hand(const Message& message);
  void Announce(TextView text, Title title);
  void Begin(const Message& message);
  void PacEnableDialog();
  void ShowWaiting(const Message& message);

  Application& app_;
  Text unsaid_;  ///< The results that found no place in the queue; they stand in the status line.
};

}  // namespace tarvo
