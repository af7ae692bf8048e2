#include "Skin.h"

#include <QPainter>
#include <vector>

#include "Canvas.h"
#include "controls/Palette.h"

namespace tarvo::art {
namespace {

using enum Button::Arrow;

const QColor kOrange = ToQt(palette::kOrange);
const QColor kPeach = ToQt(palette::kPeach);
const QColor kViolet = ToQt(palette::kViolet);
const QColor kBlue = ToQt(palette::kBlue);

const QColor kInk(26, 12, 36);        ///< Signs on bright ground.
const QColor kNight(10, 8, 12);       ///< Under grey captions.
const QColor kDeepBlue(44, 44, 150);  ///< Under white captions.
const QColor kDeepViolet(96, 38, 112);
const QColor kQuietBlue(28, 28, 58);  ///< Under captions in peach.
const QColor kQuietViolet(40, 26, 46);
const QColor kQuietRail = Mix(kViolet, Qt::black, 0.4);

/// Captions on the open tab and on the rows of the tree may be black or white: these grounds lie
/// between the two.
const QColor kDeepOrange(186, 93, 8);
const QColor kRowViolet(172, 104, 190);
const QColor kRowBlue(106, 110, 220);

const std::vector<SkinPicture>& Table() {
  static const std::vector<SkinPicture> table{
      {"ButtonMenu", 96, 24, Pill(kOrange)},
      {"ButtonMenu_Over", 96, 24, OpenPill(kOrange, kNight, 5)},
      {"ButtonBlue", 110, 23, Pill(kBlue)},
      {"ButtonBlue_Over", 110, 23, OpenPill(kBlue, kDeepBlue, 4)},
      {"ButtonTab", 95, 23, Tab(kViolet)},
      {"ButtonTab_Over", 95, 23, OpenTab(kViolet, kDeepViolet)},
      {"ButtonSelected", 95, 30, ChosenTab(kDeepOrange)},
      {"TabBorder", 460, 8, TabLine(kDeepOrange, kPeach)},
      {"LabelBlue", 80, 18, Heading(kBlue, kQuietBlue)},
      {"LongLabel", 200, 18, Heading(kOrange, kQuietBlue)},
      {"BorderLeft", 12, 200, Bracket(Side::Left, kQuietRail)},
      {"BorderRight", 12, 200, Bracket(Side::Right, kQuietRail)},
      {"Commands", 460, 34, CommandRow(kQuietRail)},
      {"ArrowL", 24, 24, Arrow(Left, kPeach, kInk)},
      {"ArrowL_Over", 24, 24, OpenArrow(Left, kPeach, kQuietViolet)},
      {"ArrowR", 24, 24, Arrow(Right, kPeach, kInk)},
      {"ArrowR_Over", 24, 24, OpenArrow(Right, kPeach, kQuietViolet)},
      {"ArrowU", 24, 24, Arrow(Up, kPeach, kInk)},
      {"ArrowU_Over", 24, 24, OpenArrow(Up, kPeach, kQuietViolet)},
      {"ArrowD", 24, 24, Arrow(Down, kPeach, kInk)},
      {"ArrowD_Over", 24, 24, OpenArrow(Down, kPeach, kQuietViolet)},
      {"QBMenu", 150, 18, Row(kRowViolet, Sign::Closed, kInk)},
      {"QBMenu_Open", 150, 18, Row(kDeepOrange, Sign::Open, kInk)},
      {"QBShip", 147, 18, Row(kRowBlue, Sign::Dot, kInk)},
      {"QBShip_Selected", 147, 18, LitRow(kDeepOrange, kPeach)},
      {"MainMenu", 640, 96, MenuGround(0)},
      {"MainScreen", 639, 386, MenuGround(88)},
  };
  return table;
}

}  // namespace

std::span<const SkinPicture> SkinPictures() {
  return Table();
}

QImage Drawn(const SkinPicture& picture, int density) {
  const QRectF area(0, 0, picture.width, picture.height);
  return Drawn(picture.width * density, picture.height * density,
               [&](QPainter& painter) {
                 painter.scale(density, density);
                 painter.fillRect(area, Qt::black);
                 painter.setPen(Qt::NoPen);
                 picture.draw(painter, area);
               })
      .convertToFormat(QImage::Format_RGB888);
}

}  // namespace tarvo::art
