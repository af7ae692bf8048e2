#include "platform/FileCopies.h"
#include "platform/Sound.h"
#include "shiptgl/PluginPatch.h"
#include "shiptgl/UpdateGameTGL.h"
#include "shiptgl/frmTGLTools.h"
#include "state/CommonUtilities.h"
#include "state/Dialogue.h"
#include "state/Shell.h"
#include "text/Cleaning.h"
#include "text/CodePage.h"
#include "text/Lines.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

/// A definition is looked for under its name with ".TGL" in capitals: a file name that ends
/// otherwise is not cut, and its definition not found.
Text ShipOf(const Text& fileName) {
  return Without(fileName, u".TGL");
}

}  // namespace

void frmTGLTools::UpdateShipTGLs() {
  UnpatchedPlugins.clear();
  std::vector<Text> chosen;
  for (std::size_t row = 0; row < File2.Count(); ++row) {
    if (File2.Selected(row)) chosen.push_back(File2.Item(row));
  }
  fraProgress.Visible = true;
  ProgressBar.SetRange(0, static_cast<std::int64_t>(chosen.size()) + 1, 1);
  Refresh();
  PlayEffect(app_, u"Scroll.wav", kPlayLoop);
  MergeRun run;
  TellingTogether(app_, [&] { Merge(chosen, run); });
  PlayEffect(app_, u"BackgroundBeep.wav", kPlay);
  fraProgress.Visible = false;
  TellOfHalves(run);
  if (app_.Failures.empty() && !run.Merged.empty()) ShowMerged(run.Merged);
  if (!chosen.empty()) return;
  app_.shell->ShowStatus(File2.Count() == 0
                             ? u"There is no Ship TGL yet: make one on the New TGL tab."
                             : u"Nothing is chosen: click the Ship TGLs that the game is to get.");
}

/// A full disk ends the run.
void frmTGLTools::Merge(const std::vector<Text>& definitions, MergeRun& run) {
  for (const Text& definition : definitions) {
    if (run.IsFull) {
      run.Left.push_back(definition);
      continue;
    }
    lblFile.Caption = app_.ProgramFolder + u"\\ShipTGLs\\" + definition;
    fraUpdateProgress.Refresh();
    const std::size_t failures = app_.Failures.size();
    const auto isFull = [&] { return app_.Failures.size() > failures && IsDiskFull(app_); };
    const bool merged = UpdateGameTGL(app_, ShipOf(definition));
    (merged ? run.Merged : run.Left).push_back(definition);
    if (!isFull() && PatchPlugin(ShipOf(definition)) && !merged) {
      run.PatchedAlone.push_back(ShipOf(definition) + u".py");
    }
    run.IsFull = isFull();
    ProgressBar.SetValue(ProgressBar.Value() + 1);
  }
}

/// Names what a run has done by halves.
void frmTGLTools::TellOfHalves(const MergeRun& run) {
  if (!run.PatchedAlone.empty()) {
    app_.dialogue.PacMsg(
        u"These Plugins take their Texts from the Game now, though their Ship TGLs "
        u"could not be merged:\n" +
            FirstLines(run.PatchedAlone),
        Title::Warning);
  }
  if (!run.IsFull) return;
  Text words = u"The Disk is full!!!  The Update ends here.";
  if (!run.Merged.empty()) words += u"\n\nThese are in the Game now:\n" + FirstLines(run.Merged);
  if (!run.Left.empty()) words += u"\n\nThese are not:\n" + FirstLines(run.Left);
  app_.dialogue.PacMsg(words, Title::Critical);
}

/// No message closes the run: the status line tells how it went.
void frmTGLTools::ShowMerged(const std::vector<Text>& definitions) {
  Text line = definitions.size() == 1 ? definitions.front() + u" is in the game now"
                                      : TextFromUtf8(std::to_string(definitions.size())) +
                                            u" Ship TGLs are in the game now";
  if (!UnpatchedPlugins.empty()) {
    line += u", but " + UnpatchedPlugins.front() + u" keeps its own description";
  }
  app_.shell->ShowStatus(line + u".");
}

/// A plug-in that another tool made, or that is gone, stays as it is. Gives true for one that has
/// been changed.
bool frmTGLTools::PatchPlugin(const Text& ship) {
  const Text path = app_.State.GamePath + u"\\scripts\\Custom\\Ships\\" + ship + u".py";
  bool changed = false;
  NotingFailures(app_, [&] {
    if (!app_.machine.files.FileExists(path)) return;
    const WholeText plugin = ReadWhole(app_.machine.files, path);
    const std::optional<FileText> patched = PatchForTGL(plugin, FileTextFromText(ship));
    if (!patched) {
      UnpatchedPlugins.push_back(ship + u".py");
    } else if (*patched != plugin.Bytes()) {
      changed = WriteFileText(app_, path, *patched);
    }
  });
  return changed;
}

void frmTGLTools::lblUpdateGame_Click() {
  UpdateShipTGLs();
  Select(false);
}

void frmTGLTools::lblUpdateAllGameTGL_Click() {
  PlayEffect(app_, u"CommandBeep.wav", kPlayToEnd);
  PlayEffect(app_, u"Question.wav", kPlayUnlessBusy);
  const Text answer = app_.dialogue.PacInput(u"Update Game with all ShipTGLs???", Title::Question);
  if (answer != u"Yes" && answer != u"All") {
    app_.dialogue.PacMsg(u"The Game has not been Updated!!!", Title::Information);
    return;
  }
  Select(true);
  UpdateShipTGLs();
  Select(false);
}

void frmTGLTools::Select(bool selected) {
  for (std::size_t row = 0; row < File2.Count(); ++row) File2.SetSelected(row, selected);
}

}  // namespace tarvo
