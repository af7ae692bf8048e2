#include <algorithm>
#include <exception>

#include "gametools/Marks.h"
#include "platform/PlatformError.h"
#include "platform/Sound.h"
#include "state/CommonUtilities.h"
#include "state/Dialogue.h"
#include "state/GameLock.h"
#include "state/Shell.h"
#include "text/Paths.h"
#include "text/RaisedError.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

constexpr int kTicksOfTree = 10;     ///< Milliseconds.
constexpr int kTicksOfVolume = 200;  ///< Milliseconds.
constexpr int kVolumeStep = 277;

}  // namespace

struct frmGameTools::Tab {
  Button& Caption;
  Frame& Area;
  Button& Exit;
  unsigned Sound;
  TextView Status;
  TextView Tip;
};

frmGameTools::frmGameTools(Application& app)
    : Form(Style::Child, app.MainForm),
      FileList2(&fraShipInfo, app.machine.files, ListBox::Selection::Single, u"*.py"),
      FileListWavs(&fraSound, app.machine.files, ListBox::Selection::Single, u"*.wav"),
      FileList5(&fraSound, app.machine.files, ListBox::Selection::Single, u"*.py"),
      FileList1(&fraMenus, app.machine.files, ListBox::Selection::Single, u"*.py"),
      FileList4(&fraMenus, app.machine.files, ListBox::Selection::Single, u"*.py"),
      FileList3(&fraIntegrity, app.machine.files, ListBox::Selection::Single, u"*.py"),
      Skin(app, u"frmGameTools"),
      app_(app) {
  MakeTree();
  HelpPage = u"gametools.html";
  LayOut();
  NameControls();
  Connect();
  MakeDrafts();
  Scroll_Timer.Enabled = false;
  app_.ProgressBars[u"Game Tools"] = &ProgressBar2;
}

frmGameTools::~frmGameTools() {
  // A screen made anew before this one was freed has handed in its own bar.
  const auto bar = app_.ProgressBars.find(u"Game Tools");
  if (bar != app_.ProgressBars.end() && bar->second == &ProgressBar2) {
    app_.ProgressBars.erase(bar);
  }
}

/// A failure on the way, above all a folder that the game lacks, ends the load, and the user is to
/// settle the game's folder.
void frmGameTools::Load() {
  Text failure;
  try {
    LoadSteps();
  } catch (const RaisedError& error) {
    failure = error.Description;
  } catch (const PlatformError& error) {
    failure = Words(error);
  }
  ship_.Settle();
  sounds_.Settle();
  if (failure.empty()) return;
  app_.shell->SettleGame();
  app_.shell->ShowStatus(failure);
}

void frmGameTools::LoadSteps() {
  Move(1180, 1740, 6900, 0);
  SoundVolume = 100;
  Skin.Load();
  BackColour = kBlack;
  for (Frame* area : {&fraShipInfo, &fraMenus, &fraSound, &fraIntegrity}) {
    area->BackColour = kBlack;
  }
  lblShipPlugin_Click();
  LoadQBMenus();
  BuildCustomMenuRows();
  ShowTargets();
  SetFolders();
  fraMenus.Refresh();
  app_.State.CurrentScreen = u"Game Tools";
}

void frmGameTools::Unload() {
  // An arrow that is still held would leave its sound behind.
  scrolled_ = true;
  for (Button* arrow : {&imgButtonU, &imgButtonD, &imgButtonL, &imgButtonR}) arrow->LetGo();
  app_.shell->WorkScreenClosed();
  ship_.Leave();
  sounds_.Leave();
}

/// All lists get their folders, also those behind one that can't be shown; then the first failure
/// is thrown.
void frmGameTools::SetFolders() {
  if (app_.State.GamePath.empty()) {
    throw RaisedError(u"Game Tools", u"No game's folder is known: choose it in the options.");
  }
  std::exception_ptr failure;
  const auto show = [&](FileListBox& list, TextView below) {
    try {
      list.SetPath(JoinPath(app_.State.GamePath, below));
      return true;
    } catch (const std::exception&) {
      if (!failure) failure = std::current_exception();
      return false;
    }
  };
  show(FileList1, u"\\scripts\\ships\\");
  show(FileList2, u"\\scripts\\ships\\");
  scriptsKnown_ = show(FileList3, u"\\scripts\\ships\\");
  show(FileList4, u"\\scripts\\Custom\\Ships\\");
  show(FileList5, u"\\scripts\\ships\\Hardpoints\\");
  show(FileListWavs, u"\\sfx\\Weapons\\");
  if (failure) std::rethrow_exception(failure);
}

void frmGameTools::Leave() {
  PlayClick();
  app_.screens.Close(*this);
}

void frmGameTools::PlayClick() {
  PlayEffect(app_, u"Click.wav", kPlayUnlessBusy);
}

// -- The tabs

