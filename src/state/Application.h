#pragma once

#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "controls/Screens.h"
#include "state/AppState.h"

namespace tarvo {

class Clock;
class Dialogue;
class Files;
class Locale;
class ProgressBar;
class Registry;
class Settings;
class Shell;
class Sound;
class Video;
class Windows;

/// The doors to the machine.
struct Machine {
  Files& files;
  Settings& settings;
  Registry& registry;
  Sound& sound;
  Video& video;
  Locale& locale;
  Clock& clock;
  Windows& windows;
};

/// Something that went wrong in a command that went on, or ended with a message that doesn't name
/// it.
struct Failure {
  Text Words;
  bool OnFile;   ///< A file couldn't be read or written; otherwise its content is not in order.
  int Code = 0;  ///< The system's code for that, where it is known.
};

/// The files that a command could not write, where that is told of many at once.
struct UnwrittenFiles {
  std::vector<int> Causes;   ///< The codes that the user has been told of by one file each.
  std::vector<Text> Others;  ///< The other files with their reasons, one line each.
};

/// What the user had made on a screen: each part as lines; see Draft.h.
using DraftContents = std::vector<std::vector<Text>>;

/// The one application object: the state, the doors to the machine and the one-of-each screens.
/// Routines and screens receive it by reference; nothing else is shared, so a test can hold two.
class Application {
 public:
  /// `programFolder`: where the program's data and the user's packages lie, as a game path without
  /// a backslash at its end. All references must outlive the application.
  Application(Machine doors, FormHost& host, Dialogue& talk, Text programFolder)
      : machine(doors), dialogue(talk), ProgramFolder(std::move(programFolder)), screens(host) {}

  Machine machine;
  Dialogue& dialogue;
  const Text ProgramFolder;
  AppState State;

  /// The top window as routines know it. Whoever builds the application sets it before any routine
  /// runs.
  Shell* shell = nullptr;

  /// The form that all other screens stand on; nothing where there is none.
  Form* MainForm = nullptr;

  /// The progress bars that the screens hand in, by the value of CurrentScreen.
  std::map<Text, ProgressBar*> ProgressBars;

  /// What the user must hear of beside the messages, since the last command began.
  std::vector<Failure> Failures;

  /// Stands while TellingTogether runs.
  std::optional<UnwrittenFiles> Unwritten;

  /// What was dropped unsaved, by the name of its draft, the last one at the end.
  std::map<Text, std::vector<DraftContents>> Dropped;

  /// What other programs are told of who works on the game; empty for the desktop program, which
  /// names itself and the command.
  Text Caller;

  /// What commands have written may reach the disk later; whoever sets this calls BringToDisk.
  bool SyncsLater = false;

  /// The locks of the command that runs, for those that run inside of it; see GameLock.h.
  std::weak_ptr<void> HeldLocks;
  bool ToldOfNoLock = false;  ///< The user knows that a folder can't be locked.

  /// The last member: the forms that still stand at the end let go of the ones above.
  Screens screens;

  template <class T>
  T& Screen() {
    return screens.Use<T>(*this);
  }
};

}  // namespace tarvo
