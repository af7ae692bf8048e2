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

  /// The text page with these words over the line to type in.
  void LayOutRequest(TextView request);

  /// Shows, above the question or request, what was to be told before it.
  void ShowBefore(const std::vector<Text>& messages);

  /// Switches the buttons on. With the assistant on they wait for its figure to get to the
  /// question.
  void Wake();

  Shape Shape1{this};
  Label lblInput{this};
  TextBox txtInputBox{this};
  Button cmdOk{this}, cmdCancel{this};
  Shape Shape2{this};
  Button cmdYes{this}, cmdNo{this}, cmdAll{this};
  Label lblWait{this};  ///< How to wake the buttons sooner.
  Timer InputBox_Timer{this, 5};

 private:
  void LayOut();
  void SetPictures();
  void Connect();
  void Answer(Button& button, const std::function<Text()>& answer);
  void LetEscapeGiveNeither();
  void StandOverMain();
  void HangBelowHelper();
  void Grow(int twips);
  void ShowWords(TextView words, int room);
  void ShowWait();
  void KeepOnScreen();

  Application& app_;
  float TargetWidth_ = 0;    ///< The width that the dialog opens to.
  Button* first_ = nullptr;  ///< What the keyboard is on first; nothing for the text page.
  bool renamed_ = false;     ///< The buttons of the question have captions of the caller's own.
  bool hangs_ = false;       ///< Below the assistant's window.
  int helperGrowth_ = 0;     ///< What that window has grown by.
};

}  // namespace tarvo
