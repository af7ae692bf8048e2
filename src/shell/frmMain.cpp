#include "shell/frmMain.h"

#include "assistant/frmPac_Helper.h"
#include "controls/Palette.h"
#include "platform/Windows.h"
#include "shell/frmMainMenu.h"
#include "state/Dialogue.h"
#include "state/StartUp.h"

namespace tarvo {

frmMain::frmMain(Application& app) : Form(Style::Window, nullptr), app_(app) {
  Caption = u"Tarvo Packager";
  Width = 9630;
  Height = 7500;
  StatusBar.Move(0, 7185, 9630, 315);
  StatusBar.BackColour = palette::kPanel;
  StatusBar.ForeColour = palette::kPeach;
  StatusBar.Panel1 = u"Status";
  Timer_Buffer.OnTimer = [this] { app_.dialogue.PacNextMessage(); };
  Msg_Timer.OnTimer = [this] { GiveFirstTip(); };
  app_.MainForm = this;
  app_.shell = this;
}

void frmMain::Load() {
  const TwipSize screen = app_.machine.windows.ScreenSize();
  Left = screen.Width / 2 - Width / 2;
  Top = screen.Height / 2 - Height / 2;
  StartUpSequence(app_);
  Caption = u"Tarvo Packager (" + app_.State.AppVersion + u")";
}

void frmMain::GiveFirstTip() {
  Msg_Timer.Enabled = false;
  app_.dialogue.PacTip(u"Click on the Make New Ship Plugin Button to Begin!!!", PacTipOf::Program);
}

/// Closed by its close box: the process ends with its last window.
void frmMain::Unload() {
  if (auto* helper = app_.screens.Find<frmPac_Helper>()) app_.screens.Close(*helper);
  app_.screens.Host().Quit();
}

void frmMain::ShowStatus(TextView text) {
  StatusBar.Panel1 = Text(text);
  StatusBar.Refresh();  // Long work may follow.
}

void frmMain::ShowMainMenu() {
  app_.Screen<frmMainMenu>().Visible = true;
  Visible = true;  // The questions of the start stand over it.
}

void frmMain::ShowOptions() {
  app_.Screen<frmMainMenu>().ShowOptions();
}

void frmMain::SettleGame() {
  StartUpSequence(app_);
}

void frmMain::WorkScreenClosed() {
  ShowStatus(u"Standing By...");
  app_.dialogue.PacForgetTips();
  if (auto* menu = app_.screens.Find<frmMainMenu>()) menu->TakeOver();
}

}  // namespace tarvo
