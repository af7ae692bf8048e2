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
const QColor kQuietBlue(28, 28, 58);  ///< Under captions in peach.
const QColor kQuietRail = Mix(kViolet, Qt::black, 0.4);

/// Captions on the open tab and on the rows of the tree may be black or white: these grounds lie
/// between the two.
const QColor kDeepOrange(186, 93, 8);
const QColor kRowViolet(172, 104, 190);
const QColor kRowBlue(106, 110, 220);

/// What is lit is brighter than at rest. Where its caption turns white, both grounds lie between
/// black and white; a grey caption stands on a ground that is nearly white.
const QColor kTabViolet(160, 96, 180);
const QColor kLitViolet(188, 112, 208);
const QColor kLitBlue(120, 130, 255);
const QColor kLitPeach(255, 232, 204);
const QColor kPaleViolet = Mix(kViolet, Qt::white, 0.5);
const QColor kPaleBlue = Mix(kBlue, Qt::white, 0.5);

const std::vector<SkinPicture>& Table() {
  static const std::vector<SkinPicture> table{
      {"ButtonMenu", 96, 24, Pill(kOrange)},
      {"ButtonMenu_Over", 96, 24, LitPill(kLitPeach, kOrange)},
      {"ButtonBlue", 110, 23, Pill(kRowBlue)},
      {"ButtonBlue_Over", 110, 23, LitPill(kLitBlue, kPaleBlue)},
      {"ButtonTab", 95, 23, Tab(kTabViolet)},
      {"ButtonTab_Over", 95, 23, LitTab(kLitViolet, kPaleViolet)},
      {"ButtonSelected", 95, 30, ChosenTab(kDeepOrange)},
      {"TabBorder", 460, 8, TabLine(kDeepOrange, kPeach)},
      {"LabelBlue", 80, 18, Heading(kBlue, kQuietBlue)},
      {"LongLabel", 200, 18, Heading(kOrange, kQuietBlue)},
      {"BorderLeft", 12, 200, Bracket(Side::Left, kQuietRail)},
      {"BorderRight", 12, 200, Bracket(Side::Right, kQuietRail)},
      {"Commands", 460, 34, CommandRow(kQuietRail)},
      {"ArrowL", 24, 24, Arrow(Left, kPeach, kInk)},
      {"ArrowL_Over", 24, 24, LitArrow(Left, kLitPeach, kOrange, kInk)},
      {"ArrowR", 24, 24, Arrow(Right, kPeach, kInk)},
      {"ArrowR_Over", 24, 24, LitArrow(Right, kLitPeach, kOrange, kInk)},
      {"ArrowU", 24, 24, Arrow(Up, kPeach, kInk)},
      {"ArrowU_Over", 24, 24, LitArrow(Up, kLitPeach, kOrange, kInk)},
      {"ArrowD", 24, 24, Arrow(Down, kPeach, kInk)},
      {"ArrowD_Over", 24, 24, LitArrow(Down, kLitPeach, kOrange, kInk)},
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
