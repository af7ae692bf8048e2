#pragma once

#include "controls/Form.h"
#include "controls/StatusBar.h"
#include "controls/Timer.h"
#include "state/Application.h"
#include "state/Shell.h"

namespace tarvo {

/// The top window. All other screens stand on it.
class frmMain : public Form, public Shell {
 public:
  explicit frmMain(Application& app);

  void Load() override;
  void Unload() override;

  tarvo::StatusBar StatusBar{this};
  Timer Msg_Timer{this, 2000};     ///< The first tip, once.
  Timer Timer_Buffer{this, 2000};  ///< Lets the assistant's waiting messages follow.

  void ShowStatus(TextView text) override;
  void TellAside(TextView text) override { ShowStatus(text); }
  void ShowMainMenu() override;
  void ShowOptions() override;
  void SettleGame() override;
  void WorkScreenClosed() override;
  void RunMessageTimer(bool run) override { Timer_Buffer.Enabled = run; }

 private:
  void GiveFirstTip();

  Application& app_;
};

}  // namespace tarvo
