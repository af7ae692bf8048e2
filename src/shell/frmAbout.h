#pragma once

#include "controls/Button.h"
#include "controls/Form.h"
#include "controls/Image.h"
#include "controls/Label.h"
#include "state/Application.h"

namespace tarvo {

/// The program's name and version.
class frmAbout : public Form {
 public:
  explicit frmAbout(Application& app);

  void Load() override;

  Image Image1{this};
  Label lblTitle{this};
  Label lblVersion{this};
  Label lblDescription{this};
  Button cmdOk{this}, cmdSysInfo{this};

  /// Runs the system's information tool, or says that there is none.
  void StartSysInfo();

 private:
  void LayOut();

  Application& app_;
};

}  // namespace tarvo
