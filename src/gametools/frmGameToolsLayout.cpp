#include "controls/Palette.h"
#include "controls/Placing.h"
#include "gametools/frmGameTools.h"

namespace tarvo {
namespace {

/// The tab areas: 6900 wide, 4465 high, with a margin of 150 around.
constexpr int kAreaTop = 600;
constexpr int kBottomRow = 3975;  ///< Where the commands that end the work stand.
constexpr int kArrowSize = 360;

void PlaceArrow(Button& button, Button::Arrow glyph, TextView name, int left) {
  button.Glyph = glyph;
  button.AccessibleName = Text(name);
  button.BackColour = palette::kPeach;
  button.Move(left, 0, kArrowSize, kArrowSize);
}

void PlaceBar(Frame& bar, Colour colour, int left, int top, int width, int height) {
  bar.BackColour = colour;
  bar.Move(left, top, width, height);
}

void PlaceBar(ProgressBar& bar, TextView name, Colour colour, int top) {
  bar.AccessibleName = Text(name);
  bar.BackColour = kBlack;
  bar.ForeColour = colour;
  bar.Move(240, top, 4620, 270);
}

}  // namespace

Label& frmGameTools::AddHeading(Control& parent, Image& ground, TextView caption, int left, int top,
                                int width) {
  Label& label = labels.emplace_back(&parent);
  PlaceHeading(label, ground, caption, left, top, width);
  return label;
}

Label& frmGameTools::AddLabel(Control& parent, TextView caption, int left, int top, int width) {
  Label& label = labels.emplace_back(&parent);
  Place(label, caption, left, top, width);
  return label;
}

void frmGameTools::LayOut() {
  for (Frame* area : {&fraShipInfo, &fraSound, &fraMenus, &fraIntegrity, &fraProgress}) {
    area->Move(0, kAreaTop, 6900, 4465);
  }
  for (Control* list : std::initializer_list<Control*>{&FileList1, &FileList4, &FileList5,
                                                       &lstEnabled, &lstSpecies}) {
    list->Visible = false;
  }
  Tabs().Place({u"Ship Plugin", u"Sound Plugin", u"Menus", u"Checker"});
  for (std::size_t i = 0; i < imgBoxL.size(); ++i) {
    Brackets{imgBoxL[i], imgBoxR[i]}.Place(0, 6900, 15, 3840);
    PlaceCommandGround(imgCommandBorder[i], 0, kBottomRow, 6900);
  }
  LayOutShipPlugin();
  LayOutSoundPlugin();
  LayOutVolume();
  LayOutMenus();
  LayOutChecker();
  LayOutProgress();
}

void frmGameTools::NameControls() {
  NameButtons();
  Skin.Name(u"imgTabBorder", imgTabBorder);
  Skin.Name(u"imgButtonSelected", imgButtonSelected);
  Skin.Name(u"imgLongLabel", imgLongLabel);
  Skin.Name(u"imgLabel", imgLabel);
  Skin.Name(u"imgBoxL", imgBoxL);
  Skin.Name(u"imgBoxR", imgBoxR);
  Skin.Name(u"imgCommandBorder", imgCommandBorder);
  Skin.Name(u"imgBorder", imgBorder);
  Skin.NameTree(fraQBMenu);
  Skin.NameSurface(u"frmGameTools", *this);
  Skin.NameSurface(u"imgTabBorder", imgTabBorder);
  Skin.NameSurface(u"fraSound", fraSound);
  Skin.NameSurface(u"fraShipInfo", fraShipInfo);
  Skin.NameSurface(u"fraIntegrity", fraIntegrity);
  Skin.NameSurface(u"fraMenus", fraMenus);
  Skin.NameSurface(u"Frame1", Frame1);
}

void frmGameTools::NameButtons() {
  Skin.Name(u"imgButton", {{&lblShipPlugin}, {&lblSoundPlugin}, {&lblMenus}, {&lblChecker}});
  Skin.Name(u"imgCommand", {{&lblRemoveSound},
                            {&lblMakeSoundPlugin},
                            {&lblExit2},
                            {&lblAddSound},
                            {&lblPlaySound},
                            {&lblMakeShipPlugin},
                            {&lblExit},
                            {&lblExit1},
                            {&lblAddQB},
                            {&lblDeleteQB},
                            {&lblDelete},
                            {&lblEnable},
                            {&lblDisable},
                            {&lblExit3}});
  Skin.Name(u"imgButtonL", {{&imgButtonL}});
  Skin.Name(u"imgButtonR", {{&imgButtonR}});
  Skin.Name(u"imgButtonU", {{&imgButtonU}});
  Skin.Name(u"imgButtonD", {{&imgButtonD}});
}

/// The fields, and beside them the scripts whose names they can take.
void frmGameTools::LayOutShipPlugin() {
  int top = 90;
  const auto place = [this, &top](Control& field, TextView caption) {
    AddLabel(fraShipInfo, caption, 150, top + 37, 1050);
    Place(field, caption, 1200, top, 3090);
    top += 405;
  };
  place(cboShipName, u"Ship Name");
  place(cboSpecies, u"Species");
  place(txtIconName, u"Icon Name");
  top += 90;
  AddHeading(fraShipInfo, imgLongLabel[1], u"Mod Information", 150, top, 4140);
  top += 330;
  place(txtModName, u"Mod Name");
  place(txtAuthor, u"Author");
  place(txtVersion, u"Version");
  place(txtSources, u"Sources");
  place(txtComments, u"Comments");
  txtVersion.SetText(u"1.0");
  txtSources.SetText(u"http://");
  AddHeading(fraShipInfo, imgLabel[2], u"Ship Scripts", 4440, 90, 2310);
  Place(FileList2, u"Ship scripts", 4440, 405, 2310, 3330);
  Place(lblMakeShipPlugin, u"Make Plugin", palette::kOrange, 1200, kBottomRow, 3090);
  Place(lblExit, u"Exit", palette::kViolet, 4440, kBottomRow, 2310);
}

/// Three columns: a weapon, a sound for it, and the entries made of the two.
void frmGameTools::LayOutSoundPlugin() {
  Brackets{imgBoxL[0], imgBoxR[0]}.Place(0, 6900, 15, 3285);
  PlaceCommandGround(imgCommandBorder[0], 3480, kBottomRow, 3420);
  AddLabel(fraSound, u"File Name", 150, 127, 900);
  Place(cboSoundName, u"File name of the sound plugin", 1050, 90, 5700);
  AddHeading(fraSound, imgLabel[0], u"Weapons", 150, 555, 1650);
  Place(lstWeapons, u"Weapons", 150, 855, 1650, 2370);
  AddHeading(fraSound, imgLabel[1], u"Sound Files", 1890, 555, 1650);
  Place(FileListWavs, u"Sound files", 1890, 855, 1650, 1965);
  Place(lblPlaySound, u"Test Sound", palette::kBlue, 1890, 2880, 1650);
  AddHeading(fraSound, imgLongLabel[0], u"Sounds of the Plugin", 3630, 555, 3120);
  Place(lstSoundInfo, u"Sounds of the plugin", 3630, 855, 3120, 1965);
  Place(lblAddSound, u"Add Sound", palette::kBlue, 3630, 2880, 1515);
  Place(lblRemoveSound, u"Remove Item", palette::kBlue, 5235, 2880, 1515);
  Place(lblMakeSoundPlugin, u"Make Plugin", palette::kOrange, 3630, kBottomRow, 1515);
  Place(lblExit2, u"Exit", palette::kViolet, 5235, kBottomRow, 1515);
}

/// The bar ends where the meter does at full volume.
void frmGameTools::LayOutVolume() {
  constexpr int kTop = 3700;
  constexpr int kHeight = 390;
  constexpr int kFull = 3000;
  constexpr int kStep = 277;
  const int empty = kFull - 10 * kStep;
  AddLabel(fraSound, u"Volume ", empty, 3352, 1200);
  for (int i = 0; i < 10; ++i) {
    const Colour colour = i < 5 ? palette::kBlue : i < 8 ? palette::kViolet : palette::kOrange;
    PlaceBar(fraVolume[static_cast<std::size_t>(i)], colour, empty + i * kStep, kTop, kStep - 30,
             kHeight);
  }
  VolumeMeter.AccessibleName = u"Volume 100%";
  VolumeMeter.Rounding = 0;
  VolumeMeter.ForeColour = kTransparent;
  VolumeMeter.BackColour = Colour{0, 0, 0, 185};
  VolumeMeter.Move(kFull, kTop, 15, kHeight);
  AddLabel(fraSound, u"0%", empty, 4110, 600);
  AddLabel(fraSound, u"50%", empty + 5 * kStep - 300, 4110, 600).Alignment = Label::Align::Centre;
  AddLabel(fraSound, u"100%", kFull - 630, 4110, 600).Alignment = Label::Align::Right;
  PlaceArrow(imgButtonL, Button::Arrow::Left, u"Lower the volume", 2220);
  PlaceArrow(imgButtonR, Button::Arrow::Right, u"Raise the volume", 2640);
  for (Button* arrow : {&imgButtonL, &imgButtonR}) arrow->Top = 3315;
}

/// The enabled ships in their menus, the disabled ones in their list, and the commands that move
/// ships between the two.
void frmGameTools::LayOutMenus() {
  AddHeading(fraMenus, imgLabel[3], u"Quick Battle Menus", 150, 90, 2310);
  fraTree.Move(150, 375, 2310, 3405);
  fraQBMenu.AccessibleName = u"Quick Battle menus";
  Frame1.Move(825, kBottomRow, 960, kArrowSize);
  PlaceArrow(imgButtonU, Button::Arrow::Up, u"Scroll the menus up", 0);
  PlaceArrow(imgButtonD, Button::Arrow::Down, u"Scroll the menus down", 600);
  constexpr int kMiddle = 2670;
  constexpr int kWidth = 1620;
  Place(lblAddQB, u"Add QB Menu", palette::kBlue, kMiddle, 405, kWidth);
  Place(lblDeleteQB, u"Delete QB Menu", palette::kBlue, kMiddle, 840, kWidth);
  Place(lblEnable, u"Enable Ship", palette::kOrange, kMiddle, 1710, kWidth);
  Place(lblDisable, u"Disable Ship", palette::kOrange, kMiddle, 2145, kWidth);
  Place(lblDelete, u"Delete Ship", palette::kOrange, kMiddle, 2580, kWidth);
  AddHeading(fraMenus, imgLabel[4], u"Disabled Ships", 4440, 90, 2310);
  Place(lstDisabled, u"Disabled ships", 4440, 405, 2310, 3330);
  Place(lblExit3, u"Exit", palette::kViolet, 4440, kBottomRow, 2310);
}

void frmGameTools::LayOutChecker() {
  AddHeading(fraIntegrity, imgLongLabel[2], u"Choose a Ship to Test for Missing Files!", 150, 90,
             6600);
  Place(FileList3, u"Ship scripts", 150, 405, 2100, 3330);
  Place(txtFileDisplay, u"Files of the ship", 2370, 405, 4380, 2070);
  Place(txtErrorDisplay, u"Possible problems", 2370, 2565, 4380, 1170);
  for (TextBox* report : {&txtFileDisplay, &txtErrorDisplay}) {
    report->MultiLine = true;
    report->ReadOnly = true;
  }
  txtFileDisplay.BreakAnywhere = true;
  Place(lblExit1, u"Exit", palette::kViolet, 4440, kBottomRow, 2310);
}

void frmGameTools::LayOutProgress() {
  fraProgress.Visible = false;
  fraProgress.BackColour = kBlack;
  imgBorder.Move(900, 870, 5100, 120);
  fraUpdateProgress.Move(900, 1050, 5100, 2190);
  fraUpdateProgress.BackColour = palette::kPanel;
  fraUpdateProgress.ForeColour = palette::kOrange;
  AddLabel(fraUpdateProgress, u"Scanning", 240, 180, 4620).Font = {FontRole::Normal, 9};
  lblFile.ForeColour = palette::kPeach;
  lblFile.WordWrap = true;
  lblFile.Move(240, 495, 4620, 480);
  AddLabel(fraUpdateProgress, u"Progress:", 240, 1020, 4620);
  PlaceBar(ProgressBar, u"Progress of the scan", palette::kOrange, 1350);
  PlaceBar(ProgressBar2, u"Progress of the file", palette::kBlue, 1740);
}

}  // namespace tarvo
