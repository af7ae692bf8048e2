#include <algorithm>

#include "gametools/frmGameTools.h"
#include "platform/Sound.h"
#include "ships/ShipFiles.h"
#include "state/CommonUtilities.h"
#include "state/Dialogue.h"
#include "text/LetterCase.h"
#include "text/Lines.h"

namespace tarvo {
namespace {

/// A scan takes whole scripts at a time: no bar shows in between.
constexpr std::uint32_t kScanChunk = 1 << 20;

FileAnswer Ask(Application& app, TextView path) {
  const TextView words = CheckFile(app, path);
  return {words, words == kFileOk};
}

}  // namespace

std::unordered_map<Text, Text> frmGameTools::ShipScripts() const {
  std::unordered_map<Text, Text> scripts;
  for (std::size_t row = 0; row < FileList3.Count(); ++row) {
    const Text& file = FileList3.Item(row);
    Text ship = ShipOfFile(file, kEnabledEnding);
    if (!ship.empty()) scripts.try_emplace(std::move(ship), file);
  }
  return scripts;
}

/// `own` is the path of the script that was just read: most scripts name themselves, and a file
/// need not be asked for twice.
FileAnswers frmGameTools::LookUp(const ShipReference& reference, const Text& own) {
  const Text path = app_.State.GamePath + reference.Path;
  if (path == own) return {{kFileOk, true}, {}};
  FileAnswers answers{Ask(app_, path), {}};
  if (reference.IsScript && !answers.File.Found) {
    answers.Compiled = Ask(app_, path + u"c");
    --app_.State.MissingFileCount;
  }
  return answers;
}

/// A script that can't be read is noted, and counts as one of no bytes.
template <class Use>
void frmGameTools::LookUpAll(const Text& fileName, Use&& use) {
  app_.State.MissingFileCount = 0;
  const Text path = ScriptPath(fileName);
  LearntScript script = LearnScript({});
  NotingFailures(app_, [&] { script = scripts_.Of(path); });
  const Text own = script.HasText ? path : Text();
  for (const ShipReference& reference : script.References) use(reference, LookUp(reference, own));
}

std::vector<CheckedReference> frmGameTools::CheckShipScript(const Text& fileName) {
  std::vector<CheckedReference> checked;
  LookUpAll(fileName, [&](const ShipReference& reference, FileAnswers answers) {
    checked.push_back({reference, answers});
  });
  return checked;
}

void frmGameTools::CheckShipFiles() {
  if (FileList3.ListIndex() < 0) return;
  PlayEffect(app_, u"Click.wav", kPlayUnlessBusy);
  const auto row = static_cast<std::size_t>(FileList3.ListIndex());
  const std::vector<CheckedReference> checked = CheckShipScript(FileList3.Item(row));
  txtFileDisplay.SetText(CheckReport(app_.State.GamePath, checked));
  txtErrorDisplay.SetText(CheckVerdict(app_.State.MissingFileCount));
}

void frmGameTools::ScanEnabledShips() {
  if (lstEnabled.Count() == 0) return;
  if (!scriptsKnown_) {
    if (!app_.Failures.empty()) return;
    return NoteFailure(app_, PlatformError(u"open", FileList3.Path(), kNoSuchFile));
  }
  const bool soundFX = app_.State.SoundFX;
  const std::uint32_t chunk = app_.State.ReadChunkSize;
  app_.State.SoundFX = false;
  app_.State.ReadChunkSize = kScanChunk;
  const auto scripts = ShipScripts();
  withoutScript_.clear();
  const std::vector<Text> before = EnabledShips();
  for (std::size_t row = lstEnabled.Count(); row-- > 0;) {
    // A ship picked in the tree goes along with one that fails, and the list may have ended here.
    if (row >= lstEnabled.Count()) break;
    if (IsNoPlugin(lstEnabled.Item(row) + Text(kEnabledEnding))) continue;
    const auto script = scripts.find(lstEnabled.Item(row));
    ScanShip(row, script == scripts.end() ? Text() : script->second);
  }
  if (FileList3.ListIndex() >= 0) {
    FileList3.SetSelected(static_cast<std::size_t>(FileList3.ListIndex()), false);
  }
  txtFileDisplay.SetText({});
  txtErrorDisplay.SetText({});
  app_.State.ReadChunkSize = chunk;
  app_.State.SoundFX = soundFX;
  TellSwitchedOff(before);
}

std::vector<Text> frmGameTools::EnabledShips() const {
  std::vector<Text> ships;
  for (std::size_t row = 0; row < lstEnabled.Count(); ++row) ships.push_back(lstEnabled.Item(row));
  return ships;
}

/// Names the ships that were enabled before the scan, and are disabled now.
void frmGameTools::TellSwitchedOff(const std::vector<Text>& before) {
  if (before.size() == lstEnabled.Count()) return;
  const std::vector<Text> enabled = EnabledShips();
  const std::unordered_set<Text> left(enabled.begin(), enabled.end());
  std::vector<Text> off = before;
  std::erase_if(off, [&](const Text& ship) { return left.contains(ship); });
  Tell(u"Switched off by the check: " + Joined(off) + u".");
}

/// Checks the ship in that row of lstEnabled, and disables it if it fails. `script` is the bare
/// name of its script, empty for none.
void frmGameTools::ScanShip(std::size_t row, const Text& script) {
  const Text ship = lstEnabled.Item(row);
  if (script.empty()) {
    withoutScript_.push_back(ship);
    app_.dialogue.PacMsg(u"Ship " + ship + u" is not found!!! Please Reinstall this Ship!",
                         Title::Critical);
  } else {
    if (!MustBeDisabled(script)) return;
    app_.dialogue.PacMsg(u"Ship " + ship + u" has Problems with it, Please use the File Checker!",
                         Title::Warning);
  }
  lstEnabled.SetSelected(row, true);
  DisableShips();
}

/// True when a file is known to be missing that the script names.
bool frmGameTools::MustBeDisabled(const Text& script) {
  const std::size_t failures = app_.Failures.size();
  std::vector<ShipReference> missing;
  LookUpAll(script, [&](const ShipReference& reference, const FileAnswers& answers) {
    if (!answers.InOrder()) missing.push_back(reference);
  });
  if (app_.Failures.size() != failures) return false;
  return std::ranges::any_of(missing, [&](const auto& file) { return CanBeJudged(file); });
}

/// False, and noted, when the folder is missing where all files of this kind lie: then it isn't
/// this ship that lacks something.
bool frmGameTools::CanBeJudged(const ShipReference& missing) {
  const Text path = FoldCase(missing.Path);
  for (const TextView folder : {u"\\scripts\\ships\\hardpoints", u"\\data\\models\\ships"}) {
    if (!path.starts_with(Text(folder) + u"\\")) continue;
    const Text whole = app_.State.GamePath + missing.Path.substr(0, folder.size());
    bool stands = false;
    NotingFailures(app_, [&] {
      stands = app_.machine.files.FolderExists(whole);
      if (!stands) throw PlatformError(u"open", whole, kNoSuchFile);
    });
    return stands;
  }
  return true;
}

}  // namespace tarvo
