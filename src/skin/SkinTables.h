#pragma once

#include <array>
#include <span>

#include "controls/Control.h"
#include "controls/PictureFit.h"

namespace tarvo {

/// The skin as data. Pictures are files of the folder \Gfx\ under the program folder, and controls
/// go by their names on their screens; a name stands for all members of an array.

/// Which picture stands on which control.
struct SkinPicture {
  TextView Screen;
  TextView Control;
  TextView File;
};

std::span<const SkinPicture> SkinPictures();

/// The pictures of the rows of the tree of menus and ships, in the order of RowPanel::Picture.
inline constexpr std::array<TextView, 4> kTreePictures = {u"QBMenu.bmp", u"QBMenu_Open.bmp",
                                                          u"QBShip.bmp", u"QBShip_Selected.bmp"};

/// Buttons that answer the pointer as one: of a family one is lit when the pointer comes onto it,
/// and all go out when the pointer crosses a surface around them.
struct SkinFamily {
  struct Member {
    TextView Control;
    TextView Over;  ///< The picture under the pointer; empty where it stays the same.
  };

  TextView Screen;
  std::array<Member, 2> Members;
  Colour LabelOver;                  ///< A label's colour under the pointer; it is black at rest.
  bool ColourNeedsPicture;           ///< The colour changes only together with the picture.
  unsigned Beep;                     ///< Flags of the sound.
  std::array<TextView, 4> Surfaces;  ///< The screen's own name stands for its background.
};

std::span<const SkinFamily> SkinFamilies();

/// How the picture comes to fill its control.
PictureFit FitOf(TextView file);

}  // namespace tarvo
