#include "shell/frmMainMenu.h"

#include <cmath>
#include <string>

#include "assistant/MessageQueue.h"
#include "controls/Palette.h"
#include "gametools/frmGameTools.h"
#include "packages/frmPackager.h"
#include "platform/Clock.h"
#include "platform/Guarded.h"
#include "platform/Settings.h"
#include "platform/Sound.h"
#include "shell/frmAbout.h"
#include "shell/frmHelp.h"
#include "shell/frmOptions.h"
#include "shiptgl/frmTGLTools.h"
#include "state/CommonUtilities.h"
#include "state/Dialogue.h"
#include "state/StartUp.h"
#include "text/Utf8.h"

namespace tarvo {

frmMainMenu::frmMainMenu(Application& app)
    : Form(Style::Child, app.MainForm),
      MediaPlayer1(this, app.machine.video),
      Skin(app, u"frmMainMenu"),
      app_(app) {
  LayOut();
  NameControls();
  Connect();
}

void frmMainMenu::Load() {
  Move(0, 0, 1, 7185);
  Skin.Load();
  app_.machine.clock.Randomize();
  for (Label& digits : lblDigits) ShowNumber(digits);
  LoadVideo();
}

void frmMainMenu::Unload() {
  if (app_.State.VideoFX) StoreVideoFX(u"1");
}

/// While the decoder works the setting says "0": should it take the process down, the next run
/// shows no video.
void frmMainMenu::LoadVideo() {
  MediaPlayer1.FileName = app_.ProgramFolder + u"\\Gfx\\VideoFX\\LCARS_Main.MOV";
  if (!app_.State.VideoFX) return;
  MediaPlayer1.OnOpening = [this] { StoreVideoFX(u"0"); };
  MediaPlayer1.OnOpened = [this] { StoreVideoFX(u"1"); };
  MediaPlayer1.Start();
}

void frmMainMenu::StoreVideoFX(TextView flag) {
  Guarded([&] {
    app_.machine.settings.Write(kSettingsApplication, kSettingsSection, u"VideoFX", flag);
  });
}

void frmMainMenu::FollowVideoFX() {
  MediaPlayer1.OnOpening = MediaPlayer1.OnOpened = nullptr;  // The setting is the user's own now.
  if (app_.State.VideoFX) {
    MediaPlayer1.Start();
  } else {
    MediaPlayer1.Stop();
  }
}

void frmMainMenu::LayOut() {
  const auto place = [](Button& button, TextView caption, Colour colour, int left, int top) {
    button.Caption = Text(caption);
    button.BackColour = colour;
    button.Font = {FontRole::Normal, 9};
    button.Move(left, top, 1440, 360);
  };
  place(lblGameTools, u"Game Tools", palette::kOrange, 1320, 360);
  place(lblTGLTools, u"TGL Tools", palette::kOrange, 1320, 840);
  place(lblPackager, u"Packager", palette::kOrange, 3000, 360);
  place(lblOptions, u"Options", palette::kViolet, 3000, 840);
  place(lblHelp, u"Help", palette::kViolet, 4680, 360);
  place(lblExit, u"Exit", palette::kViolet, 4680, 840);
  imgLogo.Picture = u":/icon/128.png";
  imgLogo.AccessibleName = u"About Tarvo Packager";
  imgLogo.ForeColour = palette::kPeach;
  imgLogo.Move(8385, 330, 900, 900);
  lblName.Caption = u"TARVO PACKAGER";
  lblName.ForeColour = palette::kPeach;
  lblName.Font = {FontRole::Normal, 12};
  lblName.Alignment = Label::Align::Right;
  lblName.WordWrap = true;
  lblName.Move(6885, 450, 1350, 660);
  lblTitle.Caption = u"Main Menu";
  lblTitle.ForeColour = Colour{255, 192, 128};
  lblTitle.Font = {FontRole::Normal, 10};
  lblTitle.Alignment = Label::Align::Centre;
  lblTitle.Move(6535, 1410, 1305, 255);
  LayOutDecoration();
}

/// The bars that frame the place of the work screens, and the column of numbers beside it.
void frmMainMenu::LayOutDecoration() {
  struct Bar {
    Colour colour;
    int left, top, width, height;
  };
  static constexpr std::array<Bar, 5> kBars = {
      Bar{palette::kViolet, 300, 360, 780, 840}, Bar{palette::kOrange, 300, 1410, 6085, 255},
      Bar{palette::kOrange, 7890, 1410, 1395, 255}, Bar{palette::kPeach, 300, 1740, 780, 3105},
      Bar{palette::kBlue, 300, 4920, 780, 1885}};
  for (std::size_t i = 0; i < kBars.size(); ++i) {
    fraBars[i].BackColour = kBars[i].colour;
    fraBars[i].Move(kBars[i].left, kBars[i].top, kBars[i].width, kBars[i].height);
  }
  imgLCARS.Move(0, 1320, 9585, 5790);
  imgMenuBorders.Move(0, 0, 9600, 1440);
  MediaPlayer1.Move(1200, 4800, 3735, 1935);
  int top = 2040;
  for (Label& digits : lblDigits) {
    digits.Font = {FontRole::Digits, 12};
    digits.ForeColour = palette::kBlue;
    digits.Alignment = Label::Align::Right;
    digits.Move(8190, top, 1095, 300);
    top += 645;
  }
}

void frmMainMenu::NameControls() {
  Skin.Name(
      u"imgButton",
      {{&lblGameTools}, {&lblTGLTools}, {&lblPackager}, {&lblOptions}, {&lblHelp}, {&lblExit}});
  Skin.Name(u"imgLCARS", imgLCARS);
  Skin.Name(u"imgMenuBorders", imgMenuBorders);
  Skin.NameSurface(u"imgMenuBorders", imgMenuBorders);
}

void frmMainMenu::Connect() {
  lblGameTools.OnClick = [this] { Open<frmGameTools>(lblGameTools, u"Game Tools"); };
  lblTGLTools.OnClick = [this] { Open<frmTGLTools>(lblTGLTools, u"TGL Tools"); };
  lblPackager.OnClick = [this] { Open<frmPackager>(lblPackager, u"Packager"); };
  lblOptions.OnClick = [this] { Open<frmOptions>(lblOptions, u"Options"); };
  lblHelp.OnClick = [this] { app_.screens.RunModal(app_.Screen<frmHelp>()); };
  imgLogo.OnClick = [this] { app_.screens.RunModal(app_.Screen<frmAbout>()); };
  lblExit.OnClick = [this] { Exit(); };
  Digits_Timer.OnTimer = [this] { ChangeDigits(); };
  MainMenu_Timer.OnTimer = [this] {
    if (Width < 9465) {
      Width = Width + 150;
    } else {
      MainMenu_Timer.Enabled = false;
    }
  };
}

template <class Screen>
void frmMainMenu::Open(Button& button, TextView title) {
  PlayEffect(app_, u"Execute.wav", kPlay);
  Show<Screen>(button, title);
}

template <class Screen>
void frmMainMenu::Show(Button& button, TextView title) {
  button.Enabled = false;
  lblTitle.Caption = Text(title);
  opener_ = &button;
  auto& screen = app_.Screen<Screen>();
  if (opener_ != &button) {
    // Its load has led to the options, which take its place.
    app_.screens.Close(screen);
    button.Enabled = true;
    return ShowOptions();
  }
  screen.Visible = true;
  Skin.Rest();
  Enabled = false;
}

void frmMainMenu::ShowOptions() {
  Show<frmOptions>(lblOptions, u"Options");
}

void frmMainMenu::TakeOver() {
  lblTitle.Caption = u"Main Menu";
  if (opener_) opener_->Enabled = true;
  Enabled = true;
  if (opener_) opener_->SetFocus();
  opener_ = nullptr;
}

void frmMainMenu::ChangeDigits() {
  Clock& clock = app_.machine.clock;
  clock.Randomize();
  for (std::size_t i = 0; i < lblDigits.size(); ++i) {
    if (clock.Random() < 0.5) continue;
    ShowNumber(lblDigits[i]);
    if (i == 0) PlayEffect(app_, u"BackgroundBeep.wav", kPlayUnlessBusy);
  }
}

void frmMainMenu::ShowNumber(Label& digits) {
  const long number = std::lround(app_.machine.clock.Random() * 999999 + 1);
  digits.Caption = TextFromUtf8(std::to_string(number));
}

void frmMainMenu::Exit() {
  AppState& state = app_.State;
  app_.dialogue.PacEnd();
  PlayEffect(app_, u"ShutDown.wav", kPlayToEnd);
  MediaPlayer1.Stop();
  if (state.PacHelper) {
    app_.dialogue.PacMsg(kGoodBye, Title::Information);
    if (state.PacQueue[0].empty()) state.PacExiting = true;
  }
  app_.MainForm->Visible = false;
  if (!state.PacHelper) app_.screens.Host().Quit();
}

}  // namespace tarvo
