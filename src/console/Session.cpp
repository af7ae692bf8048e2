#include "console/Session.h"

#include "controls/ProgressBar.h"
#include "platform/Files.h"
#include "state/CommonUtilities.h"
#include "state/GameLock.h"
#include "state/PendingWork.h"
#include "state/StartUp.h"
#include "text/Utf8.h"

namespace tarvo {

Session::Session(SessionDoors doors, const SessionOptions& options, std::ostream& results,
                 std::ostream& words, std::function<std::optional<std::string>()> readLine)
    : output(results, words, options.Json, options.Quiet),
      dialogue(output, options.Answer, std::move(readLine)),
      app({doors.files, doors.settings, doors.registry, *this, *this, doors.locale, doors.clock,
           dialogue},
          *this, dialogue, options.ProgramFolder),
      showsProgress_(options.Terminal && !options.Quiet) {
  app.shell = this;
  SetConstants(app);
  app.State.GamePath = options.Game;
  app.Caller = options.Command;
  app.SyncsLater = options.SyncsLater;
  app.State.ReadChunkSize = 1 << 20;  // No bar is shown for the reading of one file.
  if (!options.Game.empty()) gameSource_ = u"option";
}

bool Session::RequireGame() {
  if (!app.State.GamePath.empty()) {
    return NotingFailures(app, [&] {
      if (app.machine.files.FolderExists(app.State.GamePath)) return;
      throw PlatformError(u"open", app.State.GamePath, kNoSuchFile);
    });
  }
  const FoundGame found = FindGame(app);
  app.State.GamePath = found.Folder;
  switch (found.Source) {
    case tarvo::GameSource::Settings:
      gameSource_ = u"settings";
      return true;
    case tarvo::GameSource::Registry:
      gameSource_ = u"registry";
      return true;
    case tarvo::GameSource::Nowhere:
      break;
  }
  Complain(u"The game's folder isn't known: name it with --game");
  return false;
}

bool Session::Changing(const std::function<void()>& run) {
  return LockingGame(app, {}, [&] {
    TellUnfinishedWork();
    run();
  });
}

/// They are told by each command until the work has been done again.
void Session::TellUnfinishedWork() {
  const UnfinishedWork work = FindUnfinishedWork(app);
  for (const Text& package : work.Installs) {
    output.Say(u"\"" + package +
               u"\" was not installed to the end: install it again, so that all of its files are "
               u"whole.");
  }
  for (const Text& package : work.Packages) {
    output.Say(u"\"" + package +
               u"\" may not be whole, since the program or the computer went down: make it again.");
  }
}

void Session::PrepareProgramFolder() {
  MakeProgramFolders(app);
}

void Session::PrepareGameTexts() {
  ClearGameTextsReadOnly(app);
}

/// No command opens a form that waits: its dialogue is on the terminal.
void Session::RunModal(Form& form) {
  app.screens.Close(form);
}

void Session::Follow(ProgressBar& bar) {
  if (showsProgress_) bar.Observe(this);
}

void Session::ControlChanged(Control& control) {
  const auto& bar = static_cast<const ProgressBar&>(control);
  const int percent = static_cast<int>((bar.Value() - bar.Min()) * 100 / (bar.Max() - bar.Min()));
  if (percent == shownPercent_) return;
  shownPercent_ = percent;
  output.Progress(TextFromUtf8(std::to_string(percent)) + u" %");
}

int Session::FinishWithMessage() {
  const Text& message = dialogue.ClosingMessage();
  if (!message.empty()) output.Result({message}, Json(message));
  return Finish(true);
}

void Session::Complain(TextView text) {
  complained_ = true;
  output.Say(text);
}

int Session::Finish(bool inOrder) {
  int status = inOrder && !complained_ && !dialogue.Complained() ? kDone : kNotInOrder;
  for (const Failure& failure : app.Failures) {
    output.Say(failure.Words);
    status = std::max<int>(status, failure.OnFile ? kFileFailure : kNotInOrder);
  }
  return status;
}

}  // namespace tarvo
