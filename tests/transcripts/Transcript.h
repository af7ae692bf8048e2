#pragma once

#include <functional>
#include <map>
#include <string>

#include "machine/TestMachine.h"
#include "support/MemoryFiles.h"

namespace tarvo::test {

/// A machine on a disk in memory, with a game and a few ships, that writes down all that its user
/// or its disk can notice, in order: sounds with their flags, boxes, questions with captions and
/// answers, status lines, ends of progress, the fields afterwards and the files that have changed.
class Transcript : private ControlObserver {
 public:
  Transcript();

  /// Does something as the user would.
  void Do(const std::string& what, const std::function<void()>& act);

  /// Puts a file below the disk's folder: "game\..." or "program\...".
  void Put(const Text& below, FileTextView bytes) { disk_->Put(At(below), bytes); }

  static Text At(const Text& below) { return kPlace.Game(below); }

  /// Opens the one screen of that kind.
  template <class Screen>
  Screen& Open() {
    Screen& screen = machine.app.Screen<Screen>();
    screen.Visible = true;
    open_ = [this]() -> const Form* { return machine.app.screens.Find<Screen>(); };
    return screen;
  }

  const std::string& Written() const { return written_; }

 private:
  using Contents = std::map<Text, FileText>;

  void Note(const std::string& line) { written_ += "  " + line + "\n"; }
  void NoteProgress();
  void NoteFields(const Control& control);
  void NoteFiles(const Contents& before);
  Contents FilesOnDisk() const;
  void ControlChanged(Control&) override;
  void ControlRefreshed(Control&) override {}
  void ControlFocused(Control&) override {}

  inline static const TemporaryFolder::OfOther kRoot{"/disk"};
  inline static const TemporaryFolder kPlace{kRoot};

  std::shared_ptr<MemoryFiles> disk_ = std::make_shared<MemoryFiles>();

 public:
  TestMachine machine{kRoot, disk_};

 private:
  std::function<const Form*()> open_;  ///< Gives the screen, null once it is closed.
  std::string written_;
  Text status_;
};

}  // namespace tarvo::test
