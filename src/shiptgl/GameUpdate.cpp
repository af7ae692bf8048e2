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
  std::vector<Text> merged;
  std::int64_t selected = 0;
  for (std::size_t row = 0; row < File2.Count(); ++row) selected += File2.Selected(row);
  fraProgress.Visible = true;
  ProgressBar.SetRange(0, selected + 1, 1);
  Refresh();
  PlayEffect(app_, u"Scroll.wav", kPlayLoop);
  for (std::size_t row = 0; row < File2.Count(); ++row) {
    if (!File2.Selected(row)) continue;
    lblFile.Caption = app_.ProgramFolder + u"\\ShipTGLs\\" + File2.Item(row);
    fraUpdateProgress.Refresh();
    const Text ship = ShipOf(File2.Item(row));
    if (UpdateGameTGL(app_, ship)) merged.push_back(File2.Item(row));
    PatchPlugin(ship);
    ProgressBar.SetValue(ProgressBar.Value() + 1);
  }
  PlayEffect(app_, u"BackgroundBeep.wav", kPlay);
  fraProgress.Visible = false;
  if (app_.Failures.empty() && !merged.empty()) ShowMerged(merged);
  if (selected > 0) return;
  app_.shell->ShowStatus(File2.Count() == 0
                             ? u"There is no Ship TGL yet: make one on the New TGL tab."
                             : u"Nothing is chosen: click the Ship TGLs that the game is to get.");
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

/// A plug-in that another tool made, or that is gone, stays as it is.
void frmTGLTools::PatchPlugin(const Text& ship) {
  const Text path = app_.State.GamePath + u"\\scripts\\Custom\\Ships\\" + ship + u".py";
  NotingFailures(app_, [&] {
    if (!app_.machine.files.FileExists(path)) return;
    const WholeText plugin = ReadWhole(app_.machine.files, path);
    const std::optional<FileText> patched = PatchForTGL(plugin, FileTextFromText(ship));
    if (!patched) {
      UnpatchedPlugins.push_back(ship + u".py");
    } else if (*patched != plugin.Bytes()) {
      WriteFileText(app_, path, *patched);
    }
  });
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