void frmGameTools::ShowTab(const Tab& tab) {
  PlayEffect(app_, u"TabBeep.wav", tab.Sound);
  status_ = Text(tab.Status);
  app_.shell->ShowStatus(status_);
  app_.dialogue.PacTip(tab.Tip, PacTipOf::Screen);
  for (Frame* area : {&fraShipInfo, &fraSound, &fraMenus, &fraIntegrity}) {
    area->Visible = area == &tab.Area;
  }
  CancelButton = &tab.Exit;
  Tabs().Choose(tab.Caption);
  Skin.TabChosen();
  if (const Text line = TabLine(); line != status_) app_.shell->ShowStatus(line);
}

void frmGameTools::lblShipPlugin_Click() {
  ShowTab({lblShipPlugin, fraShipInfo, lblExit, kPlayUnlessBusy, u"Create a New Ship Plugin...",
           u"Create a New Ship Plugin on this Screen"});
  FillShipList();
}

void frmGameTools::lblSoundPlugin_Click() {
  ShowTab({lblSoundPlugin, fraSound, lblExit2, kPlayToEndUnlessBusy,
           u"Create a New Sound Plugin...", u"Create a New Sound Plugin on this Screen"});
  Refresh();
  if (lstWeapons.Count() == 0) FillSoundLists();
  fraSound.Refresh();
}

void frmGameTools::lblMenus_Click() {
  ShowTab({lblMenus, fraMenus, lblExit3, kPlayUnlessBusy, u"Manage your Quick Battle menus...",
           u"Enable, Disable or Delete Ships on this Screen"});
  Refresh();
  RefreshShipLists();
}

void frmGameTools::lblChecker_Click() {
  ShowTab({lblChecker, fraIntegrity, lblExit1, kPlayUnlessBusy,
           u"Check the File Structures of a Ship Mod...",
           u"Choose a Ship to check for wrong references to your Ship's Files!"});
}

// -- The events

void frmGameTools::Connect() {
  ConnectTabs();
  ConnectLists();
  ConnectCommands();
  ConnectTree();
  ConnectArrow(imgButtonU, u"Up", kTicksOfTree);
  ConnectArrow(imgButtonD, u"Down", kTicksOfTree);
  ConnectArrow(imgButtonL, u"Left", kTicksOfVolume);
  ConnectArrow(imgButtonR, u"Right", kTicksOfVolume);
  Load_Timer.OnTimer = [this] { Unroll(*this, Load_Timer, 5065); };
  Scroll_Timer.OnTimer = [this] { Scroll(); };
}

/// What the user sets off: the routine begins with no failures noted, and with the tab's own words
/// in the status line. What it leaves of the tree stays in sight.
std::function<void()> frmGameTools::Command(void (frmGameTools::*routine)()) {
  return [this, routine] {
    BeginCommand();
    RunInSight(routine);
  };
}

void frmGameTools::BeginCommand() {
  app_.Failures.clear();
  news_.clear();
  app_.shell->ShowStatus(TabLine());
}

void frmGameTools::RunInSight(void (frmGameTools::*routine)()) {
  const int height = fraQBMenu.Height;
  const Text before = TabLine();
  {
    const FieldsAreFilled filling(*this);
    (this->*routine)();
  }
  fraQBMenu.StayInSight(height);
  MarkFields();
  ShowTargets();
  if (app_.Failures.empty() && TabLine() != before) app_.shell->ShowStatus(TabLine());
}

/// The same for a command that needs a game.
std::function<void()> frmGameTools::OnGame(void (frmGameTools::*routine)()) {
  return [this, routine] {
    BeginCommand();
    if (RequireGame(app_)) RunInSight(routine);
  };
}

/// The same for a command that changes the game: no other program does meanwhile.
std::function<void()> frmGameTools::Changing(const Button& button,
                                             void (frmGameTools::*routine)()) {
  return [this, &button, routine] {
    BeginCommand();
    if (!RequireGame(app_)) return;
    LockingGame(app_, button.Caption.Get(), [&] { RunInSight(routine); });
  };
}

void frmGameTools::ConnectTabs() {
  lblShipPlugin.OnClick = Command(&frmGameTools::lblShipPlugin_Click);
  lblSoundPlugin.OnClick = Command(&frmGameTools::lblSoundPlugin_Click);
  lblMenus.OnClick = Command(&frmGameTools::lblMenus_Click);
  lblChecker.OnClick = Command(&frmGameTools::lblChecker_Click);
  for (Button* exit : {&lblExit, &lblExit1, &lblExit2, &lblExit3}) {
    exit->OnClick = [this] { Leave(); };
  }
}

