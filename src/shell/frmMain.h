#pragma once

#include "controls/Form.h"
#include "controls/StatusBar.h"
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

  void ShowStatus(TextView text) override;
  void ShowMainMenu() override;
  void ShowOptions() override;
  void SettleGame() override;
  void WorkScreenClosed() override;

 private:
  Application& app_;
};

}  // namespace tarvo
