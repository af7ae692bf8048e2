#include "controls/RowPanel.h"

#include <algorithm>

namespace tarvo {

std::vector<RowPanel::Row>& RowPanel::Edit(Family kind) {
  Changed();
  return kind == Family::Menu ? menus_ : ships_;
}

RowPanel::Picture RowPanel::PictureOf(Place place) const {
  const Row& row = Rows(place.Kind).at(place.Index);
  const bool chosen =
      place.Kind == Family::Ship &&
      (static_cast<std::size_t>(ChosenShip.Get()) == place.Index || (IsChosen && IsChosen(row)));
  return chosen ? Picture::ShipSelected : row.Shown;
}

const RowPanel::Row* RowPanel::Seen(Place place) const {
  const std::vector<Row>& rows = Rows(place.Kind);
  if (place.Index >= rows.size() || !rows[place.Index].Visible) return nullptr;
  return &rows[place.Index];
}

std::optional<RowPanel::Place> RowPanel::At(int left, int top) const {
  for (const Family kind : {Family::Menu, Family::Ship}) {
    const std::vector<Row>& rows = Rows(kind);
    for (std::size_t i = 0; i < rows.size(); ++i) {
      const Row& row = rows[i];
      if (!row.Visible) continue;
      if (row.PictureArea.Contains(left, top) || row.CaptionArea.Contains(left, top)) {
        return Place{kind, i};
      }
    }
  }
  return {};
}

std::vector<RowPanel::Place> RowPanel::InOrder() const {
  std::vector<Place> places;
  for (const Family kind : {Family::Menu, Family::Ship}) {
    for (std::size_t i = 0; i < Rows(kind).size(); ++i) {
      if (Rows(kind)[i].Visible) places.push_back({kind, i});
    }
  }
  std::stable_sort(places.begin(), places.end(), [this](const Place& a, const Place& b) {
    return Rows(a.Kind)[a.Index].PictureArea.Top < Rows(b.Kind)[b.Index].PictureArea.Top;
  });
  return places;
}

void RowPanel::Click(Place place, bool onCaption) {
  if (!Usable() || !Seen(place)) return;
  const auto& event = onCaption ? OnCaptionClick : OnPictureClick;
  const int before = Height;
  if (event) event(place);
  StayInSight(before);
  if (place.Kind == Family::Menu) BringOpenedIntoSight(place);
  BringIntoSight(place);
}

/// The ships below it are those up to the next menu.
void RowPanel::BringOpenedIntoSight(Place menu) {
  const std::vector<Place> order = InOrder();
  auto last = std::find(order.begin(), order.end(), menu);
  if (last == order.end()) return;
  while (last + 1 != order.end() && (last + 1)->Kind == Family::Ship) ++last;
  BringIntoSight(*last);
}

void RowPanel::Point(std::optional<Place> place) {
  if (!Usable()) return;
  if (!place) {
    Raise(OnPointerFree);
  } else if (OnPointer && Seen(*place)) {
    OnPointer(*place);
  }
}

void RowPanel::ScrollBy(int twips) {
  const int room = Parent() ? Parent()->Height : 0;
  const int lowest = std::min({restTop_, room - Height, Top.Get()});
  Top = std::clamp(Top + twips, lowest, std::max(restTop_, lowest));
}

void RowPanel::StayInSight(int before) {
  if (!Parent() || Height >= before) return;
  Top = std::max<int>(Top, std::min<int>(restTop_, Parent()->Height - Height));
}

void RowPanel::BringIntoSight(Place place) {
  const Row* row = Seen(place);
  if (!row || !Parent()) return;
  const int above = -(Top + row->PictureArea.Top);
  const int below = Top + row->PictureArea.Top + row->PictureArea.Height - Parent()->Height;
  if (above > 0) {
    ScrollBy(above);
  } else if (below > 0) {
    ScrollBy(-below);
  }
}

}  // namespace tarvo
