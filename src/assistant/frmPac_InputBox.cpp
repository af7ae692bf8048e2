#include "assistant/frmPac_InputBox.h"

#include <algorithm>

#include "assistant/frmPac_Helper.h"
#include "controls/Palette.h"
#include "platform/Sound.h"
#include "platform/Windows.h"
#include "state/CommonUtilities.h"
#include "state/Shell.h"

namespace tarvo {
namespace {

/// The Yes/No page waits this far below the text page.
constexpr int kPageHeight = 1800;

constexpr Colour kButtonColour{128, 128, 255};

/// Room for what the desktop draws around a window, in twips.
constexpr int kWindowFrame = 450;

/// A picture's sign belongs to the caption that its button had first.
void Rename(Button& button, const Text& caption) {
  if (caption.empty()) return;
  button.Caption = caption;
  button.Picture = Text();
}

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
  // The Yes/No page is out of sight, and so it stays for the keyboard and in a higher dialog.
  for (Button* button : {&cmdYes, &cmdNo, &cmdAll}) button->Visible = false;
  Shape2.Visible = false;
  Shape1.ForeColour = palette::kPeach;
  Shape2.ForeColour = palette::kPeach;
  lblInput.ForeColour = kWhite;
  lblInput.WordWrap = true;
  lblWait.Caption = u"Click on my sign to go on.";
  lblWait.ForeColour = palette::kPeach;
  lblWait.Visible = false;
  AccessibleName = u"Question";
  txtInputBox.AccessibleName = u"Answer";
  txtInputBox.BackColour = palette::kPanel;
  txtInputBox.ForeColour = kWhite;
  SetPictures();
  DefaultButton = &cmdOk;
  CancelButton = &cmdCancel;
}

void frmPac_InputBox::SetPictures() {
  cmdOk.Picture = u":/dialog/ok.png";
  cmdCancel.Picture = u":/dialog/cancel.png";
  cmdYes.Picture = u":/dialog/yes.png";
  cmdNo.Picture = u":/dialog/no.png";
  for (Button* button : {&cmdOk, &cmdCancel, &cmdYes, &cmdNo}) button->Fit = PictureFit::Across;
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
  TargetWidth_ = static_cast<float>(Width - 70);
  app_.State.PacHelper ? HangBelowHelper() : StandOverMain();
  Width = 0;
  Rename(cmdYes, app_.State.PacButtonCaptions[0]);
  Rename(cmdNo, app_.State.PacButtonCaptions[1]);
  renamed_ = !app_.State.PacButtonCaptions[1].empty();
}

void frmPac_InputBox::StandOverMain() {
  if (const Form* main = app_.MainForm) {
    Top = main->Top + main->Height / 3;
    Left = main->Left + main->Width / 3;
    BackColour = main->BackColour.Get();
  }
  for (Button* button : {&cmdOk, &cmdCancel, &cmdYes, &cmdNo}) button->Picture = Text();
  Wake();
}

void frmPac_InputBox::HangBelowHelper() {
  auto& helper = app_.Screen<frmPac_Helper>();
  hangs_ = true;
  Left = helper.Left + 50;
  Top = helper.Top + helper.Height;
  helperGrowth_ = Height + 50;
  helper.Grow(helperGrowth_);
  KeepOnScreen();
}

void frmPac_InputBox::KeepOnScreen() {
  if (!hangs_) return;
  const int width = static_cast<int>(TargetWidth_) + kWindowFrame;
  const TwipArea screen = app_.machine.windows.ScreenAt(Left, Top);
  Left = std::max(screen.Left, std::min<int>(Left, screen.Left + screen.Width - width));
  const int lowest = screen.Top + screen.Height - Height - kWindowFrame;
  Top = std::max(screen.Top, std::min<int>(Top, lowest));
}

void frmPac_InputBox::Wake() {
  for (Button* button : {&cmdOk, &cmdCancel, &cmdYes, &cmdNo, &cmdAll}) button->Enabled = true;
  lblWait.Visible = false;
  if (first_) first_->SetFocus();
}

void frmPac_InputBox::LayOutQuestion(TextView question, Title title) {
  Grow(50);
  for (Control* control : {static_cast<Control*>(&Shape1), static_cast<Control*>(&txtInputBox),
                           static_cast<Control*>(&cmdOk), static_cast<Control*>(&cmdCancel)}) {
    control->Visible = false;
  }
  for (Control* control : {static_cast<Control*>(&Shape2), static_cast<Control*>(&cmdYes),
                           static_cast<Control*>(&cmdNo)}) {
    control->Top = control->Top - kPageHeight;
    control->Visible = true;
  }
  DefaultButton = nullptr;
  CancelButton = &cmdNo;
  if (renamed_) LetEscapeGiveNeither();
  if (title == Title::Warning) {
    cmdYes.Width = 735;
    cmdNo.Width = 615;
    cmdNo.Left = 1200;
    cmdAll.Top = cmdNo.Top;
    cmdAll.Visible = true;
  }
  ShowWords(question, lblInput.Height);
  // A key that is hit by mistake is not to delete anything, whatever the captions are.
  first_ = &cmdNo;
  if (first_->Enabled) first_->SetFocus();
  ShowWait();
}

/// Between two captions of the caller's own no button says "No".
void frmPac_InputBox::LetEscapeGiveNeither() {
  CancelButton = nullptr;
  OnEscape = [this] {
    if (cmdNo.Enabled) app_.screens.Close(*this);
    return true;
  };
}

void frmPac_InputBox::LayOutRequest(TextView request) {
  ShowWords(request, txtInputBox.Top - lblInput.Top);
  ShowWait();
}

/// As long as the figure has something else to say, the buttons are dead.
void frmPac_InputBox::ShowWait() {
  if (cmdOk.Enabled) return;
  constexpr int kHeight = 255;
  Grow(kHeight);
  for (Shape* page : {&Shape1, &Shape2}) page->Height = page->Height + kHeight;
  lblWait.Move(360, cmdOk.Top + cmdOk.Height + 75, 2775, kHeight);
  lblWait.Visible = true;
  KeepOnScreen();
}

void frmPac_InputBox::ShowBefore(const std::vector<Text>& messages) {
  if (messages.empty()) return;
  Text words;
  for (const Text& message : messages) words += message + u"\r\n\r\n";
  ShowWords(words + lblInput.Caption.Get(),
            txtInputBox.Visible ? txtInputBox.Top - lblInput.Top : lblInput.Height);
}

/// Makes the dialog higher, and with it the window that it hangs below.
void frmPac_InputBox::Grow(int twips) {
  Height = Height + twips;
  auto* helper = app_.screens.Find<frmPac_Helper>();
  if (!hangs_ || !helper) return;
  helperGrowth_ += twips;
  helper->Grow(twips);
}

/// Where the words need more than the room of that height, all below them moves down.
void frmPac_InputBox::ShowWords(TextView words, int room) {
  lblInput.Caption = Text(words);
  const int more = std::max(0, app_.screens.Host().TextHeight(lblInput) - room);
  Grow(more);
  lblInput.Height = lblInput.Height + more;
  for (Shape* page : {&Shape1, &Shape2}) page->Height = page->Height + more;
  for (Control* control : {static_cast<Control*>(&txtInputBox), static_cast<Control*>(&cmdOk),
                           static_cast<Control*>(&cmdCancel), static_cast<Control*>(&cmdYes),
                           static_cast<Control*>(&cmdNo), static_cast<Control*>(&cmdAll),
                           static_cast<Control*>(&lblWait)}) {
    control->Top = control->Top + more;
  }
  KeepOnScreen();
}

void frmPac_InputBox::Unload() {
  AppState& state = app_.State;
  if (renamed_ && state.PacAnswer.empty()) state.PacAnswer = u"Neither";
  state.PacButtonCaptions = {};
  state.PacPrompts[0] = false;
  if (auto* helper = app_.screens.Find<frmPac_Helper>()) {
    if (hangs_) helper->Grow(-helperGrowth_);
    helper->PacHideBubble();
  }
  state.PacTalkTicks = kPacSpoken;
  app_.shell->RunMessageTimer(true);
}

}  // namespace tarvo
