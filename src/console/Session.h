#pragma once

#include <memory>
#include <string>

#include "console/ConsoleDialogue.h"
#include "console/Output.h"
#include "platform/Sound.h"
#include "platform/Video.h"
#include "state/Application.h"
#include "state/Shell.h"

namespace tarvo {

/// What the global options say.
struct SessionOptions {
  Text Game;           ///< The game's folder as a game path; empty to look for it.
  Text ProgramFolder;  ///< As a game path.
  Text Answer;         ///< "Yes", "No", "All", or empty to ask.
  bool Json = false;
  bool Quiet = false;
  Text Command;             ///< As the user gave it: what other programs are told meanwhile.
  bool SyncsLater = false;  ///< See Application.
  bool Terminal = false;    ///< Standard error is a terminal: a progress line is shown.
};

/// The doors that the console tool shares with the desktop program.
struct SessionDoors {
  Files& files;
  Settings& settings;
  Registry& registry;
  Locale& locale;
  Clock& clock;
};

/// One run of the console tool: the application with no window, no sound, no video, and its
/// dialogue on the terminal.
class Session : private FormHost,
                private Shell,
                private Sound,
                private Video,
                private ControlObserver {
 public:
  Session(SessionDoors doors, const SessionOptions& options, std::ostream& results,
          std::ostream& words, std::function<std::optional<std::string>()> readLine);

  /// Finds the game. With none, says so and gives false.
  bool RequireGame();

  /// Makes the folders Tarvos, ShipTGLs and QBMenus of the program folder where they are missing.
  void PrepareProgramFolder();

  /// Clears the read-only mark of the game's two text databases, which a command is to write.
  void PrepareGameTexts();

  /// Where the game was found: "option", "settings", "registry", or empty for nowhere.
  Text GameSource() const { return gameSource_; }

  /// Runs what changes the game, with no other program changing it meanwhile; false, and noted,
  /// when another one keeps it.
  bool Changing(const std::function<void()>& run);

  /// Shows the values of `bar` as the progress line.
  void Follow(ProgressBar& bar);

  /// Tells the failures that the command noted, and gives its exit status. `inOrder`: what the
  /// command looked at is as it should be.
  int Finish(bool inOrder);

  /// Finish for a command whose result is its closing message.
  int FinishWithMessage();

  /// The name or file isn't known or not in order: says so, for status 1.
  void Complain(TextView text);

  Output output;
  ConsoleDialogue dialogue;
  Application app;

 private:
  void TellUnfinishedWork();

  void Made(Form&) override {}
  void RunModal(Form& form) override;
  void Closed(Form&) override {}
  void Quit() override {}
  void ShowStatus(TextView) override {}
  void TellAside(TextView text) override { output.Say(text); }
  void ShowMainMenu() override {}
  void ShowOptions() override {}
  void SettleGame() override {}  // The user has named the game, or it was found.
  void WorkScreenClosed() override {}
  void RunMessageTimer(bool) override {}
  void Play(TextView, unsigned) override {}
  std::unique_ptr<VideoOpening> Open(TextView, int, int,
                                     std::function<void(VideoPictures)>) override {
    return nullptr;  // Nothing asks: there is no view.
  }
  void ControlChanged(Control& control) override;
  void ControlRefreshed(Control& control) override { ControlChanged(control); }
  void ControlFocused(Control&) override {}

  bool showsProgress_;
  int shownPercent_ = -1;
  Text gameSource_;
  bool complained_ = false;
};

}  // namespace tarvo
