#include "skin/ScreenSkin.h"

#include <algorithm>
#include <utility>

#include "state/CommonUtilities.h"

namespace tarvo {
namespace {

/// The picture that stands on an array at rest; empty where the table has none.
TextView PictureOf(TextView screen, TextView array) {
  const auto rows = SkinPictures();
  const auto row = std::find_if(rows.begin(), rows.end(), [&](const SkinPicture& picture) {
    return picture.Screen == screen && picture.Control == array;
  });
  return row == rows.end() ? TextView() : row->File;
}

}  // namespace

void ScreenSkin::Name(TextView array, const std::vector<Labels>& buttons) {
  for (const Labels& labels : buttons) {
    const std::size_t number = buttons_.size();
    buttons_.push_back({array, labels});
    for (Button* label : labels) {
      label->OnMouseMove = [this, number] { Enter(buttons_[number]); };
    }
  }
}

void ScreenSkin::Name(TextView array, Image& image) {
  images_.push_back({array, &image});
}

void ScreenSkin::NameSurface(TextView name, Control& surface) {
  surfaces_.push_back({name, &surface});
  surface.OnMouseMove = [this, name] { Cross(name); };
}

void ScreenSkin::Load() {
  for (const ButtonImage& image : buttons_) {
    const auto [family, over] = FamilyOf(image.Name);
    for (Button* label : image.Shown) {
      ShowNormal(image, *label);
      label->Fit = FitOf(PictureOf(screen_, image.Name));
      label->FocusPicture = PathOf(over);
      label->FocusColour = family->LabelOver;
    }
  }
  for (const Decoration& image : images_) {
    const TextView file = PictureOf(screen_, image.Name);
    image.Shown->Picture = PathOf(file);
    image.Shown->Fit = FitOf(file);
  }
  if (!tree_) return;
  std::array<Text, kTreePictures.size()> rows;
  std::transform(kTreePictures.begin(), kTreePictures.end(), rows.begin(),
                 [this](TextView file) { return PathOf(file); });
  tree_->Pictures = rows;
  tree_->FocusColour = FamilyOf(u"imgQBMenu").Family->LabelOver;
}

void ScreenSkin::TabChosen() {
  for (const ButtonImage& image : buttons_) {
    for (Button* label : image.Shown) {
      if (label->ForeColour == kBlack) ShowNormal(image, *label);
    }
  }
}

void ScreenSkin::Rest() {
  for (const SkinFamily* family : std::exchange(over_, {})) PutOut(*family);
}

std::optional<Colour> ScreenSkin::EnterRow(TextView array) {
  const SkinFamily& family = *FamilyOf(array).Family;
  if (!Light(family)) return {};
  return family.LabelOver;
}

bool ScreenSkin::LeaveRows(TextView array) {
  return over_.erase(FamilyOf(array).Family) > 0;
}

std::vector<const Control*> ScreenSkin::Named(TextView name) const {
  std::vector<const Control*> found;
  for (const ButtonImage& image : buttons_) {
    if (image.Name == name) found.insert(found.end(), image.Shown.begin(), image.Shown.end());
  }
  for (const Decoration& image : images_) {
    if (image.Name == name) found.push_back(image.Shown);
  }
  for (const Surface& surface : surfaces_) {
    if (surface.Name == name) found.push_back(surface.It);
  }
  const bool ofTree = name == u"imgQBMenu" || name == u"imgQBShip" || name == u"fraQBMenu";
  if (tree_ && ofTree) found.push_back(tree_);
  return found;
}

Text ScreenSkin::PathOf(TextView file) const {
  return app_.ProgramFolder + u"\\Gfx\\" + Text(file);
}

ScreenSkin::Membership ScreenSkin::FamilyOf(TextView array) const {
  for (const SkinFamily& family : SkinFamilies()) {
    if (family.Screen != screen_) continue;
    for (const SkinFamily::Member& member : family.Members) {
      if (member.Control == array) return {&family, member.Over};
    }
  }
  return {};
}

/// Gives true, with a sound, where none of the family was lit.
bool ScreenSkin::Light(const SkinFamily& family) {
  if (!over_.insert(&family).second) return false;
  PlayEffect(app_, u"OverBeep.wav", family.Beep);
  return true;
}

/// A button that is entered while another one is lit changes its colour alone.
void ScreenSkin::Enter(const ButtonImage& image) {
  const auto [family, over] = FamilyOf(image.Name);
  const bool first = Light(*family);
  for (Button* label : image.Shown) {
    if (first) label->Picture = PathOf(over);
    if (first || !family->ColourNeedsPicture) label->ForeColour = family->LabelOver;
  }
}

void ScreenSkin::Cross(TextView surface) {
  for (const SkinFamily& family : SkinFamilies()) {
    const auto& names = family.Surfaces;
    const bool puts =
        family.Screen == screen_ && std::find(names.begin(), names.end(), surface) != names.end();
    if (puts && over_.erase(&family) > 0) PutOut(family);
  }
}

/// The caption of the chosen tab, which is a flat one, keeps its colour.
void ScreenSkin::PutOut(const SkinFamily& family) {
  for (const ButtonImage& image : buttons_) {
    if (FamilyOf(image.Name).Family != &family) continue;
    for (Button* label : image.Shown) {
      if (label->ForeColour == kBlack) continue;
      ShowNormal(image, *label);
      if (!label->Flat) label->ForeColour = kBlack;
    }
  }
}

void ScreenSkin::ShowNormal(const ButtonImage& image, Button& label) const {
  label.Picture = PathOf(PictureOf(screen_, image.Name));
}

}  // namespace tarvo
