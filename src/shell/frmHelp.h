#pragma once

#include "controls/Button.h"
#include "controls/Form.h"
#include "controls/Image.h"
#include "controls/Label.h"
#include "state/Application.h"

namespace tarvo {

/// The places to turn to for help.
class frmHelp : public Form {
 public:
  explicit frmHelp(Application& app);

  void Load() override;

  Image Image1{this};
  Label Label1{this};
  Button lblLinkTarvo{this};
  Label Label2{this};
  Button lblEmail{this};
  Button cmdOk{this};

  /// Those of the build, to begin with; an empty one is none.
  void ShowAddresses(TextView web, TextView mail);

 private:
  void LayOut();
  void Open(const Text& address);

  Application& app_;
};

}  // namespace tarvo
