#pragma once

#include "controls/Button.h"
#include "controls/Form.h"
#include "controls/Label.h"
#include "controls/Shape.h"
#include "controls/TextBox.h"
#include "controls/Timer.h"
#include "state/Application.h"
#include "state/Dialogue.h"

namespace tarvo {

/// The one modal dialog: a line of text to type, or, laid out anew, a question. Its answer arrives
/// in AppState::PacAnswer.
class frmPac_InputBox : public Form {
 public:
  explicit frmPac_InputBox(Application& app);

  void Load() override;
  void Unload() override;

  /// Brings the Yes/No page in place of the text page; a Warning offers "Yes to All" too.
  void LayOutQuestion(TextView question, Title title);

  Shape Shape1{this};
  Label lblInput{this};
  TextBox txtInputBox{this};
  Button cmdOk{this}, cmdCancel{this};
  Shape Shape2{this};
  Button cmdYes{this}, cmdNo{this}, cmdAll{this};
  Timer InputBox_Timer{this, 5};

 private:
  void LayOut();
  void Connect();
  void Answer(Button& button, const std::function<Text()>& answer);

  Application& app_;
  float TargetWidth_ = 0;  ///< The width that the dialog opens to.
};

}  // namespace tarvo
