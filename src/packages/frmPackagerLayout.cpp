#include "controls/Palette.h"
#include "controls/Placing.h"
#include "packages/frmPackager.h"

namespace tarvo {
namespace {

constexpr int kShortcutTop = 435;
constexpr int kListCommandTop = 3615;

}  // namespace

void frmPackager::LayOut() {
  fraTarvo.Move(0, 0, 6900, 5065);
  LayOutLists();
  LayOutCommands();
  ProgressFrame{fraProgress, Label15, fraUpdateProgress, TarvoProgress, lblFile}.Place(
      u"Scanning...", 1575);
}

/// Three columns: the folders, the files of the folder at hand, the files of the package.
void frmPackager::LayOutLists() {
  PlaceHeading(Label1, imgLongLabel, u"Select Files to add to Tarvo File!!!", 150, 45, 6600);
  Brackets{imgBoxL, imgBoxR}.Place(0, 6900, 870, 4470);
  PlaceCommandGround(imgCommandBorder[0], 0, kShortcutTop, 6900);
  Place(lblModels, u"Models", palette::kPeach, 150, kShortcutTop, 1260);
  Place(lblScripts, u"Scripts", palette::kPeach, 1500, kShortcutTop, 1260);
  Place(lblPlugins, u"Plugins", palette::kPeach, 2850, kShortcutTop, 1260);
  Place(lblTGL, u"TGL", palette::kPeach, 4200, kShortcutTop, 1260);
  Place(lstDrive, u"Drive", 150, 885, 2100, 345);
  Place(lstDir, u"Folders", 150, 1275, 2100, 2640);
  Place(lstFileSelect, u"Files of the folder", 2370, 885, 2160, 2580);
  Place(lstFile, u"Files of the package", 4650, 885, 2100, 2580);
}

void frmPackager::LayOutCommands() {
  PlaceCommandGround(imgCommandBorder[1], 2310, kListCommandTop, 4500);
  PlaceCommandGround(imgCommandBorder[2], 0, 4575, 6900);
  Place(lblAdd, u"Add File", palette::kBlue, 2370, kListCommandTop, 945);
  Place(lblAddAll, u"Add All Files", palette::kBlue, 3360, kListCommandTop, 1170);
  Place(lblRemove, u"Remove Files", palette::kBlue, 4650, kListCommandTop, 2100);
  PlaceHeading(Label2, imgLabel, u"File Name", 2370, 4140, 1110);
  Place(cboFileName, u"File name of the package", 3540, 4102, 3210, 345);
  lstTarvo.Visible = false;
  Place(lblSave, u"Make Tarvo", palette::kOrange, 150, 4575, 2100);
  Place(lblTest, u"Unpak Test", palette::kOrange, 2370, 4575, 2160);
  Place(lblExit, u"Exit", palette::kViolet, 4650, 4575, 2100);
}

}  // namespace tarvo
