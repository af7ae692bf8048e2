#pragma once

#include <functional>
#include <optional>

#include "state/Application.h"

namespace tarvo {

class CheckBox;
class ComboBox;
class TextBox;

/// What the user makes on a screen until he saves it. What of it is dropped unsaved stands by for
/// as long as the program runs: Ctrl+Z brings it back on the same screen, the last one first.
class Draft {
 public:
  /// What counts as work, and what only comes back along with it.
  enum class Kind { Work, Beside };

  /// A part of the screen, as lines.
  struct Part {
    std::function<std::vector<Text>()> Read;
    std::function<void(const std::vector<Text>&)> Write;
    Kind As = Kind::Work;
  };

  /// `name`: the screen's, and the part's where it has several drafts. Nothing is unsaved before
  /// the first Settle.
  Draft(Application& app, TextView name) : app_(app), name_(name) {}

  /// They are brought back in the order of their adding.
  void Add(Part part) { parts_.push_back(std::move(part)); }
  void Add(TextBox& field);
  void Add(ComboBox& field, Kind as = Kind::Work);
  void Add(CheckBox& box);

  /// What stands there now is saved, or was put there by the program.
  void Settle();

  bool Unsaved() const;

  /// What stands there is about to go. Gives true when it was unsaved, and stands by from here on.
  bool Drop();

  /// Tells that it was dropped, behind what the status line says anyway.
  void TellDropped(TextView status);

  /// The screen closes.
  void Leave();

  /// What Escape is to do: the first time that it would drop something it only says so, and the
  /// result is true.
  bool HoldsEscape();

  /// What Ctrl+Z is to do. `typed`: the field at hand can take back what was typed in it, which
  /// comes first as long as that is new work. Gives true when something was brought back.
  bool Undo(bool typed);

 private:
  DraftContents Take() const;
  DraftContents Work() const;

  Application& app_;
  Text name_;
  std::vector<Part> parts_;
  std::optional<DraftContents> saved_;   ///< The work as it was last settled.
  std::optional<DraftContents> warned_;  ///< The work that Escape has warned of.
  bool bringing_ = false;
};

}  // namespace tarvo
