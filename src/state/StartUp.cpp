#include "state/StartUp.h"

#include <algorithm>
#include <optional>

#include "platform/Files.h"
#include "platform/Guarded.h"
#include "platform/Settings.h"
#include "platform/Sound.h"
#include "platform/Windows.h"
#include "state/CommonUtilities.h"
#include "state/Dialogue.h"
#include "state/Foundation.h"
#include "state/GameLock.h"
#include "state/NotesFolder.h"
#include "state/PendingWork.h"
#include "state/Shell.h"
#include "state/StoredFlag.h"
#include "text/Paths.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

Text ReadSetting(Application& app, TextView key, TextView fallback) {
  return app.machine.settings.Read(kSettingsApplication, kSettingsSection, key, fallback);
}

/// A folder that can't be looked at, on a drive that doesn't answer, isn't given up for that.
bool MayHoldGame(Application& app, const Text& folder) {
  bool holds = true;
  NotingFailures(app, [&] { holds = app.machine.files.FileExists(JoinPath(folder, kGameFile)); });
  return holds;
}

constexpr TextView kGameKeys[] = {
    u"SOFTWARE\\Activision\\Star Trek: Bridge Commander\\V1.0",
    u"SOFTWARE\\Activision\\Star Trek: Bridge Commander\\V1.1",
};
constexpr TextView kGameValue = u"INSTALLPATH";

/// The game's folder in the registry; empty when there is none.
Text RegisteredGame(Application& app) {
  for (const TextView key : kGameKeys) {
    Text folder;
    Guarded([&] { folder = helper_RegReadString(app, kLocalMachine, key, kGameValue); });
    if (!folder.empty()) return folder;
  }
  return {};
}

void ReadFlag(Application& app, TextView key, TextView fallback, bool& field) {
  field = StoredFlag(ReadSetting(app, key, fallback)).value_or(field);
}

}  // namespace

Text helper_QueryRegStringValue(RegistryKey& key, TextView valueName) {
  try {
    const std::optional<RegistryValue> value = key.Query(valueName);
    if (!value) return {};
    if (value->Type == kRegistryString) return helper_TrimNull(value->String);
    if (value->Type != kRegistryBinary) return {};
    std::uint16_t number = 0;
    for (std::size_t i = 0; i < std::min<std::size_t>(2, value->Data.size()); ++i) {
      number |= static_cast<std::uint16_t>(static_cast<unsigned char>(value->Data[i]) << (8 * i));
    }
    return TextFromUtf8(std::to_string(static_cast<std::int16_t>(number)));
  } catch (const PlatformError& error) {
    throw RaisedError(u"helper_QueryRegStringValue",
                      u"Registry query error!  Error: " + helper_Win32ErrorText(error.Code));
  }
}

Text helper_RegReadString(Application& app, std::uint32_t root, TextView keyPath,
                          TextView valueName) {
  std::unique_ptr<RegistryKey> key;
  try {
    key = app.machine.registry.OpenKey(root, keyPath);
  } catch (const PlatformError& error) {
    throw RaisedError(u"helper_RegReadString", u"Error opening registry path '" + Text(keyPath) +
                                                   u"'!  Error: " +
                                                   helper_Win32ErrorText(error.Code));
  }
  return helper_QueryRegStringValue(*key, valueName);
}

FoundGame FindGame(Application& app) {
  Text stored = ReadSetting(app, u"GamePath", u"");
  if (!stored.empty() && MayHoldGame(app, stored)) return {std::move(stored), GameSource::Settings};
  Text registered = RegisteredGame(app);
  if (registered.empty()) return {};
  return {std::move(registered), GameSource::Registry};
}

std::vector<Text> RegisteredGames(Application& app) {
  std::vector<Text> folders;
  for (const TextView key : kGameKeys) {
    Guarded([&] {
      const auto opened = app.machine.registry.OpenKey(kLocalMachine, key);
      for (RegistryValue& value : opened->QueryAll(kGameValue)) {
        if (!value.String.empty()) folders.push_back(std::move(value.String));
      }
    });
  }
  return folders;
}

void MakeProgramFolders(Application& app) {
  for (const TextView name : {u"Tarvos", u"ShipTGLs", u"QBMenus"}) {
    const Text folder = app.ProgramFolder + u"\\" + Text(name);
    Guarded([&] {
      if (!app.machine.files.FolderExists(folder)) app.machine.files.MakeFolder(folder);
    });
  }
}

void SetConstants(Application& app) {
  app.State.ReadChunkSize = 1024;
  app.State.AppVersion = u"BETA v4.0";
}

void ClearGameTextsReadOnly(Application& app) {
  ClearReadOnly(app, app.State.GamePath + u"\\data\\TGL\\QuickBattle\\QuickBattle.TGL");
  ClearReadOnly(app, app.State.GamePath + u"\\data\\TGL\\Ships.TGL");
}

namespace {

void TellUnfinishedWork(Application& app) {
  const UnfinishedWork work = FindUnfinishedWork(app);
  const auto tell = [&](Text words, const std::vector<Text>& packages) {
    for (const Text& package : packages) words += u"\n" + package;
    if (!packages.empty()) app.dialogue.PacMsg(words, Title::Warning);
  };
  tell(u"These Tarvos were not installed to the end.  Please install them again!\n", work.Installs);
  tell(
      u"These Tarvos may not be whole, since the Program or the Computer went down.  Please make "
      u"them again!\n",
      work.Packages);
  ForgetUnfinishedWork(app);
}

/// What the last run couldn't bring to its end.
void TakeUpUnfinished(Application& app) {
  BringToDisk(app);
  if (HasNotes(app)) LockingGame(app, u"Start", [&] { TellUnfinishedWork(app); });
}

}  // namespace

void StartUpSequence(Application& app) {
  AppState& state = app.State;
  app.Failures.clear();
  SetConstants(app);
  state.GamePath = FindGame(app).Folder;
  Guarded([&] {
    app.machine.settings.Write(kSettingsApplication, kSettingsSection, u"GamePath", state.GamePath);
  });
  ReadFlag(app, u"PacHelper", u"False", state.PacHelper);
  ReadFlag(app, u"SoundFX", u"True", state.SoundFX);
  ReadFlag(app, u"VideoFX", u"True", state.VideoFX);
  PlayEffect(app, u"SystemsOnline.wav", kPlay);
  app.machine.windows.SetHelpFile(app.ProgramFolder + u"\\Help\\Help System.chm");
  MakeProgramFolders(app);
  app.dialogue.PacStart();
  app.shell->ShowMainMenu();
  app.shell->ShowStatus(u"Standing By...");
  TakeUpUnfinished(app);
  TestFoundation(app);
  if (state.GamePath.empty()) return;  // The paths would begin at the root of a drive.
  ClearGameTextsReadOnly(app);
  TestOldLayout(app);
}

}  // namespace tarvo
