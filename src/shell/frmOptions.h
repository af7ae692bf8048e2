#pragma once

#include <array>
#include <functional>
#include <vector>

#include "controls/Button.h"
#include "controls/CheckBox.h"
#include "controls/ComboBox.h"
#include "controls/DirListBox.h"
#include "controls/DriveListBox.h"
#include "controls/Form.h"
#include "controls/Frame.h"
#include "controls/Image.h"
#include "controls/Label.h"
#include "controls/MediaPlayer.h"
#include "controls/Timer.h"
#include "skin/ScreenSkin.h"
#include "state/Application.h"
#include "state/Draft.h"

namespace tarvo {

/// The screen on which the user picks the game's folder and switches the assistant, the sounds and
/// the video loops. Nothing takes effect before Save.
class frmOptions : public Form {
 public:
  explicit frmOptions(Application& app);

  void Load() override;
  void Unload() override;

  // Behind the controls.
  Image imgBorder{this}, imgBoxL{this}, imgBoxR{this}, imgLongLabel{this};
  std::array<Image, 2> imgCommandBorder{Image{this}, Image{this}};

  Frame fraPicture{this};
  Image imgPicture{&fraPicture};
  MediaPlayer MediaPlayer1;
  Label Label1{this};
  DirListBox lstDir;
  ComboBox cboFolder{this};  ///< The folder as a line; its list offers the games that were found.
  Button lblBrowse{this};
  DriveListBox lstDrive;
  Label lblFolder{this};  ///< The folder that Save would take,
  Label lblHolds{this};   ///< and whether it would.
  CheckBox chkPacHelper{this}, chkSoundFX{this}, chkVideoFX{this};
  Button lblSave{this}, lblExit{this};
  Timer Load_Timer{this, 15};
  ScreenSkin Skin;

  /// Stores what the screen shows, and closes it. A folder without the game changes nothing. A
  /// setting that can't be stored ends it, and what was stored before that stands; both are told.
  void Save();

 private:
  void LayOut();
  void NameControls();
  void Connect();
  void ConnectFolder(const std::function<void()>& click);
  void OfferGames();
  void FollowTree();
  void FollowLine();
  void PickGame();
  void Browse();
  void ShowFolder();
  bool Store();

  Application& app_;
  Draft draft_{app_, u"Options"};
  Text folder_;              ///< The one that Save takes.
  std::vector<Text> games_;  ///< The folders of the rows of cboFolder.
  bool following_ = false;   ///< A control shows what was chosen on another one.
};

}  // namespace tarvo
