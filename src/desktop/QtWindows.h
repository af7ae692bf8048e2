#pragma once

#include "platform/Windows.h"

namespace tarvo {

/// Message boxes, addresses and the screen by way of Qt.
class QtWindows : public Windows {
 public:
  void ShowMessage(TextView text, TextView caption, BoxIcon icon) override;
  bool OpenAddress(TextView address) override;
  void SetHelpFile(TextView path) override { helpFile_ = Text(path); }
  TwipSize ScreenSize() override;
  TwipArea ScreenAt(int left, int top) override;

 private:
  Text helpFile_;
};

}  // namespace tarvo
