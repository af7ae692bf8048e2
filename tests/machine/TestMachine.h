#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <vector>

#include "assistant/PacDialogue.h"
#include "assistant/frmPac_InputBox.h"
#include "platform/HostMachine.h"
#include "platform/Windows.h"
#include "shell/frmMain.h"
#include "state/Application.h"
#include "support/FailingFiles.h"
#include "support/Fakes.h"
#include "support/TemporaryFolder.h"

namespace tarvo::test {

/// The text with "\\n" for each end of a line.
Text OneLine(TextView text);

/// A machine for a whole application: a game and a program folder on the real disk, all other
/// doors scripted and recorded.
class TestMachine : public FormHost, public Windows {
 public:
  struct Box {
    Text Message;
    BoxIcon Icon;
    friend bool operator==(const Box&, const Box&) = default;
  };

  /// The game's folder holds stbc.exe and is stored in the settings.
  TestMachine();

  /// On the folders of another machine, which it leaves as they are; by default one of another
  /// process.
  explicit TestMachine(const TemporaryFolder::OfOther& other, std::shared_ptr<Files> on = nullptr);

  /// Brings up the top window and with it the main menu. The first time the game gets Foundation's
  /// FoundationConfig.py, unless `hasFoundation` is false.
  frmMain& Start();

  /// Game paths, with no backslash at the end.
  Text GameFolder() const { return folder.Game(u"game"); }
  Text ProgramFolder() const { return folder.Game(u"program"); }

  /// Writes a file below the temporary folder, its folders made first.
  void WriteFile(TextView path, FileTextView bytes);

  /// The bytes of a file; "(missing)" when it isn't there.
  FileText Bytes(TextView path);

  /// All files below a folder, as paths from there on, sorted.
  std::vector<Text> FilesBelow(TextView path);

  /// The timers of the assistant go on by that time, in steps of 40 ms.
  void Pass(int milliseconds);

  /// The user does the next turn of the event loop.
  void Turn() { app.screens.DestroyClosed(); }

  TemporaryFolder folder;
  std::shared_ptr<Files> disk = OpenFiles(folder.Host("journal"));
  FailingFiles files{*disk};
  MemorySettings settings;
  MemoryRegistry registry;
  RecordingSound sound;
  RecordingVideo video;
  FixedLocale locale;
  ScriptedClock clock;
  PacDialogue dialogue{app};
  Application app{{files, settings, registry, sound, video, locale, clock, *this},
                  *this,
                  dialogue,
                  ProgramFolder()};

  std::function<void(const Text&)> OnNotice;  ///< Hears of boxes and questions, in order.
  std::vector<Box> boxes;                     ///< What message boxes have shown.
  std::vector<Text> questions;                ///< What the dialog has asked.
  std::deque<Text> answers;  ///< The user's answers to come; with none left he says "No". An
                             ///< empty one closes a question by its close box.
  std::function<void(Form&)> atDialog;  ///< What the user does in dialogs other than questions.
  std::vector<Text> opened;             ///< The addresses and programs that were to be opened,
  bool canOpen = false;                 ///< which succeeds.
  bool hasInfo = false;                 ///< The desktop tells of the machine.
  Text picked;                          ///< The folder that he picks.
  Text home;                            ///< His home folder.
  std::function<void(frmPac_InputBox&)> onDialog;  ///< What else he does before he answers.
  int waited = 0;      ///< Milliseconds that the last dialog took to wake.
  int textHeight = 0;  ///< As FormHost::TextHeight, of every label.
  TwipSize screen{19200, 15000};
  Text helpFile;
  bool quit = false;
  bool hasFoundation = true;

  void ShowMessage(TextView text, TextView caption, BoxIcon icon) override;
  bool OpenAddress(TextView address) override {
    opened.emplace_back(address);
    return canOpen;
  }
  Text PickFolder(TextView) override { return picked; }
  Text HomeFolder() override { return home; }
  bool RunProgram(TextView path) override { return OpenAddress(path); }
  bool ShowSystemInfo() override { return hasInfo && OpenAddress(u"the desktop's own"); }
  void ShowManual(TextView) override { opened.emplace_back(u"the manual"); }
  void SetHelpFile(TextView path) override { helpFile = path; }
  TwipSize ScreenSize() override { return screen; }

  void Made(Form&) override {}
  void RunModal(Form& form) override;
  void Closed(Form&) override {}
  void Quit() override { quit = true; }
  int TextHeight(const Label&) override { return textHeight; }

 private:
  void Answer(frmPac_InputBox& dialog, const Text& answer);

  int passed_ = 0;  ///< Milliseconds of Pass so far.
};

}  // namespace tarvo::test
