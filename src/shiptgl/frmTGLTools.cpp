#include "shiptgl/frmTGLTools.h"

#include "platform/Sound.h"
#include "state/CommonUtilities.h"
#include "state/GameLock.h"
#include "state/Shell.h"
#include "text/FileNames.h"

namespace tarvo {

/// What a tab changes, beside what is on it.
struct frmTGLTools::Tab {
  Button& Caption;
  Frame& Shown;
  TextView Status;
  TextView Hint;
};

frmTGLTools::frmTGLTools(Application& app)
    : Form(Style::Child, app.MainForm),
      FileList(&fraShipTGL, app.machine.files, ListBox::Selection::Single, u"*.TGL"),
      FileList1(&fraShipTGL, app.machine.files, ListBox::Selection::Single, u"*.py"),
      File2(&fraGameTGL, app.machine.files, ListBox::Selection::Toggle, u"*.TGL"),
      MediaPlayer1(this, app.machine.video),
      Skin(app, u"frmTGLTools"),
      app_(app) {
  HelpPage = u"tgltools.html";
  LayOut();
  NameControls();
  Connect();
  MakeDraft();
}

/// On the Delete tab nothing can be typed.
void frmTGLTools::MakeDraft() {
  const auto openTab = [this](const std::vector<Text>& tab) {
    if (tab.empty()) return lblNewTGL_Click();
    lblEditTGL_Click();
    EnableDefinition();
  };
  draft_.Add({[this] { return std::vector<Text>(lblEdit.Visible ? 1 : 0); }, openTab,
              Draft::Kind::Beside});
  draft_.Add(cboShipNames, Draft::Kind::Beside);
  for (TextBox* field : Fields()) draft_.Add(*field);
  OnEscape = [this] { return draft_.HoldsEscape(); };
  OnUndo = [this](bool typed) { return draft_.Undo(typed); };
}

std::array<TextBox*, 6> frmTGLTools::Fields() {
  return {&txtLongName, &txtDescription, &txtWeapons, &txtShields, &txtHull, &txtTactics};
}

void frmTGLTools::Load() {
  Move(1180, 1740, 6900, 0);
  Skin.Load();
  const Text definitions = app_.ProgramFolder + u"\\ShipTGLs\\";
  lblNewTGL_Click();
  ShowFolder(FileList, definitions);
  ShowFolder(File2, definitions);
  FillShipNames();
  DropDefinedShips();
  LoadVideo();
  app_.State.CurrentScreen = u"TGL Tools";
}

/// Shows the files of a folder. One that isn't there has none; one that can't be read is noted.
void frmTGLTools::ShowFolder(FileListBox& list, const Text& folder) {
  NotingFailures(app_, [&] {
    if (app_.machine.files.FolderExists(folder)) list.SetPath(folder);
  });
}

void frmTGLTools::Unload() {
  app_.shell->WorkScreenClosed();
  draft_.Leave();
}

void frmTGLTools::NameControls() {
  Skin.Name(u"imgTabBorder", imgTabBorder);
  Skin.Name(u"imgButtonSelected", imgButtonSelected);
  Skin.Name(u"imgLabel", imgLabel);
  Skin.Name(u"imgLongLabel", imgLongLabel);
  Skin.Name(u"imgBoxL", imgBoxL);
  Skin.Name(u"imgBoxR", imgBoxR);
  Skin.Name(u"imgCommandBorder", imgCommandBorder);
  Skin.Name(u"imgButton", {{&lblNewTGL}, {&lblEditTGL}, {&lblDeleteTGL}, {&lblGameTGL}});
  Skin.Name(u"imgCommand", {{&lblNew, &lblEdit, &lblDelete},
                            {&lblExit},
                            {&lblExit1},
                            {&lblUpdateGame},
                            {&lblUpdateAllGameTGL}});
  Skin.NameSurface(u"frmTGLTools", *this);
  Skin.NameSurface(u"imgTabBorder", imgTabBorder);
  Skin.NameSurface(u"fraShipTGL", fraShipTGL);
  Skin.NameSurface(u"fraGameTGL", fraGameTGL);
}

void frmTGLTools::Connect() {
  const auto click = [this] { PlayEffect(app_, u"Click.wav", kPlayUnlessBusy); };
  const auto leave = [this, click] {
    click();
    app_.screens.Close(*this);
  };
  lblNewTGL.OnClick = [this] { lblNewTGL_Click(); };
  lblEditTGL.OnClick = [this] { lblEditTGL_Click(); };
  lblDeleteTGL.OnClick = [this] { lblDeleteTGL_Click(); };
  lblGameTGL.OnClick = [this] { lblGameTGL_Click(); };
  cboShipNames.OnClick = [this, click] {
    click();
    MarkName();
    const bool unsaved = draft_.Drop();
    txtLongName.SetText(cboShipNames.Text());
    if (!unsaved) draft_.Settle();
  };
  cboShipNames.OnChange = [this] { MarkName(); };
  FileList.OnClick = [this, click] {
    click();
    PickDefinition();
  };
  File2.OnClick = click;
  lblNew.OnClick = [this] { SaveShipTGL(); };
  lblEdit.OnClick = [this] { lblEdit_Click(); };
  lblDelete.OnClick = [this] {
    BeginCommand();
    DeleteShipTGL();
  };
  const auto locked = [this](Button& button, void (frmTGLTools::*routine)()) {
    button.OnClick = [this, &button, routine] {
      BeginCommand();
      if (!RequireGame(app_)) return;
      LockingGame(app_, button.Caption.Get(), [&] { (this->*routine)(); });
    };
  };
  locked(lblUpdateGame, &frmTGLTools::lblUpdateGame_Click);
  locked(lblUpdateAllGameTGL, &frmTGLTools::lblUpdateAllGameTGL_Click);
  lblExit.OnClick = leave;
  lblExit1.OnClick = leave;
  Load_Timer.OnTimer = [this] { Unroll(*this, Load_Timer, 5055); };
}

void frmTGLTools::MarkName() {
  const bool wasMarked = cboShipNames.Marked;
  cboShipNames.Mark(FaultOfGameName(cboShipNames.Text()));
  if (cboShipNames.Marked || wasMarked) {
    app_.shell->ShowStatus(cboShipNames.Marked ? cboShipNames.Hint.Get() : status_);
  }
}

void frmTGLTools::lblNewTGL_Click() {
  OpenDefinitions(
      {lblNewTGL, fraShipTGL, u"New Ship TGL Details...", u"Create a New ShipTGL on this Screen"},
      lblNew);
  cboShipNames.SetText(u"Select your Ship!");
}

void frmTGLTools::lblEditTGL_Click() {
  OpenDefinitions(
      {lblEditTGL, fraShipTGL, u"Edit Ship TGL Details...", u"Edit a ShipTGL on this Screen"},
      lblEdit);
}

void frmTGLTools::lblDeleteTGL_Click() {
  OpenDefinitions({lblDeleteTGL, fraShipTGL, u"Delete Ship TGL From Hard Drive...",
                   u"Delete a ShipTGL From your Hard Drive"},
                  lblDelete);
}

void frmTGLTools::lblGameTGL_Click() {
  Open({lblGameTGL, fraGameTGL, u"Update the Game's TGL Information...",
        u"Update your ShipTGLs in the Game..."});
}

void frmTGLTools::Open(const Tab& tab) {
  PlayEffect(app_, u"TabBeep.wav", kPlayUnlessBusy);
  status_ = Text(tab.Status);
  BeginCommand();
  app_.dialogue.PacTip(tab.Hint, PacTipOf::Screen);
  Tabs().Choose(tab.Caption);
  Skin.TabChosen();
  for (Frame* frame : {&fraShipTGL, &fraGameTGL}) frame->Visible = frame == &tab.Shown;
  CancelButton = fraGameTGL.Visible ? &lblExit1 : &lblExit;
  MediaPlayer1.Visible = fraGameTGL.Visible;
}

/// One of the three tabs that share the fields. On the New tab the user names the ship and fills
/// the fields; on the others he picks a definition first.
void frmTGLTools::OpenDefinitions(const Tab& tab, Button& command) {
  const bool dropped = draft_.Drop();
  Open(tab);
  const bool isNew = &command == &lblNew;
  for (Button* other : {&lblNew, &lblEdit, &lblDelete}) other->Visible = other == &command;
  lblEdit.Enabled = false;
  FileList.Enabled = !isNew;
  cboShipNames.Enabled = isNew;
  EnableFields(isNew);
  ResetFields();
  if (dropped) draft_.TellDropped(status_);
}

void frmTGLTools::EnableFields(bool enabled) {
  for (TextBox* field : Fields()) field->Enabled = enabled;
}

/// A definition has been picked on the Edit tab.
void frmTGLTools::EnableDefinition() {
  lblEdit.Enabled = true;
  EnableFields(true);
  cboShipNames.Enabled = false;
}

void frmTGLTools::ResetFields() {
  cboShipNames.SetText(u"Select a Ship TGL!");
  ShowTexts({});
}

void frmTGLTools::ShowTexts(const ShipTexts& texts) {
  txtLongName.SetText(texts.LongName);
  txtDescription.SetText(texts.Description);
  txtWeapons.SetText(texts.Weapons);
  txtShields.SetText(texts.Shields);
  txtHull.SetText(texts.Hull);
  txtTactics.SetText(texts.Tactics);
  draft_.Settle();
}

void frmTGLTools::BeginCommand() {
  app_.Failures.clear();
  app_.shell->ShowStatus(status_);
}

}  // namespace tarvo
