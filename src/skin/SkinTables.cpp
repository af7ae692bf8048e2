#include "skin/SkinTables.h"

#include "platform/Sound.h"

namespace tarvo {
namespace {

constexpr Colour kGrey{128, 128, 128};

constexpr SkinPicture kPictures[] = {
    {u"frmMainMenu", u"imgButton", u"ButtonMenu.bmp"},
    {u"frmMainMenu", u"imgLCARS", u"MainScreen.bmp"},
    {u"frmMainMenu", u"imgMenuBorders", u"MainMenu.bmp"},

    {u"frmOptions", u"imgBoxL", u"BorderLeft.bmp"},
    {u"frmOptions", u"imgBoxR", u"BorderRight.bmp"},
    {u"frmOptions", u"imgCommand", u"ButtonBlue.bmp"},
    {u"frmOptions", u"imgBorder", u"TabBorder.bmp"},
    {u"frmOptions", u"imgCommandBorder", u"Commands.bmp"},
    {u"frmOptions", u"imgLongLabel", u"LongLabel.bmp"},

    {u"frmPackager", u"imgBoxL", u"BorderLeft.bmp"},
    {u"frmPackager", u"imgBoxR", u"BorderRight.bmp"},
    {u"frmPackager", u"imgCommand", u"ButtonBlue.bmp"},
    {u"frmPackager", u"imgCommandBorder", u"Commands.bmp"},
    {u"frmPackager", u"imgLongLabel", u"LongLabel.bmp"},
    {u"frmPackager", u"imgLabel", u"LabelBlue.bmp"},
    {u"frmPackager", u"imgButton", u"ButtonMenu.bmp"},

    {u"frmTGLTools", u"imgBoxL", u"BorderLeft.bmp"},
    {u"frmTGLTools", u"imgBoxR", u"BorderRight.bmp"},
    {u"frmTGLTools", u"imgCommand", u"ButtonBlue.bmp"},
    {u"frmTGLTools", u"imgCommandBorder", u"Commands.bmp"},
    {u"frmTGLTools", u"imgLongLabel", u"LongLabel.bmp"},
    {u"frmTGLTools", u"imgLabel", u"LabelBlue.bmp"},
    {u"frmTGLTools", u"imgButton", u"ButtonTab.bmp"},
    {u"frmTGLTools", u"imgButtonSelected", u"ButtonSelected.bmp"},
    {u"frmTGLTools", u"imgTabBorder", u"TabBorder.bmp"},

    {u"frmGameTools", u"imgBoxL", u"BorderLeft.bmp"},
    {u"frmGameTools", u"imgBoxR", u"BorderRight.bmp"},
    {u"frmGameTools", u"imgCommand", u"ButtonBlue.bmp"},
    {u"frmGameTools", u"imgCommandBorder", u"Commands.bmp"},
    {u"frmGameTools", u"imgLongLabel", u"LongLabel.bmp"},
    {u"frmGameTools", u"imgLabel", u"LabelBlue.bmp"},
    {u"frmGameTools", u"imgButton", u"ButtonTab.bmp"},
    {u"frmGameTools", u"imgButtonSelected", u"ButtonSelected.bmp"},
    {u"frmGameTools", u"imgTabBorder", u"TabBorder.bmp"},
    {u"frmGameTools", u"imgBorder", u"TabBorder.bmp"},
    {u"frmGameTools", u"imgButtonL", u"ArrowL.bmp"},
    {u"frmGameTools", u"imgButtonR", u"ArrowR.bmp"},
    {u"frmGameTools", u"imgButtonU", u"ArrowU.bmp"},
    {u"frmGameTools", u"imgButtonD", u"ArrowD.bmp"},
    {u"frmGameTools", u"imgQBMenu", kTreePictures[0]},
};

/// What stands on a tab's frame and takes no pointer counts as that frame.
constexpr SkinFamily kFamilies[] = {
    {u"frmMainMenu",
     {{{u"imgButton", u"ButtonMenu_Over.bmp"}}},
     kGrey,
     true,
     kPlayUnlessBusy,
     {u"imgMenuBorders"}},
    {u"frmOptions",
     {{{u"imgCommand", u"ButtonBlue_Over.bmp"}}},
     kWhite,
     false,
     kPlay,
     {u"imgCommandBorder"}},
    {u"frmPackager",
     {{{u"imgButton", u"ButtonMenu_Over.bmp"}}},
     kGrey,
     false,
     kPlay,
     {u"imgCommandBorder"}},
    {u"frmPackager",
     {{{u"imgCommand", u"ButtonBlue_Over.bmp"}}},
     kWhite,
     false,
     kPlay,
     {u"imgCommandBorder"}},
    {u"frmTGLTools",
     {{{u"imgButton", u"ButtonTab_Over.bmp"}}},
     kWhite,
     false,
     kPlayUnlessBusy,
     {u"frmTGLTools", u"imgTabBorder"}},
    {u"frmTGLTools",
     {{{u"imgCommand", u"ButtonBlue_Over.bmp"}}},
     kWhite,
     false,
     kPlayUnlessBusy,
     {u"fraShipTGL", u"fraGameTGL"}},
    {u"frmGameTools",
     {{{u"imgButton", u"ButtonTab_Over.bmp"}}},
     kWhite,
     false,
     kPlayUnlessBusy,
     {u"frmGameTools", u"imgTabBorder"}},
    {u"frmGameTools",
     {{{u"imgCommand", u"ButtonBlue_Over.bmp"}}},
     kWhite,
     false,
     kPlayUnlessBusy,
     {u"fraSound", u"fraShipInfo", u"fraIntegrity", u"fraMenus"}},
    {u"frmGameTools",
     {{{u"imgButtonU", u"ArrowU_Over.bmp"}, {u"imgButtonD", u"ArrowD_Over.bmp"}}},
     kWhite,
     false,
     kPlayUnlessBusy,
     {u"Frame1"}},
    {u"frmGameTools",
     {{{u"imgButtonL", u"ArrowL_Over.bmp"}, {u"imgButtonR", u"ArrowR_Over.bmp"}}},
     kWhite,
     false,
     kPlayUnlessBusy,
     {u"fraSound"}},
    {u"frmGameTools",
     {{{u"imgQBMenu", {}}, {u"imgQBShip", {}}}},
     kWhite,
     false,
     kPlayUnlessBusy,
     {u"fraQBMenu"}},
};

}  // namespace

std::span<const SkinPicture> SkinPictures() {
  return kPictures;
}

std::span<const SkinFamily> SkinFamilies() {
  return kFamilies;
}

PictureFit FitOf(TextView file) {
  if (file.starts_with(u"Border")) return PictureFit::Down;
  if (file.starts_with(u"Arrow")) return PictureFit::Natural;
  if (file.starts_with(u"Main")) return PictureFit::Stretched;
  return PictureFit::Across;
}

}  // namespace tarvo
