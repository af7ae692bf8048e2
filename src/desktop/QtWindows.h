#pragma once

#include <functional>

#include "platform/Windows.h"

class QUrl;

namespace tarvo {

/// Message boxes, addresses and the screen by way of Qt.
class QtWindows : public Windows {
 public:
  /// Shows a web page or a file in the user's own program; gives false when there is none.
  using Opener = std::function<bool(const QUrl&)>;

  QtWindows();
  explicit QtWindows(Opener opener) : open_(std::move(opener)) {}

  void ShowMessage(TextView text, TextView caption, BoxIcon icon) override;
  bool OpenAddress(TextView address) override;
  Text PickFolder(TextView start) override;
  Text HomeFolder() override;
  bool RunProgram(TextView path) override;
  bool ShowSystemInfo() override;
  void SetHelpFile(TextView path) override { helpFile_ = Text(path); }
  TwipSize ScreenSize() override;
  TwipArea ScreenAt(int left, int top) override;

  /// The manual lies beside the help file. Its first page stands in for one that isn't there.
  void ShowManual(TextView page) override;

 private:
  Opener open_;
  Text helpFile_;
};

}  // namespace tarvo
