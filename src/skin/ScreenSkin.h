#pragma once

#include <array>
#include <optional>
#include <set>
#include <vector>

#include "controls/Button.h"
#include "controls/Image.h"
#include "controls/RowPanel.h"
#include "skin/SkinTables.h"
#include "state/Application.h"

namespace tarvo {

/// The pictures of one screen, and how its buttons answer the pointer, as the tables of the skin
/// say. The screen tells in its constructor what goes by which name.
class ScreenSkin {
 public:
  /// Buttons that stand for one image of the skin; of several one shows at a time.
  using Labels = std::vector<Button*>;

  /// `screen` is the name of the screen, which also has to outlive this.
  ScreenSkin(Application& app, TextView screen) : app_(app), screen_(screen) {}
  ScreenSkin(const ScreenSkin&) = delete;

  /// The images of an array from the lowest number to the highest. All names are literals.
  void Name(TextView array, const std::vector<Labels>& buttons);
  void Name(TextView array, Image& image);
  template <std::size_t N>
  void Name(TextView array, std::array<Image, N>& images) {
    for (Image& image : images) Name(array, image);
  }

  /// The tree whose rows are the images of the menus and ships.
  void NameTree(RowPanel& tree) { tree_ = &tree; }

  /// What puts out the families that name it.
  void NameSurface(TextView name, Control& surface);

  /// The load step: puts the pictures on their controls. A file that is missing leaves its control
  /// with the look that it has without.
  void Load();

  /// A tab was chosen: captions that were set to black stand on their normal pictures again.
  void TabChosen();

  /// The screen goes out of use: nothing stays lit that the pointer may leave unseen.
  void Rest();

  /// The pointer comes onto a row of that array. Gives the colour of its caption, or nothing where
  /// another row is lit.
  std::optional<Colour> EnterRow(TextView array);

  /// The pointer leaves the rows. Gives true where one was lit.
  bool LeaveRows(TextView array);

  /// The controls that go by a name.
  std::vector<const Control*> Named(TextView name) const;

 private:
  struct ButtonImage {
    TextView Name;
    Labels Shown;
  };
  struct Decoration {
    TextView Name;
    Image* Shown;
  };
  struct Surface {
    TextView Name;
    const Control* It;
  };
  /// The family that an array belongs to, and the array's picture under the pointer.
  struct Membership {
    const SkinFamily* Family = nullptr;
    TextView Over;
  };

  Text PathOf(TextView file) const;
  Membership FamilyOf(TextView array) const;
  bool Light(const SkinFamily& family);
  void Enter(const ButtonImage& image);
  void Cross(TextView surface);
  void PutOut(const SkinFamily& family);
  void ShowNormal(const ButtonImage& image, Button& label) const;

  Application& app_;
  TextView screen_;
  std::vector<ButtonImage> buttons_;
  std::vector<Decoration> images_;
  std::vector<Surface> surfaces_;
  RowPanel* tree_ = nullptr;
  std::set<const SkinFamily*> over_;  ///< The families of which the pointer has come onto one.
};

}  // namespace tarvo
