#include "state/GameLock.h"

#include <memory>
#include <vector>

#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/PlatformError.h"
#include "state/ChangeTogether.h"
#include "state/CommonUtilities.h"
#include "state/Dialogue.h"
#include "state/Shell.h"

namespace tarvo {
namespace {

constexpr int kLongestWait = 10'000;  ///< Milliseconds.
constexpr int kPause = 100;           ///< Milliseconds.

/// The locks of one command: of the game's folder and of the program folder, in this order.
using HeldLocks = std::vector<std::unique_ptr<FolderLock>>;

class Locking {
 public:
  Locking(Application& app, TextView command)
      : app_(app),
        purpose_(app.Caller.empty() ? u"Tarvo Packager: " + Text(command) : app.Caller) {}

  /// Null, and told, when another program keeps one of the folders.
  std::shared_ptr<HeldLocks> Take() {
    auto locks = std::make_shared<HeldLocks>();
    for (const Text& folder : {app_.State.GamePath, app_.ProgramFolder}) {
      if (folder.empty()) continue;
      if (!TakeOne(folder, *locks)) return nullptr;
    }
    return locks;
  }

 private:
  bool TakeOne(const Text& folder, HeldLocks& locks) {
    try {
      if (!app_.machine.files.FolderExists(folder)) return true;
      while (true) {
        LockAttempt attempt = app_.machine.files.TryLock(folder, purpose_);
        if (attempt.Lock) {
          locks.push_back(std::move(attempt.Lock));
          return true;
        }
        if (waited_ >= kLongestWait) return Refuse(folder, attempt.Holder);
        Wait(attempt.Holder);
      }
    } catch (const PlatformError& error) {
      const bool isFull = error.Code == kDiskFull;
      if (!isFull && !SaysNotAllowed(error.Code)) return Refuse(error);
      TellOnce(error);
      return true;
    }
  }

  void Wait(const Text& holder) {
    const Text words = u"Waiting for " + NameOf(holder) + u"...";
    if (waited_ == 0) app_.shell->TellAside(words);
    app_.shell->ShowStatus(words);  // Nothing else is drawn meanwhile.
    app_.machine.clock.Pause(kPause);
    waited_ += kPause;
  }

  static Text NameOf(const Text& holder) {
    return holder.empty() ? Text(u"another program") : u"\"" + holder + u"\"";
  }

  bool Refuse(const Text& folder, const Text& holder) {
    const Text words = NameOf(holder) + u" is at work on it";
    app_.dialogue.PacMsg(u"Nothing has been changed: another Program keeps " + folder + u".",
                         Title::Critical);
    NoteFailure(app_, Failure{u"Can't lock " + folder + u": " + words, true});
    return false;
  }

  bool Refuse(const PlatformError& error) {
    app_.dialogue.PacMsg(u"Nothing has been changed: " + Words(error), Title::Critical);
    NoteFailure(app_, error);
    return false;
  }

  void TellOnce(const PlatformError& error) {
    if (app_.ToldOfNoLock) return;
    app_.ToldOfNoLock = true;
    app_.shell->TellAside(Words(error) + u" (other programs may change it meanwhile)");
  }

  Application& app_;
  Text purpose_;
  int waited_ = 0;  ///< Milliseconds.
};

}  // namespace

bool LockingGame(Application& app, TextView command, const std::function<void()>& run) {
  if (const auto held = app.HeldLocks.lock()) {
    run();
    return true;
  }
  const std::shared_ptr<void> locks = Locking(app, command).Take();
  if (!locks) return false;
  app.HeldLocks = locks;
  FinishChange(app);
  run();
  return true;
}

}  // namespace tarvo
