#include "shell/frmAbout.h"

#include "controls/Palette.h"
#include "controls/Placing.h"
#include "platform/Files.h"
#include "platform/Guarded.h"
#include "platform/Windows.h"
#include "state/Shell.h"
#include "state/StartUp.h"

namespace tarvo {
namespace {

/// A value under HKEY_LOCAL_MACHINE; empty when it isn't there or can't be read.
Text GetKeyValue(Application& app, TextView keyPath, TextView valueName) {
  Text value;
  Guarded([&] { value = helper_RegReadString(app, kLocalMachine, keyPath, valueName); });
  return value;
}

/// The path of the system's information tool; empty when the registry knows none.
Text SysInfoTool(Application& app) {
  Text tool = GetKeyValue(app, u"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", u"PATH");
  if (!tool.empty()) return tool;
  tool = GetKeyValue(app, u"SOFTWARE\\Microsoft\\Shared Tools Location", u"MSINFO");
  if (tool.empty()) return {};
  tool += u"\\MSINFO32.EXE";
  bool stands = false;
  Guarded([&] { stands = app.machine.files.FileExists(tool); });
  return stands ? tool : Text();
}

}  // namespace

frmAbout::frmAbout(Application& app) : Form(Style::Dialog, app.MainForm), app_(app) {
  HelpPage = u"help.html";
  LayOut();
  cmdOk.OnClick = [this] { app_.screens.Close(*this); };
  cmdSysInfo.OnClick = [this] { StartSysInfo(); };
}

void frmAbout::LayOut() {
  Move(0, 0, 6480, 3360);
  Image1.Picture = u":/icon/256.png";
  Image1.Move(240, 300, 1920, 1920);
  Place(lblTitle, {}, 2400, 270, 3840);
  lblTitle.Font = {FontRole::Normal, 14};
  lblTitle.Height = 390;
  Place(lblVersion, {}, 2400, 675, 3840);
  lblVersion.ForeColour = palette::kBlue;
  Place(lblDescription, {}, 2400, 1050, 3840);
  lblDescription.Height = 1350;
  lblDescription.WordWrap = true;
  Place(cmdOk, u"&OK", palette::kOrange, 2400, 2760, 1845);
  Place(cmdSysInfo, u"&System Info...", palette::kViolet, 4395, 2760, 1845);
  DefaultButton = &cmdOk;
  CancelButton = &cmdOk;
}

void frmAbout::Load() {
  Caption = u"About Tarvo Packager";
  lblVersion.Caption = u"Version: Beta " TARVO_VERSION;
  lblTitle.Caption = u"Tarvo Packager";
  lblDescription.Caption =
      u"This application is used to help add new ships into Bridge Commander\r\n\r\n"
      u"Design, Programming and Implementation:\r\nOrsen Vahl\r\n";
  PlaceOver(*this, app_.MainForm);
  cmdOk.SetFocus();
}

void frmAbout::StartSysInfo() {
  const Text tool = SysInfoTool(app_);
  Windows& windows = app_.machine.windows;
  if (!tool.empty() && windows.RunProgram(tool)) return;
  if (windows.ShowSystemInfo()) return;
  app_.shell->ShowStatus(tool.empty()
                             ? Text(u"No program that tells of this machine has been found.")
                             : u"Can't start " + tool);
  windows.ShowMessage(u"System Information Is Unavailable At This Time", u"Tarvo Packager",
                      BoxIcon::Plain);
}

}  // namespace tarvo
