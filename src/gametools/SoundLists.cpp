#include <algorithm>

#include "gametools/frmGameTools.h"
#include "platform/Guarded.h"
#include "platform/Sound.h"
#include "sounds/SoundPlugin.h"
#include "state/CommonUtilities.h"
#include "text/LetterCase.h"
#include "text/Paths.h"

namespace tarvo {
namespace {

/// A script is read in far less time than the frame is drawn.
constexpr std::size_t kFilesAPicture = 16;

/// Weapon names that a list lacks, letter case told apart. Looking for each of thousands of names
/// in the list itself, and putting each in its place there, would take longer than the scan.
class NewNames {
 public:
  explicit NewNames(const ListBox& list) {
    for (std::size_t row = 0; row < list.Count(); ++row) known_.insert(list.Item(row));
  }

  void Gather(const std::vector<Text>& names) {
    for (const Text& name : names) {
      if (known_.insert(name).second) found_.push_back(name);
    }
  }

  void AddTo(ListBox& list) {
    std::stable_sort(found_.begin(), found_.end(), LessIgnoringCase);
    for (Text& name : found_) list.Add(std::move(name));
    found_.clear();
  }

 private:
  std::unordered_set<Text> known_;
  std::vector<Text> found_;
};

}  // namespace

/// False, with the list as it was, when there is no such folder; noted when it can't be read.
bool frmGameTools::ShowFolder(FileListBox& list, TextView folder, TextView pattern) {
  list.SetPattern(Text(pattern));
  if (app_.State.GamePath.empty()) return false;
  bool shown = false;
  NotingFailures(app_, [&] {
    if (!app_.machine.files.FolderExists(folder)) return;
    list.SetPath(folder);
    shown = true;
  });
  return shown;
}

void frmGameTools::FillSoundLists() {
  app_.State.ReadChunkSize = 1024;
  fraProgress.Visible = true;
  fraProgress.Refresh();
  ScanHardpoints();
  const Text autoload = JoinPath(app_.State.GamePath, u"\\scripts\\Custom\\Autoload");
  const bool hasPlugins = ShowFolder(FileList5, autoload, u"*" + Text(kSoundPluginEnding));
  fraProgress.Visible = false;
  for (std::size_t row = 0; hasPlugins && row < FileList5.Count(); ++row) {
    cboSoundName.Add(SoundPluginOfFile(FileList5.Item(row)));
  }
  PlayEffect(app_, u"BackgroundBeep.wav", kPlay);
}

void frmGameTools::ScanHardpoints() {
  const Text folder = JoinPath(app_.State.GamePath, u"\\scripts\\ships\\Hardpoints\\");
  const bool hasScripts = ShowFolder(FileList5, folder, u"*.py");
  const std::size_t count = hasScripts ? FileList5.Count() : 0;
  Guarded([&] { ProgressBar.SetRange(0, static_cast<std::int64_t>(count), 0); });
  PlayEffect(app_, u"Scroll.wav", kPlayLoop);
  NewNames names(lstWeapons);
  for (std::size_t i = 0; i < count; ++i) {
    const Text path = folder + FileList5.Item(i);
    ProgressBar.SetValue(static_cast<std::int64_t>(i));
    lblFile.Caption = path;
    if (i % kFilesAPicture == 0) fraUpdateProgress.Refresh();
    NotingFailures(app_, [&] { names.Gather(weaponNames_.Of(path)); });
  }
  names.AddTo(lstWeapons);
}

void frmGameTools::GetWeaponsList(const Text& strFilePath) {
  NewNames names(lstWeapons);
  NotingFailures(app_, [&] { names.Gather(weaponNames_.Of(strFilePath)); });
  names.AddTo(lstWeapons);
}

void frmGameTools::lblPlaySound_Click() {
  if (FileListWavs.ListIndex() < 0) return;
  const Text& name = FileListWavs.Item(static_cast<std::size_t>(FileListWavs.ListIndex()));
  PlaySoundFX(app_, JoinPath(app_.State.GamePath, u"\\sfx\\Weapons\\" + name), kPlay);
}

}  // namespace tarvo
