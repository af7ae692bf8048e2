#include "assistant/PacDialogue.h"

#include <optional>

#include "assistant/frmPac_InputBox.h"
#include "platform/Windows.h"

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
      break;
  }
  return {};
}

}  // namespace

void PacDialogue::PacMsg(TextView text, Title title) {
  if (const auto icon = IconOf(title)) {
    app_.machine.windows.ShowMessage(text, u"Tarvo Packager", *icon);
  }
}

Text PacDialogue::PacInput(TextView text, Title title) {
  app_.State.PacAnswer.clear();
  auto& dialog = app_.Screen<frmPac_InputBox>();
  dialog.LayOutQuestion(text, title);
  app_.screens.RunModal(dialog);
  return app_.State.PacAnswer;
}

Text PacDialogue::PacAskText(TextView text, Title) {
  app_.State.PacAnswer.clear();
  auto& dialog = app_.Screen<frmPac_InputBox>();
  dialog.lblInput.Caption = Text(text);
  app_.screens.RunModal(dialog);
  return app_.State.PacAnswer;
}

void PacDialogue::PacSetButtons(TextView yesCaption, TextView noCaption) {
  app_.State.PacButtonCaptions = {Text(yesCaption), Text(noCaption)};
}

}  // namespace tarvo
