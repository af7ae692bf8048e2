#include "controls/Palette.h"
#include "controls/Placing.h"
#include "packages/frmPackager.h"

namespace tarvo {
void frmPackager::LayOut() {
  fraTarvo.Move(0, 0, 6900, 5065);
  LayOutLists();
  LayOutCommands();
  ProgressFrame{fraProgress, Label15, fraUpdateProgress, TarvoProgress, lblFile}.Place(
      u"Scanning...", 1500);
}

/// Three columns: the folders, the files of the folder at hand, the files of the package.
void frmPackager::LayOutLists() {
  PlaceHeading(Label1, imgLongLabel, u"Select Files to add to Tarvo File!!!", 150, 75, 6600);
  Brackets{imgBoxL, imgBoxR}.Place(0, 6900, 15, 4440);
  PlaceCommandGround(imgCommandBorder[0], 120, 420, 6660);
  Place(lblModels, u"Models", palette::kPeach, 150, 420, 1260);
  Place(lblScripts, u"Scripts", palette::kPeach, 1500, 420, 1260);
  Place(lblPlugins, u"Plugins", palette::kPeach, 2850, 420, 1260);
  Place(lblTGL, u"TGL", palette::kPeach, 4200, 420, 1260);
  Place(lstDrive, u"Drive", 150, 885, 2100, 345);
  Place(lstDir, u"Folders", 150, 1275, 2100, 2640);
  Place(lstFileSelect, u"Files of the folder", 2370, 885, 2160, 2640);
  Place(lstFile, u"Files of the package", 4650, 885, 2100, 2640);
}

void frmPackager::LayOutCommands() {
  PlaceCommandGround(imgCommandBorder[1], 2295, 3600, 4530);
  PlaceCommandGround(imgCommandBorder[2], 0, 4575, 6900);
  Place(lblAdd, u"Add File", palette::kBlue, 2370, 3600, 945);
  Place(lblAddAll, u"Add All Files", palette::kBlue, 3360, 3600, 1170);
  Place(lblRemove, u"Remove Files", palette::kBlue, 4650, 3600, 2100);
  PlaceHeading(Label2, imgLabel, u"File Name", 2250, 4117, 930);
  Place(cboFileName, u"File name of the package", 3240, 4080, 3510, 345);
  lstTarvo.Visible = false;
  Place(lblSave, u"Make Tarvo", palette::kOrange, 150, 4575, 2100);
  Place(lblTest, u"Unpak Test", palette::kOrange, 2370, 4575, 2160);
  Place(lblExit, u"Exit", palette::kViolet, 4650, 4575, 2100);
}

}  // namespace tarvo
