#pragma once

#include <array>

#include "controls/Button.h"
#include "controls/Form.h"
#include "controls/Frame.h"
#include "controls/Image.h"
#include "controls/Label.h"
#include "controls/ProgressBar.h"
#include "controls/Timer.h"

namespace tarvo {

/// How screens place what they have in common, above all the work screens, which stand on the main
/// menu. Lengths are
/// twips.

inline constexpr int kFieldHeight = 345;

/// A command: a bar of that colour with its caption.
void Place(Button& button, TextView caption, Colour colour, int left, int top, int width);

/// A list or field; `name` is what a screen reader calls it.
void Place(Control& field, TextView name, int left, int top, int width, int height = kFieldHeight);

void Place(Label& label, TextView caption, int left, int top, int width);

/// A label that heads what stands below it, with a ground of that width behind it.
void PlaceHeading(Label& label, Image& ground, TextView caption, int left, int top, int width);

/// The ground behind a row of commands, of which the upper edge stands at `commandTop`.
void PlaceCommandGround(Image& ground, int left, int commandTop, int width);

/// The two sides of a frame around what stands on a screen, from `top` to `bottom`.
struct Brackets {
  Image& Left;
  Image& Right;

  void Place(int left, int right, int top, int bottom) const;
};

/// Puts a dialog over the middle of its owner, where it has one.
void PlaceOver(Form& dialog, const Form* owner);

/// The tabs in the first 600 twips of a screen.
struct TabStrip {
  Image& Line;  ///< Runs under all tabs.
  Image& Mark;  ///< Stands behind the chosen one and joins it with the line.
  std::array<Button*, 4> Tabs;

  void Place(const std::array<TextView, 4>& captions) const;
  void Choose(const Button& chosen) const;
};

/// What stands over a screen while files are at work: a frame with a heading, and in an inner
/// frame, which is drawn anew for each file, the bar and the file's path.
struct ProgressFrame {
  Frame& Shown;
  Label& Heading;
  Frame& Inner;
  ProgressBar& Bar;
  Label& File;

  /// Hidden, `top` below the upper edge of what it stands on.
  void Place(TextView heading, int top) const;
};

/// One tick of a screen that unrolls downward: it grows by 150 as long as it is lower than `until`,
/// then has its height of 5065, and the timer stops.
void Unroll(Form& screen, Timer& timer, int until);

}  // namespace tarvo
