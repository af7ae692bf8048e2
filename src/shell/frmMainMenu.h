#pragma once

#include <array>

#include "controls/Button.h"
#include "controls/Form.h"
#include "controls/Frame.h"
#include "controls/Image.h"
#include "controls/Label.h"
#include "controls/MediaPlayer.h"
#include "controls/Timer.h"
#include "skin/ScreenSkin.h"
#include "state/Application.h"

namespace tarvo {

/// The screen that fills the top window from the start: buttons to the other screens, of which one
/// at a time is open, and decoration.
class frmMainMenu : public Form {
 public:
  explicit frmMainMenu(Application& app);

  void Load() override;
  void Unload() override;

  /// Opens the options without the user's doing; the menu waits behind them.
  void ShowOptions();

  /// The user has switched the video loops on or off: MediaPlayer1 starts or stops.
  void FollowVideoFX();

  /// A work screen has closed: its button and the menu are switched on again.
  void TakeOver();

  /// What shows where the two pictures are missing.
  std::array<Frame, 5> fraBars{Frame{this}, Frame{this}, Frame{this}, Frame{this}, Frame{this}};
  Image imgLCARS{this}, imgMenuBorders{this};
  Button lblGameTools{this}, lblTGLTools{this}, lblPackager{this}, lblOptions{this}, lblHelp{this},
      lblExit{this};
  Label lblName{this};
  Button imgLogo{this};
  Label lblTitle{this};
  std::array<Label, 7> lblDigits{Label{this}, Label{this}, Label{this}, Label{this},
                                 Label{this}, Label{this}, Label{this}};
  MediaPlayer MediaPlayer1;
  Timer Digits_Timer{this, 1500};
  Timer MainMenu_Timer{this, 15};
  ScreenSkin Skin;

 private:
  void LayOut();
  void LayOutDecoration();
  void NameControls();
  void Connect();
  void ChangeDigits();
  void ShowNumber(Label& digits);  ///< By chance.

  /// With the assistant on the process ends when the figure has said good-bye and left.
  void Exit();
  void LoadVideo();
  void StoreVideoFX(TextView flag);

  template <class Screen>
  void Open(Button& button, TextView title);
  template <class Screen>
  void Show(Button& button, TextView title);

  Application& app_;
  Button* opener_ = nullptr;  ///< The button of the work screen that is open.
};

}  // namespace tarvo
