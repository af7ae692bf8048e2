#include "assistant/frmPac_InputBox.h"

#include "controls/Palette.h"
#include "platform/Sound.h"
#include "state/CommonUtilities.h"

namespace tarvo {
namespace {

/// The Yes/No page waits this far below the text page.
constexpr int kPageHeight = 1800;

constexpr Colour kButtonColour{128, 128, 255};

}  // namespace

frmPac_InputBox::frmPac_InputBox(Application& app) : Form(Style::Dialog, app.MainForm), app_(app) {
  LayOut();
  Connect();
}

void frmPac_InputBox::LayOut() {
  Move(0, 0, 3495, 1815);
  BackColour = Colour{128, 0, 128};
  Shape1.Move(120, 120, 3255, 1575);
  Shape2.Move(120, 1920, 3255, 1575);
  lblInput.Move(240, 240, 3015, 855);
  txtInputBox.Move(360, 600, 2775, 345);
  cmdOk.Move(360, 1200, 1335, 375);
  cmdCancel.Move(1800, 1200, 1335, 375);
  cmdYes.Move(360, 3000, 1335, 375);
  cmdNo.Move(1800, 3000, 1335, 375);
  cmdAll.Move(1920, 3000, 1215, 375);
  cmdOk.Caption = u"&OK";
  cmdCancel.Caption = u"&Cancel";
  cmdYes.Caption = u"&Yes";
  cmdNo.Caption = u"&No";
  cmdAll.Caption = u"Yes to &All";
  for (Button* button : {&cmdOk, &cmdCancel, &cmdYes, &cmdNo, &cmdAll}) {
    button->BackColour = kButtonColour;
    button->Enabled = false;
  }
  cmdAll.Visible = false;
  Shape1.ForeColour = palette::kPeach;
  Shape2.ForeColour = palette::kPeach;
  lblInput.ForeColour = kWhite;
  lblInput.WordWrap = true;
  AccessibleName = u"Question";
  txtInputBox.AccessibleName = u"Answer";
  txtInputBox.BackColour = palette::kPanel;
  txtInputBox.ForeColour = kWhite;
  DefaultButton = &cmdOk;
  CancelButton = &cmdCancel;
}

void frmPac_InputBox::Connect() {
  Answer(cmdOk, [this] { return txtInputBox.Text(); });
  Answer(cmdCancel, [this] { return app_.State.PacAnswer; });
  Answer(cmdYes, [] { return u"Yes"; });
  Answer(cmdNo, [] { return u"No"; });
  Answer(cmdAll, [] { return u"All"; });
  InputBox_Timer.OnTimer = [this] {
    if (static_cast<float>(Width) < TargetWidth_) {
      Width = Width + 150;
    } else {
      InputBox_Timer.Enabled = false;
    }
  };
}

void frmPac_InputBox::Answer(Button& button, const std::function<Text()>& answer) {
  button.OnClick = [this, answer] {
    PlayEffect(app_, u"Click.wav", kPlayUnlessBusy);
    app_.State.PacAnswer = answer();
    app_.screens.Close(*this);
  };
}

void frmPac_InputBox::Load() {
  if (const Form* main = app_.MainForm) {
    Top = main->Top + main->Height / 3;
    Left = main->Left + main->Width / 3;
    BackColour = main->BackColour.Get();
  }
  for (Button* button : {&cmdOk, &cmdCancel, &cmdYes, &cmdNo, &cmdAll}) button->Enabled = true;
  TargetWidth_ = static_cast<float>(Width - 70);
  Width = 0;
  if (!app_.State.PacButtonCaptions[0].empty()) cmdYes.Caption = app_.State.PacButtonCaptions[0];
  if (!app_.State.PacButtonCaptions[1].empty()) cmdNo.Caption = app_.State.PacButtonCaptions[1];
}

void frmPac_InputBox::LayOutQuestion(TextView question, Title title) {
  Height = Height + 50;
  for (Control* control : {static_cast<Control*>(&Shape1), static_cast<Control*>(&txtInputBox),
                           static_cast<Control*>(&cmdOk), static_cast<Control*>(&cmdCancel)}) {
    control->Visible = false;
  }
  lblInput.Caption = Text(question);
  for (Control* control : {static_cast<Control*>(&Shape2), static_cast<Control*>(&cmdYes),
                           static_cast<Control*>(&cmdNo)}) {
    control->Top = control->Top - kPageHeight;
  }
  DefaultButton = nullptr;
  CancelButton = &cmdNo;
  if (title == Title::Warning) {
    cmdYes.Width = 735;
    cmdNo.Width = 615;
    cmdNo.Left = 1200;
    cmdAll.Top = cmdNo.Top;
    cmdAll.Visible = true;
  }
}

void frmPac_InputBox::Unload() {
  app_.State.PacButtonCaptions = {};
}

}  // namespace tarvo
