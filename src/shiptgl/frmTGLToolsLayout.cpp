#include "controls/Palette.h"
#include "controls/Placing.h"
#include "shiptgl/frmTGLTools.h"

namespace tarvo {
namespace {

constexpr int kCommandTop = 3750;

/// A field with its label at its side.
void Place(Label& label, Control& field, TextView caption, int top, int height) {
  Place(label, caption, 2145, top + 37, 1110);
  Place(field, caption, 3270, top, 3480, height);
}

}  // namespace

void frmTGLTools::LayOut() {
  for (Frame* frame : {&fraShipTGL, &fraGameTGL}) {
    frame->BackColour = kBlack;
    frame->Move(0, 600, 6900, 4465);
  }
  Tabs().Place({u"New TGL", u"Edit TGL", u"Delete TGL", u"Game TGL"});
  for (std::size_t i = 0; i < imgBoxL.size(); ++i) {
    Brackets{imgBoxL[i], imgBoxR[i]}.Place(0, 6900, 15, 3630);
    PlaceCommandGround(imgCommandBorder[i], 0, kCommandTop, 6900);
  }
  LayOutFields();
  LayOutCommands();
  LayOutGame();
  ProgressFrame{fraProgress, Label15, fraUpdateProgress, ProgressBar, lblFile}.Place(
      u"Updating TGL", 1875);
}

/// The definitions on the left, the texts of one of them on the right.
void frmTGLTools::LayOutFields() {
  PlaceHeading(lblDefinitions, imgLabel, u"Ship TGLs", 150, 97, 1800);
  Place(FileList, u"Ship TGLs", 150, 450, 1800, 3120);
  FileList1.Visible = false;
  Place(lblShipName, cboShipNames, u"Ship Name", 60, 345);
  Place(lblLongName, txtLongName, u"Long Name", 450, 345);
  Place(lblDescription, txtDescription, u"Description", 840, 825);
  Place(lblWeapons, txtWeapons, u"Weapons", 1710, 345);
  Place(lblShields, txtShields, u"Shield Rating", 2100, 345);
  Place(lblHull, txtHull, u"Hull Rating", 2490, 345);
  Place(lblTactics, txtTactics, u"Ship Tactics", 2880, 690);
  for (TextBox* field : {&txtDescription, &txtTactics}) field->MultiLine = true;
}

void frmTGLTools::LayOutCommands() {
  Place(lblNew, u"New ShipTGL", palette::kOrange, 2145, kCommandTop, 2235);
  Place(lblEdit, u"Save ShipTGL", palette::kOrange, 2145, kCommandTop, 2235);
  Place(lblDelete, u"Delete ShipTGL", palette::kOrange, 2145, kCommandTop, 2235);
  Place(lblExit, u"Exit", palette::kViolet, 4515, kCommandTop, 2235);
}

void frmTGLTools::LayOutGame() {
  PlaceHeading(lblMerge, imgLongLabel, u"Choose the Ship TGLs to put into the Game", 150, 97, 6600);
  Place(File2, u"Ship TGLs", 150, 450, 6600, 3120);
  MediaPlayer1.Visible = false;
  MediaPlayer1.Move(3165, 1050, 3585, 2685);
  Place(lblUpdateGame, u"Update TGL", palette::kOrange, 150, kCommandTop, 2100);
  Place(lblUpdateAllGameTGL, u"Update All TGL", palette::kOrange, 2400, kCommandTop, 2100);
  Place(lblExit1, u"Exit", palette::kViolet, 4650, kCommandTop, 2100);
}

/// The video takes the right half of the list's place.
void frmTGLTools::LoadVideo() {
  MediaPlayer1.FileName = app_.ProgramFolder + u"\\Gfx\\VideoFX\\LCARS_TGL.MOV";
  if (!app_.State.VideoFX) return;
  File2.Width = 2865;
  MediaPlayer1.Start();
}

}  // namespace tarvo
