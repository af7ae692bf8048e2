#pragma once

#include "text/Text.h"

namespace tarvo {

/// The icons of a message box; the values are the style numbers of the Windows call MessageBox.
enum class BoxIcon {
  Plain = 0,  ///< A box without an icon.
  Critical = 16,
  Question = 32,
  Exclamation = 48,
  Information = 64
};

struct TwipSize {
  int Width;
  int Height;
};

struct TwipArea {
  int Left;
  int Top;
  int Width;
  int Height;
};

/// What the program asks of the screen that it stands on, beside its own forms.
class Windows {
 public:
  virtual ~Windows() = default;

  /// A box with an OK button. Returns when the user has closed it; timers go on meanwhile.
  virtual void ShowMessage(TextView text, TextView caption, BoxIcon icon) = 0;

  /// Opens a web address or a mailto: address in the user's own program. Gives false when there
  /// is none.
  virtual bool OpenAddress(TextView address) = 0;

  /// Lets the user pick a folder in the desktop's own dialog, which begins in `start`. Gives its
  /// game path; empty when he picks none.
  virtual Text PickFolder(TextView /*start*/) { return {}; }

  /// The user's home folder, as a game path; empty where there is none.
  virtual Text HomeFolder() { return {}; }

  /// Starts a program, named by its game path. Gives false when this machine can't run it.
  virtual bool RunProgram(TextView path) = 0;

  /// Starts what this desktop has to tell of the machine. Gives false when there is nothing.
  virtual bool ShowSystemInfo() { return false; }

  /// Shows a page of the manual, such as "options.html"; its first one for an empty name. What
  /// hinders it is told in a message box.
  virtual void ShowManual(TextView /*page*/) {}

  /// Names the program's help file, as a game path. The key F1 opens it, or the same pages in the
  /// form that the machine can show.
  virtual void SetHelpFile(TextView path) = 0;

  /// The usable size of the screen in twips, 15 to the logical pixel.
  virtual TwipSize ScreenSize() = 0;

  /// The usable area of the screen that shows that point, or of the first screen where none does.
  virtual TwipArea ScreenAt(int /*left*/, int /*top*/) {
    const TwipSize size = ScreenSize();
    return {0, 0, size.Width, size.Height};
  }
};

}  // namespace tarvo
