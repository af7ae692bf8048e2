#include "assistant/frmPac_Helper.h"

#include <algorithm>
#include <cmath>

#include "assistant/MessageQueue.h"
#include "assistant/frmPac_InputBox.h"
#include "platform/Sound.h"
#include "platform/Windows.h"
#include "state/CommonUtilities.h"
#include "state/Dialogue.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

constexpr float kStep = 3;
constexpr int kStepsPerTick = 25;
constexpr float kOffStage = -999;

constexpr std::int16_t kFrames = 8;
constexpr std::int16_t kMadFrames = 7;

/// Ticks that a text stands beside one for each of its characters.
constexpr std::size_t kPauseTicks = 10;

constexpr int kBubbleTextHeight = 1215;
constexpr Colour kBubble{192, 192, 255};

bool IsGrave(Title title) {
  return title == Title::Warning || title == Title::Critical;
}

/// The frames of a message that is spoken; empty for those that have none.
TextView FramesOf(Title title) {
  switch (title) {
    case Title::Information:
      return u"talk";
    case Title::Question:
    case Title::Warning:
      return u"sad";
    case Title::Critical:
      return u"critical";
    case Title::Mad:
      return u"mad";
    case Title::None:
      break;
  }
  return {};
}

TextView SignOf(Title title) {
  switch (title) {
    case Title::Information:
      return u":/assistant/information.png";
    case Title::Question:
      return u":/assistant/question.png";
    case Title::Warning:
      return u":/assistant/warning.png";
    case Title::Critical:
      return u":/assistant/critical.png";
    case Title::None:
    case Title::Mad:
      break;
  }
  return {};
}

}  // namespace

frmPac_Helper::frmPac_Helper(Application& app) : Form(Style::Window, nullptr), app_(app) {
  LeavesKeyboard = true;
  LayOut();
  cmdStop_Talk.OnClick = [this] { StopTalk(); };
  Pacman_Animation_Timer.Enabled = false;
  Pacman_Animation_Timer.OnTimer = [this] { Tick(); };
}

void frmPac_Helper::LayOut() {
  Caption = u"Pac-Man Helper v1.5";
  BackColour = Colour{128, 0, 128};
  Width = 3510;
  Pac_Helper.Move(1200, 2040, 960, 960);
  lblPac_Label.Move(600, 360, 2055, kBubbleTextHeight);
  lblPac_Label.WordWrap = true;
  lblPac_Label.Font = {FontRole::Dialog, 9};
  Shape1.Move(360, 120, 2535, 1695);
  Shape1.Rounding = 300;
  Shape2[0].Move(840, 1920, 255, 255);
  Shape2[1].Move(600, 1680, 375, 375);
  Shape2[2].Move(1080, 2040, 135, 135);
  Shape2[3].Move(2520, 1200, 855, 855);
  for (Shape& part : Shape2) part.Rounding = part.Width / 2;
  for (Shape* part : {&Shape1, &Shape2[0], &Shape2[1], &Shape2[2], &Shape2[3]}) {
    part->BackColour = kBubble;
    part->ForeColour = kTransparent;
  }
  cmdStop_Talk.Move(2640, 1320, 615, 615);
  cmdStop_Talk.AccessibleName = u"Stop talking";
  ShowBubble(false);
}

/// The window stands left of the centred main window. On a small screen that one gives way.
void frmPac_Helper::Load() {
  Height = 3555;
  Form* main = app_.MainForm;
  if (!main) return;
  const TwipArea screen =
      app_.machine.windows.ScreenAt(main->Left + main->Width / 2, main->Top + main->Height / 2);
  Left = screen.Left + screen.Width / 2 - main->Width / 2 - Width;
  Top = std::max(screen.Top, screen.Top + screen.Height / 2 - main->Height / 2);
  if (Left >= screen.Left) return;
  Left = screen.Left;
  const int shift = std::max(0, Left + Width - main->Left);
  main->Left = main->Left + shift;
  const int excess = main->Left + main->Width - (screen.Left + screen.Width);
  main->Width = main->Width - std::clamp(excess, 0, shift);
}

void frmPac_Helper::Unload() {
  AppState& state = app_.State;
  const bool leaving = state.PacExiting || IsWaiting(state, kGoodBye);
  state.PacX = kOffStage;
  state.PacHelper = false;
  state.PacState = PacActivity::Idle;
  state.PacSpeech.clear();
  WithdrawQuestions(state);
  DropTips(state, true);
  if (auto* dialog = app_.screens.Find<frmPac_InputBox>()) dialog->Wake();
  if (leaving) app_.screens.Host().Quit();
}

void frmPac_Helper::PacWalkIn() {
  AppState& state = app_.State;
  // What has been spoken to its end isn't spoken again on arrival.
  if (state.PacState == PacActivity::Idle || state.PacTitles[0] == Title::Mad) {
    state.PacSpeech.clear();
  }
  state.PacFrame = 0;
  state.PacTalkTicks = 0;
  if (state.PacX != StopPlace() + kStep) state.PacX = static_cast<float>(Width);
  state.PacState = PacActivity::Walk;
  state.PacLastFrame = kFrames;
  Pac_Helper.Left = static_cast<int>(std::lround(state.PacX));
  Pacman_Animation_Timer.Enabled = true;
  Visible = true;
}

void frmPac_Helper::StepBack() {
  app_.State.PacX += kStep;
  app_.State.PacState = PacActivity::Walk;
  app_.State.PacTalkTicks = 0;
  Pacman_Animation_Timer.Enabled = true;
}

