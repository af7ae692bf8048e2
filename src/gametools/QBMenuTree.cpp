#include <algorithm>
#include <iterator>

#include "gametools/frmGameTools.h"
#include "platform/Sound.h"
#include "quickbattle/QBMenus.h"
#include "state/CommonUtilities.h"

namespace tarvo {

/// The tree of menus and ships. Where its rows stand is all that it knows: a menu is open when the
/// menu below doesn't follow at the pitch, and the ships in between are those under it.

namespace {

constexpr int kRowPitch = 360;

using Family = RowPanel::Family;
using Picture = RowPanel::Picture;

RowPanel::Row ShipRow(const Text& caption, const RowPanel::Row& above) {
  RowPanel::Row row{caption,
                    Picture::Ship,
                    {185, above.PictureArea.Top, 2205, 270},
                    {560, above.CaptionArea.Top, 1635, 225}};
  row.MoveBy(kRowPitch);
  return row;
}

}  // namespace

/// The built-in menus, the row that is the ships' template, and the end row. It has no custom
/// menus yet.
void frmGameTools::MakeTree() {
  fraQBMenu.Move(-120, 120, 2535, 2925);
  int top = 0;
  for (const TextView menu : kBuiltInQBMenus) {
    AddMenuRow(Text(menu), top);
    top += kRowPitch;
  }
  for (RowPanel::Row& row : fraQBMenu.Edit(Family::Menu)) row.Visible = true;
  SelectedShip = 0;
  fraQBMenu.IsChosen = [this](const RowPanel::Row& row) {
    return row.Caption == ShipCaption(SelectedShip) || IsSelected(row.Caption);
  };
  fraQBMenu.Edit(Family::Ship) = {ShipRow({}, MenuRows().front())};
}

void frmGameTools::AddMenuRow(const Text& caption, int top) {
  fraQBMenu.Edit(Family::Menu)
      .push_back({caption, Picture::MenuClosed, {120, top, 2250, 270}, {480, top + 20, 1500, 240}});
}

void frmGameTools::BuildCustomMenuRows() {
  for (std::size_t i = 0; i <= lstSpecies.Count(); ++i) {
    // The menu above may stand open.
    const int above = MenuRowCount() - 1;
    const auto ships =
        std::count_if(ShipRows().begin(), ShipRows().end(),
                      [&](const RowPanel::Row& ship) { return StandsUnder(ship, above); });
    const int top = MenuRows().back().PictureArea.Top;
    AddMenuRow(i < lstSpecies.Count() ? lstSpecies.Item(i) : Text(),
               top + kRowPitch * (1 + static_cast<int>(ships)));
    fraQBMenu.Edit(Family::Menu)[static_cast<std::size_t>(above)].Visible = true;
    fraQBMenu.Height = fraQBMenu.Height + kRowPitch;
  }
  plugins_.Forget();
  Refresh();
}

void frmGameTools::RemoveCustomMenuRows() {
  for (int i = MenuRowCount() - 1; i >= kFirstCustomMenu; --i) {
    CloseQBMenu(i);
    fraQBMenu.Edit(Family::Menu).pop_back();
    fraQBMenu.Height = fraQBMenu.Height - kRowPitch;
  }
  plugins_.Forget();
  Refresh();
}

void frmGameTools::CloseOpenMenus() {
  for (int i = 0; i + 1 < MenuRowCount(); ++i) {
    if (MenuIsOpen(i)) lblQBMenu_Click(i);
  }
}

void frmGameTools::imgQBMenu_Click(int index) {
  PlayClick();
  lblQBMenu_Click(index);
}

void frmGameTools::lblQBMenu_Click(int index) {
  if (!IsMenu(index)) return;
  PlayClick();
  if (MenuIsOpen(index)) {
    ShowMenuPicture(index, Picture::MenuClosed);
    CloseQBMenu(index);
  } else {
    ShowMenuPicture(index, Picture::MenuOpen);
    SelectedMenu = static_cast<std::int16_t>(index);
    OpenQBMenu(index);
  }
}

void frmGameTools::OpenQBMenu(int index) {
  bool first = true;
  for (std::size_t i = 0; i < lstEnabled.Count(); ++i) {
    first = InsertShipRow(index, lstEnabled.Item(i), first);
  }
  if (!first) return;
  // With no ship to show it closes again, as by a click of its own.
  PlayClick();
  ShowMenuPicture(index, Picture::MenuClosed);
}

void frmGameTools::CloseQBMenu(int index) {
  std::vector<Text> under;
  for (const RowPanel::Row& ship : ShipRows()) {
    if (StandsUnder(ship, index)) under.push_back(ship.Caption);
  }
  for (const Text& ship : under) TakeOutShipRow(index, ship);
  fraQBMenu.Refresh();
}

bool frmGameTools::InsertShipRow(int index, const Text& ship, bool first) {
  const auto menu = static_cast<std::size_t>(index);
  const Text path = app_.State.GamePath + u"\\scripts\\Custom\\Ships\\" + ship + u".py";
  if (!IsMenu(index)) return first;
  const PluginFacts* const plugin = LookAtPlugin(path);
  if (!plugin || !plugin->InMenu[menu]) return first;

  TreeRows& ships = fraQBMenu.Edit(Family::Ship);
  TreeRows& menus = fraQBMenu.Edit(Family::Menu);
  RowPanel::Row& anchor = ships.front();
  anchor.MoveBy(menus[menu].PictureArea.Top - anchor.PictureArea.Top);
  RowPanel::Row row = ShipRow(ship, first ? anchor : ships.back());
  row.Visible = true;
  for (std::size_t below = menu + 1; below < menus.size(); ++below) menus[below].MoveBy(kRowPitch);
  for (RowPanel::Row& other : ships) {
    if (other.CaptionArea.Top > row.CaptionArea.Top) other.MoveBy(kRowPitch);
  }
  ships.push_back(std::move(row));
  fraQBMenu.Height = fraQBMenu.Height + kRowPitch;
  return false;
}

void frmGameTools::RemoveShipRow(int index, const Text& ship) {
  if (!TakeOutShipRow(index, ship)) return;
  if (!MenuIsOpen(index)) ShowMenuPicture(index, Picture::MenuClosed);
  fraQBMenu.Refresh();
}

/// Of the rows with the ship's name the first one goes, whichever menu it stands under; the one
/// under this menu takes its place.
bool frmGameTools::TakeOutShipRow(int index, const Text& ship) {
  TreeRows& ships = fraQBMenu.Edit(Family::Ship);
  const auto named = [&](const RowPanel::Row& row) { return row.Visible && row.Caption == ship; };
  const auto first = std::find_if(ships.begin(), ships.end(), named);
  const auto own = std::find_if(first, ships.end(), [&](const RowPanel::Row& row) {
    return named(row) && StandsUnder(row, index);
  });
  if (own == ships.end()) return false;

  const int gone = own->CaptionArea.Top;
  own->MoveBy(first->CaptionArea.Top - gone);
  ships.erase(first);
  for (RowPanel::Row& row : ships) {
    if (row.CaptionArea.Top > gone) row.MoveBy(-kRowPitch);
  }
  TreeRows& menus = fraQBMenu.Edit(Family::Menu);
  for (auto below = static_cast<std::size_t>(index) + 1; below < menus.size(); ++below) {
    menus[below].MoveBy(-kRowPitch);
  }
  fraQBMenu.Height = fraQBMenu.Height - kRowPitch;
  return true;
}

void frmGameTools::imgQBShip_Click(int index) {
  PlayClick();
  lblQBShip_Click(index);
}

void frmGameTools::lblQBShip_Click(int index) {
  if (ShipCaption(index).empty()) return;
  PlayClick();
  if (!LetGo(ShipCaption(index))) SelectedShip = index;
}

/// True when the ship was still selected, as a question that was answered with "No" leaves it: now
/// no command takes it.
bool frmGameTools::LetGo(const Text& ship) {
  if (!IsSelected(ship)) return false;
  for (std::size_t row = 0; row < lstEnabled.Count(); ++row) {
    if (lstEnabled.Item(row) == ship) lstEnabled.SetSelected(row, false);
  }
  if (ShipCaption(SelectedShip) == ship) SelectedShip = 0;
  fraQBMenu.Changed();
  return true;
}

bool frmGameTools::IsSelected(const Text& ship) const {
  for (std::size_t row = 0; row < lstEnabled.Count(); ++row) {
    if (lstEnabled.Selected(row) && lstEnabled.Item(row) == ship) return true;
  }
  return false;
}

bool frmGameTools::IsMenu(int index) const {
  return index >= 0 && index + 1 < MenuRowCount();
}

/// True for the last row, too.
bool frmGameTools::MenuIsOpen(int index) const {
  if (index < 0 || index >= MenuRowCount()) return false;
  if (!IsMenu(index)) return true;
  const auto menu = static_cast<std::size_t>(index);
  return MenuRows()[menu + 1].PictureArea.Top != MenuRows()[menu].PictureArea.Top + kRowPitch;
}

bool frmGameTools::StandsUnder(const RowPanel::Row& ship, int index) const {
  const auto menu = static_cast<std::size_t>(index);
  const int top = ship.PictureArea.Top;
  return ship.Visible && top > MenuRows()[menu].PictureArea.Top &&
         (menu + 1 == MenuRows().size() || top < MenuRows()[menu + 1].PictureArea.Top);
}

int frmGameTools::MenuRowCount() const {
  return static_cast<int>(MenuRows().size());
}

const Text& frmGameTools::MenuCaption(int index) const {
  return MenuRows().at(static_cast<std::size_t>(index)).Caption;
}

Text frmGameTools::ShipCaption(int index) const {
  if (index < 1 || static_cast<std::size_t>(index) >= ShipRows().size()) return {};
  return ShipRows()[static_cast<std::size_t>(index)].Caption;
}

void frmGameTools::ShowMenuPicture(int index, Picture picture) {
  fraQBMenu.Edit(Family::Menu)[static_cast<std::size_t>(index)].Shown = picture;
}

/// One row is lit until the pointer has crossed the free part of the panel.
void frmGameTools::PointAtRow(RowPanel::Place place) {
  const auto colour = Skin.EnterRow(place.Kind == Family::Menu ? u"imgQBMenu" : u"imgQBShip");
  if (colour) fraQBMenu.Edit(place.Kind)[place.Index].CaptionColour = *colour;
}

void frmGameTools::PointAtNoRow() {
  if (!Skin.LeaveRows(u"imgQBMenu")) return;
  for (const Family kind : {Family::Menu, Family::Ship}) {
    for (RowPanel::Row& row : fraQBMenu.Edit(kind)) row.CaptionColour = kBlack;
  }
}

}  // namespace tarvo
