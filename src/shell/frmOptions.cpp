#include "shell/frmOptions.h"

#include <algorithm>

#include "controls/Palette.h"
#include "controls/Placing.h"
#include "platform/Guarded.h"
#include "platform/Settings.h"
#include "platform/Sound.h"
#include "platform/Windows.h"
#include "shell/frmMainMenu.h"
#include "state/CommonUtilities.h"
#include "state/Dialogue.h"
#include "state/KnownGames.h"
#include "state/Shell.h"
#include "state/StartUp.h"
#include "state/StoredFlag.h"
#include "text/Paths.h"

namespace tarvo {
namespace {

/// The root of a drive: "Z:" gives "Z:\".
Text RootOf(const Text& drive) {
  return drive.substr(0, 2) + u"\\";
}

void Place(CheckBox& box, TextView caption, int top) {
  box.Caption = Text(caption);
  box.ForeColour = palette::kPeach;
  box.Move(120, top - 38, 3180, 330);
}

}  // namespace

frmOptions::frmOptions(Application& app)
    : Form(Style::Child, app.MainForm),
      MediaPlayer1(this, app.machine.video),
      lstDir(this, app.machine.files),
      lstDrive(this, app.machine.files),
      Skin(app, u"frmOptions"),
      app_(app) {
  HelpPage = u"options.html";
  LayOut();
  NameControls();
  OfferGames();
  Connect();
  FollowTree();
}

/// As long as no game is known, the lists begin where one lies, or else where the user's files do.
void frmOptions::OfferGames() {
  games_ = KnownGames(app_);
  for (const Text& game : games_) {
    const std::size_t tail = std::min(game.rfind(u'\\'), game.size());
    cboFolder.Add(BareName(game) + u" in " + FolderWithoutTail(game.substr(0, tail)));
  }
  std::vector<Text> starts = games_;
  starts.push_back(app_.machine.windows.HomeFolder());
  starts.push_back(RootOf(lstDrive.Drive()));
  for (const Text& start : starts) {
    const bool shown = !start.empty() && Guarded([&] { lstDir.SetPath(start); });
    if (!shown) continue;
    Guarded([&] { lstDrive.SetDrive(start.substr(0, 2)); });
    return;
  }
}

void frmOptions::LayOut() {
  fraPicture.Move(0, 720, 3105, 2565);
  fraPicture.BackColour = palette::kPanel;
  imgPicture.Picture = u":/icon/256.png";
  imgPicture.Move(593, 323, 1920, 1920);
  imgBorder.Move(0, 120, 6900, 120);
  PlaceHeading(Label1, imgLongLabel, u"Current Selected Folder for Modifications", 3300, 390, 3450);
  Brackets{imgBoxL, imgBoxR}.Place(3150, 6900, 330, 3165);
  imgCommandBorder[0].Move(4950, 4148, 1950, 450);
  imgCommandBorder[1].Move(4950, 4598, 1950, 450);
  MediaPlayer1.Move(0, 720, 3105, 2565);
  Place(lstDir, u"Folders", 3300, 720, 3450, 1620);
  Place(cboFolder, u"Folder of the game", 3300, 2378, 2400);
  Place(lblBrowse, u"Browse...", palette::kPeach, 5760, 2378, 990);
  Place(lstDrive, u"Drive", 3300, 2760, 3450);
  Place(lblHolds, {}, 3390, 3165, 3360);
  Place(lblFolder, {}, 3390, 3420, 3360);
  lblFolder.Height = 780;
  lblFolder.WordWrap = true;
  Place(chkPacHelper, u"Enable Pac-Man Helper on Startup", 3480);
  Place(chkSoundFX, u"Enable Sound FX!", 4020);
  Place(chkVideoFX, u"Enable Video FX!", 4560);
  Place(lblSave, u"Save Changes", palette::kOrange, 5100, 4200, 1650);
  Place(lblExit, u"Exit", palette::kViolet, 5100, 4650, 1650);
}

void frmOptions::NameControls() {
  Skin.Name(u"imgBorder", imgBorder);
  Skin.Name(u"imgLongLabel", imgLongLabel);
  Skin.Name(u"imgBoxL", imgBoxL);
  Skin.Name(u"imgBoxR", imgBoxR);
  Skin.Name(u"imgCommandBorder", imgCommandBorder);
  Skin.Name(u"imgCommand", {{&lblSave}, {&lblExit}});
  for (Image& border : imgCommandBorder) Skin.NameSurface(u"imgCommandBorder", border);
}

void frmOptions::Load() {
  Skin.Load();
  const auto show = [this](CheckBox& box, TextView key, TextView fallback) {
    box.Checked = StoredFlag(app_.machine.settings.Read(kSettingsApplication, kSettingsSection, key,
                                                        fallback))
                      .value_or(false);
  };
  show(chkPacHelper, u"PacHelper", u"0");
  show(chkSoundFX, u"SoundFX", u"1");
  show(chkVideoFX, u"VideoFX", u"1");
  app_.shell->ShowStatus(u"Adjust your Tarvo Packager Options here...");
  Move(1180, 1740, 6900, 0);
  app_.dialogue.PacTip(u"Adjust your Tarvo Packager Options here!!!", PacTipOf::Screen);
  Guarded([this] { lstDrive.SetDrive(app_.State.GamePath.substr(0, 2)); });
  Guarded([this] { lstDir.SetPath(app_.State.GamePath); });
  MediaPlayer1.FileName = app_.ProgramFolder + u"\\Gfx\\VideoFX\\LCARS_Options.MOV";
  if (app_.State.VideoFX) MediaPlayer1.Start();
  draft_.Settle();
}

void frmOptions::Unload() {
  app_.shell->WorkScreenClosed();
  draft_.Leave();
}

void frmOptions::Connect() {
  const auto click = [this] { PlayEffect(app_, u"Click.wav", kPlayUnlessBusy); };
  ConnectFolder(click);
  for (CheckBox* box : {&chkPacHelper, &chkSoundFX, &chkVideoFX}) box->OnClick = click;
  lblSave.OnClick = [this] { Save(); };
  draft_.Add(cboFolder);
  for (CheckBox* box : {&chkPacHelper, &chkSoundFX, &chkVideoFX}) draft_.Add(*box);
  OnEscape = [this] { return draft_.HoldsEscape(); };
  OnUndo = [this](bool typed) { return draft_.Undo(typed); };
  CancelButton = &lblExit;
  lblExit.OnClick = [this, click] {
    click();
    app_.screens.Close(*this);
  };
  Load_Timer.OnTimer = [this] { Unroll(*this, Load_Timer, 5055); };
}

/// The tree, the line and the drive show the same folder, whichever of them the user works with.
void frmOptions::ConnectFolder(const std::function<void()>& click) {
  lstDrive.OnChange = [this, click] {
    if (following_) return;
    click();
    Guarded([this] { lstDir.SetPath(RootOf(lstDrive.Drive())); });
  };
  lstDir.OnChange = [this, click] {
    click();
    FollowTree();
  };
  lstDir.OnClick = [this] { FollowTree(); };
  cboFolder.OnChange = [this] { FollowLine(); };
  cboFolder.OnClick = [this] { PickGame(); };
  lblBrowse.OnClick = [this] { Browse(); };
}

void frmOptions::FollowTree() {
  if (following_) return;
  following_ = true;
  folder_ = lstDir.ListedFolder();
  cboFolder.SetText(folder_);
  following_ = false;
  ShowFolder();
}

/// What stands in the line needn't be a folder, or not yet: the tree stays as it is then.
void frmOptions::FollowLine() {
  if (following_) return;
  following_ = true;
  folder_ = FolderOfLine(app_, cboFolder.Text());
  Guarded([this] {
    lstDir.SetPath(folder_);
    lstDrive.SetDrive(folder_.substr(0, 2));
  });
  following_ = false;
  ShowFolder();
}

void frmOptions::PickGame() {
  for (std::size_t row = 0; row < games_.size(); ++row) {
    if (cboFolder.Item(row) != cboFolder.Text()) continue;
    cboFolder.SetText(games_[row]);
    return;
  }
}

void frmOptions::Browse() {
  const Text folder = app_.machine.windows.PickFolder(lstDir.Path());
  if (!folder.empty()) cboFolder.SetText(folder);
}

void frmOptions::ShowFolder() {
  const bool holdsGame = HoldsGame(app_, folder_);
  lblHolds.Caption =
      holdsGame ? u"The game is in this folder:" : u"The game is not in this folder:";
  lblHolds.ForeColour = holdsGame ? palette::kBlue : palette::kOrange;
  lblFolder.Caption = folder_;
}

void frmOptions::Save() {
  PlayEffect(app_, u"CommandBeep.wav", kPlayUnlessBusy);
  if (CheckFile(app_, JoinPath(folder_, kGameFile)) != kFileOk) {
    app_.dialogue.PacMsg(u"This is not a Valid Bridge Commander Folder to edit!!!",
                         Title::Critical);
    return;
  }
  if (!Store()) return;
  app_.dialogue.PacMsg(u"Your Settings have been saved!", Title::Information);
  draft_.Settle();
  Application& app = app_;
  app.screens.Close(*this);
  StartUpSequence(app);
}

/// Each setting takes effect as soon as it is stored. Gives true when all of them are.
bool frmOptions::Store() {
  Text done;
  const auto write = [&](TextView key, const Text& value, TextView words) {
    app_.machine.settings.Write(kSettingsApplication, kSettingsSection, key, value);
    done += u"\r\n" + Text(words);
  };
  const auto writeFlag = [&](TextView key, const CheckBox& box, bool& field) {
    write(key, box.Checked ? u"1" : u"0", box.Caption.Get());
    field = box.Checked;
  };
  AppState& state = app_.State;
  try {
    write(u"GamePath", folder_, Label1.Caption.Get());
    state.GamePath = folder_;
    writeFlag(u"PacHelper", chkPacHelper, state.PacHelper);
    writeFlag(u"SoundFX", chkSoundFX, state.SoundFX);
    writeFlag(u"VideoFX", chkVideoFX, state.VideoFX);
    if (auto* menu = app_.screens.Find<frmMainMenu>()) menu->FollowVideoFX();
    return true;
  } catch (const PlatformError& error) {
    app_.dialogue.PacMsg(
        u"Your Settings could not be saved: " + Words(error) + u"\r\n\r\n" +
            (done.empty() ? u"Nothing has changed." : u"Only this has been saved:" + done),
        Title::Critical);
    return false;
  }
}

}  // namespace tarvo
