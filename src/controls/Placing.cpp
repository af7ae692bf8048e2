#include "controls/Placing.h"

#include "controls/Palette.h"

namespace tarvo {
namespace {

constexpr int kTabWidth = 1425;
constexpr int kTabPitch = 1680;
constexpr int kTabLeft = 120;
constexpr int kTabRounding = 90;
constexpr Colour kChosenTab{204, 102, 0};  ///< Under captions in black and in white.
constexpr int kHeadingHeight = 270;
constexpr int kGroundHeight = 510;
constexpr int kBracketWidth = 180;
constexpr int kScreenWidth = 6900;
constexpr int kScreenHeight = 5065;

}  // namespace

void Place(Button& button, TextView caption, Colour colour, int left, int top, int width) {
  button.Caption = Text(caption);
  button.BackColour = colour;
  button.Move(left, top, width, kFieldHeight);
}

void Place(Control& field, TextView name, int left, int top, int width, int height) {
  field.AccessibleName = Text(name);
  field.BackColour = palette::kPanel;
  field.ForeColour = palette::kPeach;
  field.Move(left, top, width, height);
}

void Place(Label& label, TextView caption, int left, int top, int width) {
  label.Caption = Text(caption);
  label.ForeColour = palette::kPeach;
  label.Move(left, top, width, 270);
}

void PlaceOver(Form& dialog, const Form* owner) {
  if (!owner) return;
  dialog.Left = owner->Left + (owner->Width - dialog.Width) / 2;
  dialog.Top = owner->Top + (owner->Height - dialog.Height) / 2;
}

void PlaceHeading(Label& label, Image& ground, TextView caption, int left, int top, int width) {
  ground.Move(left, top, width, kHeadingHeight);
  Place(label, caption, left + 150, top, width - 180);
}

void PlaceCommandGround(Image& ground, int left, int commandTop, int width) {
  ground.Move(left, commandTop - (kGroundHeight - kFieldHeight) / 2, width, kGroundHeight);
}

void Brackets::Place(int left, int right, int top, int bottom) const {
  Left.Move(left, top, kBracketWidth, bottom - top);
  Right.Move(right - kBracketWidth, top, kBracketWidth, bottom - top);
}

void TabStrip::Place(const std::array<TextView, 4>& captions) const {
  Line.BackColour = kChosenTab;
  Line.Move(0, 510, kScreenWidth, 120);
  Mark.BackColour = kChosenTab;
  Mark.Move(kTabLeft, 120, kTabWidth, 450);
  int left = kTabLeft;
  for (std::size_t i = 0; i < Tabs.size(); ++i) {
    tarvo::Place(*Tabs[i], captions[i], palette::kViolet, left, 120, kTabWidth);
    Tabs[i]->Font = {FontRole::Normal, 9};
    Tabs[i]->Rounding = kTabRounding;
    left += kTabPitch;
  }
}

void TabStrip::Choose(const Button& chosen) const {
  Mark.Left = chosen.Left;
  for (Button* tab : Tabs) {
    const bool isChosen = tab == &chosen;
    if (!isChosen) tab->ForeColour = kBlack;
    tab->Flat = isChosen;
    tab->AccessibleName = isChosen ? tab->Caption.Get() + u", chosen tab" : Text();
  }
}

void ProgressFrame::Place(TextView heading, int top) const {
  Shown.Visible = false;
  Shown.Move(900, top, 5100, 1500);
  Shown.BackColour = palette::kPanel;
  Shown.ForeColour = palette::kOrange;
  tarvo::Place(Heading, heading, 240, 180, 4620);
  Heading.Font = {FontRole::Normal, 9};
  Inner.Move(240, 540, 4620, 720);
  Inner.BackColour = palette::kPanel;
  Bar.Move(0, 60, 4620, 270);
  Bar.BackColour = kBlack;
  Bar.ForeColour = palette::kBlue;
  tarvo::Place(File, u"", 0, 450, 4620);
}

void Unroll(Form& screen, Timer& timer, int until) {
  if (screen.Height < until) {
    screen.Height = screen.Height + 150;
  } else {
    screen.Height = kScreenHeight;
    timer.Enabled = false;
  }
}

}  // namespace tarvo
