// Tells where the controls of the screens lie, for whoever works them from outside.
//   controls places
//       a line for each control: SCREEN.CONTROL LEFT TOP WIDTH HEIGHT, in pixels from the top left
//       corner of its window's client area
//   controls folders GAME FOLDER, controls files GAME FOLDER
//       the rows of the Packager's list when it shows FOLDER of the game

#include <array>
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

#include "assistant/frmPac_InputBox.h"
#include "packages/frmPackager.h"
#include "platform/Clock.h"
#include "platform/Locale.h"
#include "platform/PlatformError.h"
#include "platform/Registry.h"
#include "platform/Settings.h"
#include "platform/Sound.h"
#include "platform/Windows.h"
#include "platform/posix/HostPaths.h"
#include "platform/posix/PosixFiles.h"
#include "shell/frmMain.h"
#include "shell/frmMainMenu.h"
#include "state/Dialogue.h"
#include "text/RaisedError.h"
#include "text/Utf8.h"

namespace tarvo {

namespace {

/// A machine that only has files.
struct Nowhere : Settings, Registry, Sound, Locale, Clock, Windows, Dialogue, FormHost {
  Text Read(TextView, TextView, TextView, TextView fallback) override { return Text(fallback); }
  void Write(TextView, TextView, TextView, TextView) override {}
  std::unique_ptr<RegistryKey> OpenKey(std::uint32_t, TextView path) override {
    throw PlatformError(u"open", Text(path), 0);
  }
  void Play(TextView, unsigned) override {}
  Text ShortDate() override { return {}; }
  char16_t DecimalMark() override { return u'.'; }
  void Randomize() override {}
  double Random() override { return 0; }
  void ShowMessage(TextView, TextView, BoxIcon) override {}
  bool OpenAddress(TextView) override { return false; }
  TwipSize ScreenSize() override { return {}; }
  void PacMsg(TextView, Title) override {}
  Text PacInput(TextView, Title) override { return {}; }
  Text PacAskText(TextView, Title) override { return {}; }
  void PacSetButtons(TextView, TextView) override {}
  void Made(Form&) override {}
  void RunModal(Form&) override {}
  void Closed(Form&) override {}
  void Quit() override {}
};

struct Named {
  const char* Name;
  const Control& Shown;
};

int Pixels(int twips) { return (twips + 7) / 15; }

/// Left edge and top edge of the control in its window, in twips.
std::array<int, 2> Corner(const Control& control, const Form& screen) {
  std::array<int, 2> corner{};
  for (const Control* at = &control; at && at != &screen; at = at->Parent()) {
    corner[0] += at->Left;
    corner[1] += at->Top;
  }
  if (screen.Kind() == Form::Style::Child) {
    corner[0] += screen.Left;
    corner[1] += screen.Top;
  }
  return corner;
}

void Print(const char* screenName, const Form& screen, std::initializer_list<Named> controls) {
  for (const Named& control : controls) {
    const auto [left, top] = Corner(control.Shown, screen);
    std::printf("%s.%s %d %d %d %d\n", screenName, control.Name, Pixels(left), Pixels(top),
                Pixels(control.Shown.Width), Pixels(control.Shown.Height));
  }
}

void PrintPlaces(Application& app) {
  auto& menu = app.Screen<frmMainMenu>();
  Print("frmMainMenu", menu, {{"lblPackager", menu.lblPackager}, {"lblExit", menu.lblExit}});
  auto& packager = app.Screen<frmPackager>();
  Print("frmPackager", packager,
        {{"fraTarvo", packager.fraTarvo},
         {"lblModels", packager.lblModels},
         {"lblScripts", packager.lblScripts},
         {"lblPlugins", packager.lblPlugins},
         {"lstDir", packager.lstDir},
         {"lstFileSelect", packager.lstFileSelect},
         {"lstFile", packager.lstFile},
         {"lblAdd", packager.lblAdd},
         {"lblAddAll", packager.lblAddAll},
         {"lblRemove", packager.lblRemove},
         {"cboFileName", packager.cboFileName},
         {"lblSave", packager.lblSave},
         {"lblTest", packager.lblTest},
         {"lblExit", packager.lblExit}});
  auto& dialog = app.Screen<frmPac_InputBox>();
  dialog.LayOutQuestion(u"", Title::Warning);
  Print("frmPac_InputBox", dialog,
        {{"cmdYes", dialog.cmdYes}, {"cmdNo", dialog.cmdNo}, {"cmdAll", dialog.cmdAll}});
}

void PrintRows(Application& app, std::string_view list, TextView folder) {
  auto& packager = app.Screen<frmPackager>();
  packager.lstDir.SetPath(app.State.GamePath + Text(folder));
  if (list == "folders") {
    for (const DirListBox::Row& row : packager.lstDir.Rows()) {
      std::puts(Utf8FromText(row.Name).c_str());
    }
  }
  if (list == "files") {
    for (std::size_t row = 0; row < packager.lstFileSelect.Count(); ++row) {
      std::puts(Utf8FromText(packager.lstFileSelect.Item(row)).c_str());
    }
  }
}

}  // namespace

}  // namespace tarvo

int main(int count, char** arguments) {
  using namespace tarvo;
  const std::string_view what = count > 1 ? arguments[1] : "";
  const bool rows = count == 4 && (what == "folders" || what == "files");
  if (!rows && (count != 2 || what != "places")) {
    std::fputs("Usage: controls places | folders GAME FOLDER | files GAME FOLDER\n", stderr);
    return 2;
  }
  Nowhere nowhere;
  PosixFiles files("");
  Application app({files, nowhere, nowhere, nowhere, nowhere, nowhere, nowhere}, nowhere, nowhere,
                  u"Z:\\");
  try {
    app.Screen<frmMain>();
    if (rows) {
      app.State.GamePath = GamePathOf(std::filesystem::absolute(arguments[2]).string());
      PrintRows(app, what, TextFromUtf8(arguments[3]));
    } else {
      PrintPlaces(app);
    }
  } catch (const RaisedError& error) {
    std::fprintf(stderr, "controls: %s\n", Utf8FromText(error.Description).c_str());
    return 1;
  }
  return 0;
}
