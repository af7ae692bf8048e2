#pragma once

#include <array>
#include <cstddef>
#include <optional>

#include "controls/Control.h"

namespace tarvo {

/// A panel of painted rows, menus and the ships in them, that is moved up and down behind the
/// control it stands on. Where a row stands is up to the screen: the panel only draws rows, and
/// tells what the user does with them.
class RowPanel : public Control {
 public:
  enum class Family { Menu, Ship };
  enum class Picture { MenuClosed, MenuOpen, Ship, ShipSelected };

  /// Twips on the panel.
  struct Area {
    int Left = 0, Top = 0, Width = 0, Height = 0;
    bool Contains(int left, int top) const {
      return left >= Left && left < Left + Width && top >= Top && top < Top + Height;
    }
  };

  /// A picture with a caption on it.
  struct Row {
    Text Caption;
    Picture Shown = Picture::MenuClosed;
    Area PictureArea;
    Area CaptionArea;
    bool Visible = false;
    Colour CaptionColour = kBlack;

    void MoveBy(int twips) {
      PictureArea.Top += twips;
      CaptionArea.Top += twips;
    }
  };

  /// Which row; rows of a family count from 0.
  struct Place {
    Family Kind = Family::Menu;
    std::size_t Index = 0;
    friend bool operator==(const Place&, const Place&) = default;
  };

  /// `restTop` is the Top beyond which the user can't pull the panel down.
  RowPanel(Control* parent, int restTop) : Control(parent), restTop_(restTop) {}
  void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

  /// The number of the ship row that is the chosen one; it may be that of no row.
  Property<int> ChosenShip{*this, -1};

  /// Which other ship rows are chosen, where that isn't told by the number. To be followed by
  /// Changed() when the answers have changed.
  std::function<bool(const Row&)> IsChosen;

  /// The number of the menu row with a mark; it may be that of no row. The words are its tooltip,
  /// and what screen readers say of it.
  Property<int> MarkedMenu{*this, -1};
  Property<Text> MarkWords{*this, {}};

  /// The words on the row in that place, if it is the marked one.
  Text WordsOn(Place place) const {
    const bool isMarked =
        place.Kind == Family::Menu && static_cast<std::size_t>(MarkedMenu.Get()) == place.Index;
    return isMarked ? MarkWords.Get() : Text();
  }

  /// As Image::Picture, in the order of Picture: what the rows look like. Where there is no such
  /// picture the view draws a bar with a sign.
  Property<std::array<Text, 4>> Pictures{*this, {}};

  /// The colour of a caption as long as the keyboard is on its row; none when transparent.
  Property<Colour> FocusColour{*this, kTransparent};

  const std::vector<Row>& Rows(Family kind) const { return kind == Family::Menu ? menus_ : ships_; }

  /// The rows to be changed by program.
  std::vector<Row>& Edit(Family kind);

  /// What a row that is there looks like: its own picture, or that of a chosen ship.
  Picture PictureOf(Place place) const;

  /// The row, or nothing when there is none or it isn't visible.
  const Row* Seen(Place place) const;

  /// The visible row whose picture or caption lies there.
  std::optional<Place> At(int left, int top) const;

  /// The visible rows from the top of the panel to its bottom.
  std::vector<Place> InOrder() const;

  /// The user clicks a row, on its caption or beside that; it is brought into sight, and so are the
  /// ships of a menu that has opened. Does nothing while the panel is not usable, or where no such
  /// row is seen.
  void Click(Place place, bool onCaption);

  /// The pointer comes onto a row, or onto the free part of the panel.
  void Point(std::optional<Place> place);

  /// The user pulls the panel down, or up for a negative number: not below its resting place, nor
  /// up when its bottom can be seen already.
  void ScrollBy(int twips);

  /// Scrolls no more than it takes to show the whole row.
  void BringIntoSight(Place place);

  /// Rows may have gone since the panel had the height `before`: where its bottom stands above that
  /// of what it is seen through, it is pulled down.
  void StayInSight(int before);

  std::function<void(Place)> OnCaptionClick;
  std::function<void(Place)> OnPictureClick;
  std::function<void(Place)> OnPointer;
  std::function<void()> OnPointerFree;

 private:
  void BringOpenedIntoSight(Place menu);

  int restTop_;
  std::vector<Row> menus_;
  std::vector<Row> ships_;
};

}  // namespace tarvo
