#include "state/Foundation.h"

#include "platform/Files.h"
#include "platform/Sound.h"
#include "state/CommonUtilities.h"
#include "state/Dialogue.h"
#include "state/GameLock.h"
#include "state/Shell.h"

namespace tarvo {
namespace {

/// Its presence tells that the game has Foundation.
constexpr TextView kMarker = u"\\scripts\\Custom\\FoundationConfig.py";

/// The scripts of Foundation, without their endings.
constexpr TextView kScripts[] = {
    u"\\scripts\\Foundation",
    u"\\scripts\\FoundationMenu",
    u"\\scripts\\LoadBridge",
    u"\\scripts\\loadspacehelper",
    u"\\scripts\\LoadTacticalSounds",
    u"\\scripts\\Registry",
    u"\\scripts\\StaticDefs",
    u"\\scripts\\Icons\\ShipIcons",
    u"\\scripts\\QuickBattle\\QuickBattle",
    u"\\scripts\\Tactical\\Interface\\ShieldsDisplay",
    u"\\scripts\\Tactical\\Interface\\WeaponsDisplay",
    u"\\scripts\\MainMenu\\mainmenu",
    u"\\scripts\\Custom\\FoundationConfig",
    u"\\scripts\\AI\\FoundationAI",
    u"\\scripts\\AI\\Compound\\BasicAttack",
    u"\\scripts\\Systems\\FoundationUtils",
};

/// Throws unless there is something to install, and a game for it.
void CheckCopyStands(Application& app, const Text& copy) {
  if (app.State.GamePath.empty()) {
    throw RaisedError(u"InstallFoundation", u"Foundation isn't installed: no game is known");
  }
  if (!app.machine.files.FolderNames(copy).empty()) return;
  throw RaisedError(u"InstallFoundation",
                    u"Foundation isn't installed: there is no folder in " + copy);
}

/// Makes way for the new script.
void PrepareScript(Application& app, const Text& copy, TextView script) {
  Files& files = app.machine.files;
  const Text name = app.State.GamePath + Text(script);
  const Text compiled = name + u".pyc";
  ClearReadOnly(app, name + u".py");
  NotingFailures(app, [&] {
    const bool comes = files.FileExists(copy + Text(script) + u".py");
    if (!comes && !files.FileExists(name + u".py")) return;
    if (files.FileExists(compiled)) files.Remove(compiled);
  });
}

/// Installs it, and tells what came in the way before the words that close the offer.
void InstallAndTell(Application& app) {
  const std::size_t before = app.Failures.size();
  LockingGame(app, u"Install Foundation", [&] { InstallFoundation(app); });
  const Text failed = FailureLine(app, before);
  if (!failed.empty()) {
    app.dialogue.PacMsg(u"Foundation has not been installed as it should be!\n\n" + failed,
                        Title::Warning);
  }
  app.dialogue.PacMsg(u"Foundation System has been installed!!!", Title::Information);
}

}  // namespace

void TestFoundation(Application& app) {
  const bool noGame = app.State.GamePath.empty();
  bool isMissing = noGame;
  if (!noGame) {
    NotingFailures(app, [&] {
      isMissing = !app.machine.files.FileExists(app.State.GamePath + Text(kMarker));
    });
  }
  if (!isMissing) return;
  if (noGame) {
    app.dialogue.PacMsg(
        u"No Game is known yet!!!  Please choose its Folder in the Options, which open after this.",
        Title::Warning);
  }
  PlayEffect(app, u"CriticalError.wav", kPlayToEnd);
  app.dialogue.PacMsg(u"The Newest Foundation System is not installed!!!", Title::Critical);
  PlayEffect(app, u"Question.wav", kPlay);
  const bool installs =
      app.dialogue.PacInput(u"Install Foundation Now?", Title::Question) == u"Yes";
  if (installs) {
    InstallAndTell(app);
  } else {
    app.dialogue.PacMsg(u"OK Then, Please Select a Copy of BC that has Foundation Installed",
                        Title::Information);
  }
  if (noGame || !installs) app.shell->ShowOptions();
}

void InstallFoundation(Application& app) {
  const Text copy = app.ProgramFolder + u"\\Foundation";
  if (!NotingFailures(app, [&] { CheckCopyStands(app, copy); })) return;
  for (const TextView script : kScripts) PrepareScript(app, copy, script);
  CopyFolders(app, copy + u"\\*", app.State.GamePath, kMarker);
}

}  // namespace tarvo