bool frmPac_Helper::HasLeft() const {
  return app_.State.PacX <= kOffStage || !Visible;
}

float frmPac_Helper::StopPlace() const {
  return static_cast<float>(Width) / 2 - 501;
}

/// The timer rests while the figure does.
void frmPac_Helper::Tick() {
  AppState& state = app_.State;
  for (int i = 0; i < kStepsPerTick && state.PacState == PacActivity::Walk; ++i) PacWalkStep();
  if (state.PacState == PacActivity::Walk) {
    ShowFrame(u"walk");
    if (lblPac_Label.Visible) PacHideBubble();
  }
  if (state.PacState == PacActivity::Talk) TickTalk();
  if (state.PacState == PacActivity::Idle && IsGrave(state.PacTitles[0])) {
    state.PacTitles[0] = Title::Mad;
    state.PacTalkTicks = 0;
    state.PacLastFrame = kMadFrames;
    state.PacState = PacActivity::Talk;
  }
  const bool last = state.PacFrame >= state.PacLastFrame;
  state.PacFrame = last ? std::int16_t{0} : static_cast<std::int16_t>(state.PacFrame + 1);
  Pacman_Animation_Timer.Enabled = state.PacState != PacActivity::Idle;
}

void frmPac_Helper::TickTalk() {
  AppState& state = app_.State;
  const std::size_t spoken = lblPac_Label.Caption.Get().size() + kPauseTicks;
  if (static_cast<std::size_t>(state.PacTalkTicks) >= spoken || state.PacTalkTicks >= kPacSpoken) {
    state.PacFrame = kFrames;
    state.PacLastFrame = kFrames;
    state.PacState = PacActivity::Idle;
    state.PacTalkTicks = 0;
    if (!IsGrave(state.PacTitles[0])) PacHideBubble();
    if (state.PacExiting) state.PacState = PacActivity::Walk;
  }
  ShowFrame(FramesOf(state.PacTitles[0]));
  ++state.PacTalkTicks;
}

void frmPac_Helper::PacWalkStep() {
  AppState& state = app_.State;
  const float stop = StopPlace();
  const bool before = state.PacX > stop;
  state.PacState = PacActivity::Walk;
  state.PacX -= kStep;
  const bool arrives = before && state.PacX <= stop;
  if (arrives) state.PacX = stop;
  Pac_Helper.Left = static_cast<int>(std::lround(state.PacX));
  if (arrives) {
    state.PacState = PacActivity::Talk;
    OpenBubble();
  }
  if (state.PacX <= kOffStage) LeaveStage();
}

void frmPac_Helper::LeaveStage() {
  AppState& state = app_.State;
  if (state.PacExiting) {
    state.PacState = PacActivity::Idle;
    app_.screens.Host().Quit();
  } else if (state.PacHelper) {
    app_.dialogue.PacTip(u"Hi, I'm Pac-Man! How can I help you?", PacTipOf::Program);
  } else {
    app_.screens.Close(*this);
  }
}

void frmPac_Helper::OpenBubble() {
  const AppState& state = app_.State;
  if (const TextView sign = SignOf(state.PacTitles[0]); !sign.empty()) {
    cmdStop_Talk.Picture = Text(sign);
  }
  lblPac_Label.Caption = state.PacSpeech;
  GrowBubble(std::max(0, app_.screens.Host().TextHeight(lblPac_Label) - kBubbleTextHeight));
  ShowBubble(true);
}

void frmPac_Helper::PacHideBubble() {
  if (app_.State.PacPrompts[0]) return;
  ShowBubble(false);
  GrowBubble(0);
}

void frmPac_Helper::StopTalk() {
  AppState& state = app_.State;
  PlayEffect(app_, u"Click.wav", kPlayUnlessBusy);
  state.PacTalkTicks = kPacSpoken;
  state.PacPrompts[0] = false;
  PacHideBubble();
  if (IsGrave(state.PacTitles[0])) state.PacTitles[0] = Title::Mad;
}

void frmPac_Helper::ShowFrame(TextView set) {
  if (set.empty()) return;  // The last picture stays.
  Pac_Helper.Picture =
      u":/assistant/" + Text(set) + TextFromUtf8(std::to_string(app_.State.PacFrame)) + u".png";
}

void frmPac_Helper::ShowBubble(bool show) {
  Shape1.Visible = show;
  for (Shape& part : Shape2) part.Visible = show;
  cmdStop_Talk.Visible = show;
  lblPac_Label.Visible = show;
}

/// Makes the bubble that much higher than it is for a short text. The figure stays where it is on
/// the screen: the window grows upward as far as there is room.
void frmPac_Helper::GrowBubble(int twips) {
  const int more = twips - bubbleGrowth_;
  if (more == 0) return;
  bubbleGrowth_ = twips;
  Top = Top + lift_;
  const int room = Top - app_.machine.windows.ScreenAt(Left, Top).Top;
  lift_ = std::clamp(twips, 0, std::max(room, 0));
  Top = Top - lift_;
  Grow(more);
  lblPac_Label.Height = lblPac_Label.Height + more;
  Shape1.Height = Shape1.Height + more;
  for (Shape& part : Shape2) part.Top = part.Top + more;
  cmdStop_Talk.Top = cmdStop_Talk.Top + more;
  Pac_Helper.Top = Pac_Helper.Top + more;
}

}  // namespace tarvo
