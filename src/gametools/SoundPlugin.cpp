#include "sounds/SoundPlugin.h"

#include <algorithm>

#include "gametools/frmGameTools.h"
#include "platform/Locale.h"
#include "platform/Sound.h"
#include "state/CommonUtilities.h"
#include "state/Dialogue.h"
#include "state/Shell.h"
#include "text/FileNames.h"
#include "text/Paths.h"

namespace tarvo {

Text frmGameTools::SoundPluginPath() const {
  return JoinPath(app_.State.GamePath, u"\\scripts\\Custom\\Autoload\\" + cboSoundName.Text() +
                                           Text(kSoundPluginEnding));
}

char16_t frmGameTools::DecimalMark() const {
  return PointsInVolumes ? u'.' : app_.machine.locale.DecimalMark();
}

void frmGameTools::AddSoundEntry() {
  PlayEffect(app_, u"Click.wav", kPlayUnlessBusy);
  if (cboSoundName.Text().empty()) {
    app_.dialogue.PacMsg(u"Please Specify a File Name First!", Title::Warning);
    return;
  }
  if (lstWeapons.ListIndex() < 0 || FileListWavs.ListIndex() < 0) {
    app_.dialogue.PacMsg(u"You did not Select a Weapon and Sound File!!!", Title::Warning);
    return;
  }
  Text sound = lstWeapons.Item(static_cast<std::size_t>(lstWeapons.ListIndex()));
  const Text wave = FileListWavs.Item(static_cast<std::size_t>(FileListWavs.ListIndex()));
  if (!FitsOneLine(sound)) {
    app_.dialogue.PacMsg(u"The Name of this Weapon doesn't fit on one Line of a Plugin!!!",
                         Title::Warning);
    return;
  }
  const bool isPhaser = sound.find(u"Phaser") != Text::npos;
  if (isPhaser) {
    app_.dialogue.PacSetButtons(u"Start", u"Loop");
    PlayEffect(app_, u"Question.wav", kPlay);
    const Text answer = app_.dialogue.PacInputInAnyCase(
        u"Choose Phaser Sound Type...", u"Choose Phaser Sound Type of " + sound + u"...",
        Title::Question);
    if (answer != u"Yes" && answer != u"No") return;
    sound += answer == u"Yes" ? u" Start" : u" Loop";
  }
  lstSoundInfo.BringIntoSight(
      lstSoundInfo.Add(SoundEntry(wave, sound, SoundVolume, DecimalMark())));
  FieldChanged(lstSoundInfo);
  if (isPhaser) app_.dialogue.PacTip(u"OK!!! Adding Phaser Type!", PacTipOf::Screen);
}

void frmGameTools::lblRemoveSound_Click() {
  PlayEffect(app_, u"CommandBeep.wav", kPlayUnlessBusy);
  if (lstSoundInfo.ListIndex() < 0) return;
  lstSoundInfo.RemoveAt(static_cast<std::size_t>(lstSoundInfo.ListIndex()));
  FieldChanged(lstSoundInfo);
}

void frmGameTools::ReadSoundPlugin() {
  PlayEffect(app_, u"Click.wav", kPlayUnlessBusy);
  const bool dropped = sounds_.Drop();
  soundName_ = cboSoundName.Text();
  lstSoundInfo.Clear();
  for (Text& entry : SoundPluginEntries(ReadFileText(app_, SoundPluginPath()))) {
    lstSoundInfo.Add(std::move(entry));
  }
  sounds_.Settle();
  if (dropped) sounds_.TellDropped(status_);
}

void frmGameTools::cboSoundName_Change() {
  const bool dropped = sounds_.Drop();
  soundName_ = cboSoundName.Text();
  lstSoundInfo.Clear();
  sounds_.Settle();
  FieldChanged(cboSoundName);
  if (dropped) sounds_.TellDropped(status_);
}

/// When the file can't be written the entries stay, so that the user can try again.
void frmGameTools::MakeSoundPlugin() {
  PlayEffect(app_, u"CommandBeep.wav", kPlayUnlessBusy);
  const Text name = cboSoundName.Text();
  if (name.empty()) {
    app_.dialogue.PacMsg(u"You did not specify a File Name!!!", Title::Warning);
    return;
  }
  const Text fault = FaultOfGameName(name);
  if (!fault.empty()) {
    app_.dialogue.PacMsg(u"No Sound Plugin has been made!!!  " + fault, Title::Warning);
    return;
  }
  std::vector<Text> entries;
  for (std::size_t row = 0; row < lstSoundInfo.Count(); ++row) {
    entries.push_back(lstSoundInfo.Item(row));
  }
  const FileText plugin = SoundPluginText(entries, app_.machine.locale.ShortDate());
  if (!WriteFileText(app_, SoundPluginPath(), plugin)) return;
  app_.dialogue.PacMsg(
      u"Custom Sound Plugin " + name + Text(kSoundPluginEnding) + u" has been Created!!!",
      Title::Information);
  lstSoundInfo.Clear();
  sounds_.Settle();
  if (cboSoundName.RowOf(name) < 0) cboSoundName.Add(name);
  cboSoundName.SetText({});
}

}  // namespace tarvo
