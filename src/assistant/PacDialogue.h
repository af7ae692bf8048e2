#pragma once

#include "state/Application.h"
#include "state/Dialogue.h"

namespace tarvo {

/// The dialogue of the desktop program: message boxes and the dialog frmPac_InputBox.
class PacDialogue : public Dialogue {
 public:
  /// `app` is made with a reference to this object, so it may still be under way here.
  explicit PacDialogue(Application& app) : app_(app) {}

  void PacMsg(TextView text, Title title) override;
  Text PacInput(TextView text, Title title) override;
  Text PacAskText(TextView text, Title title) override;
  void PacSetButtons(TextView yesCaption, TextView noCaption) override;

 private:
  Application& app_;
};

}  // namespace tarvo