void frmGameTools::ConnectLists() {
  cboShipName.OnChange = [this] { ShipNameChanged(); };
  cboShipName.OnClick = OnGame(&frmGameTools::LoadShipPlugin);
  cboSpecies.OnClick = [this] { cboSpecies_Click(); };
  cboSpecies.OnChange = [this] { FieldChanged(cboSpecies); };
  for (TextBox* field :
       {&txtIconName, &txtModName, &txtAuthor, &txtVersion, &txtSources, &txtComments}) {
    field->OnChange = [this, field] { FieldChanged(*field); };
  }
  FileList2.OnClick = [this] { PickShipScript(); };
  cboSoundName.OnChange = [this] { cboSoundName_Change(); };
  cboSoundName.OnClick = OnGame(&frmGameTools::ReadSoundPlugin);
  lstDisabled.OnClick = [this] { PlayClick(); };
  FileList3.OnClick = OnGame(&frmGameTools::CheckShipFiles);
}

void frmGameTools::ConnectCommands() {
  lblPlaySound.OnClick = [this] { lblPlaySound_Click(); };
  lblAddSound.OnClick = [this] { AddSoundEntry(); };
  lblRemoveSound.OnClick = [this] { lblRemoveSound_Click(); };
  const auto changing = [this](Button& button, void (frmGameTools::*routine)()) {
    button.OnClick = Changing(button, routine);
  };
  changing(lblMakeShipPlugin, &frmGameTools::MakeShipPlugin);
  changing(lblMakeSoundPlugin, &frmGameTools::MakeSoundPlugin);
  changing(lblAddQB, &frmGameTools::AddQBMenu);
  changing(lblDeleteQB, &frmGameTools::DeleteQBMenu);
  changing(lblEnable, &frmGameTools::EnableShips);
  changing(lblDisable, &frmGameTools::DisableShips);
  changing(lblDelete, &frmGameTools::DeleteShips);
}

void frmGameTools::ConnectTree() {
  using Place = RowPanel::Place;
  fraQBMenu.OnCaptionClick = [this](Place place) { ClickRow(place, true); };
  fraQBMenu.OnPictureClick = [this](Place place) { ClickRow(place, false); };
  fraQBMenu.OnPointer = [this](Place place) { PointAtRow(place); };
  fraQBMenu.OnPointerFree = [this] { PointAtNoRow(); };
}

/// What the commands would take may be something else now.
void frmGameTools::ClickRow(RowPanel::Place place, bool onCaption) {
  const int index = static_cast<int>(place.Index);
  const Text before = TabLine();
  if (place.Kind == RowPanel::Family::Menu) {
    onCaption ? lblQBMenu_Click(index) : imgQBMenu_Click(index);
  } else {
    onCaption ? lblQBShip_Click(index) : imgQBShip_Click(index);
  }
  ShowTargets();
  if (TabLine() != before) Tell({});
}

/// An arrow that is let go before the timer's first tick goes one step all the same.
void frmGameTools::ConnectArrow(Button& arrow, TextView direction, int interval) {
  arrow.OnPress = [this, direction, interval] {
    PlayEffect(app_, u"Scroll.wav", kPlayLoop);
    ScrollDirection = Text(direction);
    scrolled_ = false;
    Scroll_Timer.Interval = interval;
    Scroll_Timer.Enabled = true;
  };
  arrow.OnRelease = [this] {
    Scroll_Timer.Enabled = false;
    if (!scrolled_) Scroll();
    PlayEffect(app_, u"BackgroundBeep.wav", kPlay);
  };
}

// -- What the held arrows move

void frmGameTools::Scroll() {
  constexpr int kPanelHighest = 850;  ///< Of its bottom, pushed up all the way.
  scrolled_ = true;
  if (ScrollDirection == u"Up") {
    if (fraQBMenu.Top >= 120) return StopAtLimit();
    fraQBMenu.Top = std::min(120, fraQBMenu.Top + 60);
  } else if (ScrollDirection == u"Down") {
    if (fraQBMenu.Top + fraQBMenu.Height <= kPanelHighest) return StopAtLimit();
    fraQBMenu.Top = fraQBMenu.Top - 60;
  } else if (ScrollDirection == u"Right") {
    if (SoundVolume >= 100) return StopAtLimit();
    StepVolume(1);
  } else if (ScrollDirection == u"Left") {
    if (SoundVolume < 11) return StopAtLimit();
    StepVolume(-1);
  }
}

void frmGameTools::StopAtLimit() {
  PlayEffect(app_, u"ErrorBeep.wav", kPlayToEnd);
  Scroll_Timer.Enabled = false;
}

void frmGameTools::StepVolume(int steps) {
  VolumeMeter.Left = VolumeMeter.Left + steps * kVolumeStep;
  VolumeMeter.Width = VolumeMeter.Width - steps * kVolumeStep;
  SoundVolume = static_cast<std::int16_t>(SoundVolume + steps * 10);
  VolumeMeter.AccessibleName = u"Volume " + TextFromUtf8(std::to_string(SoundVolume)) + u"%";
}

}  // namespace tarvo
