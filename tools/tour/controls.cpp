// Tells where the controls of the screens lie, for whoever works them from outside.
//   controls places
//       a line for each control: SCREEN.CONTROL LEFT TOP WIDTH HEIGHT, in pixels from the top left
//       corner of its window's client area
//   controls rows GAME FOLDER
//       where the rows of the Packager's lists are when it has just come to show FOLDER of the
//       game: a line "folder" or "file", LEFT TOP WIDTH HEIGHT and the row's text

#include <QAbstractItemView>
#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <array>
#include <cstdio>
#include <string>

#include "assistant/frmPac_Helper.h"
#include "assistant/frmPac_InputBox.h"
#include "desktop/DirListBoxView.h"
#include "desktop/ListBoxView.h"
#include "desktop/Skin.h"
#include "gametools/frmGameTools.h"
#include "packages/frmPackager.h"
#include "platform/Clock.h"
#include "platform/Locale.h"
#include "platform/PlatformError.h"
#include "platform/Registry.h"
#include "platform/Settings.h"
#include "platform/Sound.h"
#include "platform/Video.h"
#include "platform/Windows.h"
#include "platform/posix/HostPaths.h"
#include "platform/posix/PosixFiles.h"
#include "shell/frmAbout.h"
#include "shell/frmMain.h"
#include "shell/frmMainMenu.h"
#include "shell/frmOptions.h"
#include "shiptgl/frmTGLTools.h"
#include "state/Dialogue.h"
#include "text/RaisedError.h"
#include "text/Utf8.h"

namespace tarvo {

namespace {

/// A machine that only has files.
struct Nowhere : Settings, Registry, Sound, Video, Locale, Clock, Windows, Dialogue, FormHost {
  Text Read(TextView, TextView, TextView, TextView fallback) override { return Text(fallback); }
  void Write(TextView, TextView, TextView, TextView) override {}
  std::unique_ptr<RegistryKey> OpenKey(std::uint32_t, TextView path) override {
    throw PlatformError(u"open", Text(path), 0);
  }
  void Play(TextView, unsigned) override {}
  std::unique_ptr<VideoOpening> Open(TextView, int, int,
                                     std::function<void(VideoPictures)>) override {
    return nullptr;
  }
  Text ShortDate() override { return {}; }
  char16_t DecimalMark() override { return u'.'; }
  void Randomize() override {}
  double Random() override { return 0; }
  Text RunOfComputer() override { return {}; }
  void Pause(int) override {}
  void ShowMessage(TextView, TextView, BoxIcon) override {}
  bool OpenAddress(TextView) override { return false; }
  bool RunProgram(TextView) override { return false; }
  void SetHelpFile(TextView) override {}
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

int Pixels(int twips) {
  return (twips + 7) / 15;
}

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

/// The Nowhere has no game, so the screen ends its load early; its controls stand all the same.
void PrintGameTools(Application& app) {
  auto& tools = app.Screen<frmGameTools>();
  Print("frmGameTools", tools,
        {{"lblShipPlugin", tools.lblShipPlugin},
         {"lblSoundPlugin", tools.lblSoundPlugin},
         {"lblMenus", tools.lblMenus},
         {"lblChecker", tools.lblChecker},
         {"fraShipInfo", tools.fraShipInfo},
         {"cboShipName", tools.cboShipName},
         {"cboSpecies", tools.cboSpecies},
         {"FileList2", tools.FileList2},
         {"lblMakeShipPlugin", tools.lblMakeShipPlugin},
         {"fraSound", tools.fraSound},
         {"cboSoundName", tools.cboSoundName},
         {"lstWeapons", tools.lstWeapons},
         {"FileListWavs", tools.FileListWavs},
         {"lstSoundInfo", tools.lstSoundInfo},
         {"lblAddSound", tools.lblAddSound},
         {"lblMakeSoundPlugin", tools.lblMakeSoundPlugin},
         {"fraMenus", tools.fraMenus},
         {"lstDisabled", tools.lstDisabled},
         {"lblAddQB", tools.lblAddQB},
         {"lblDeleteQB", tools.lblDeleteQB},
         {"lblEnable", tools.lblEnable},
         {"lblDisable", tools.lblDisable},
         {"lblDelete", tools.lblDelete},
         {"fraIntegrity", tools.fraIntegrity},
         {"FileList3", tools.FileList3},
         {"txtErrorDisplay", tools.txtErrorDisplay},
         {"fraTree", tools.fraTree},
         {"fraQBMenu", tools.fraQBMenu},
         {"imgButtonU", tools.imgButtonU},
         {"imgButtonD", tools.imgButtonD},
         {"imgButtonL", tools.imgButtonL},
         {"imgButtonR", tools.imgButtonR},
         {"lblExit", tools.lblExit},
         {"lblExit1", tools.lblExit1},
         {"lblExit2", tools.lblExit2},
         {"lblExit3", tools.lblExit3}});
}

void PrintPlaces(Application& app) {
  auto& menu = app.Screen<frmMainMenu>();
  Print("frmMainMenu", menu,
        {{"lblGameTools", menu.lblGameTools},
         {"lblTGLTools", menu.lblTGLTools},
         {"lblPackager", menu.lblPackager},
         {"lblOptions", menu.lblOptions},
         {"lblHelp", menu.lblHelp},
         {"imgLogo", menu.imgLogo},
         {"lblExit", menu.lblExit}});
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
  auto& tgl = app.Screen<frmTGLTools>();
  Print("frmTGLTools", tgl,
        {{"lblEditTGL", tgl.lblEditTGL},
         {"lblDeleteTGL", tgl.lblDeleteTGL},
         {"lblGameTGL", tgl.lblGameTGL},
         {"fraShipTGL", tgl.fraShipTGL},
         {"FileList", tgl.FileList},
         {"cboShipNames", tgl.cboShipNames},
         {"txtLongName", tgl.txtLongName},
         {"txtDescription", tgl.txtDescription},
         {"txtHull", tgl.txtHull},
         {"lblNew", tgl.lblNew},
         {"lblEdit", tgl.lblEdit},
         {"lblDelete", tgl.lblDelete},
         {"lblExit", tgl.lblExit},
         {"fraGameTGL", tgl.fraGameTGL},
         {"File2", tgl.File2},
         {"lblUpdateGame", tgl.lblUpdateGame},
         {"lblExit1", tgl.lblExit1}});
  PrintGameTools(app);
  auto& options = app.Screen<frmOptions>();
  Print("frmOptions", options,
        {{"lstDir", options.lstDir},
         {"lblFolder", options.lblFolder},
         {"chkSoundFX", options.chkSoundFX},
         {"chkVideoFX", options.chkVideoFX},
         {"lblSave", options.lblSave},
         {"lblExit", options.lblExit}});
  auto& about = app.Screen<frmAbout>();
  Print("frmAbout", about, {{"cmdOk", about.cmdOk}, {"cmdSysInfo", about.cmdSysInfo}});
  auto& dialog = app.Screen<frmPac_InputBox>();
  dialog.LayOutQuestion(u"", Title::Warning);
  Print("frmPac_InputBox", dialog,
        {{"cmdYes", dialog.cmdYes}, {"cmdNo", dialog.cmdNo}, {"cmdAll", dialog.cmdAll}});
  auto& helper = app.Screen<frmPac_Helper>();
  Print("frmPac_Helper", helper,
        {{"lblPac_Label", helper.lblPac_Label},
         {"cmdStop_Talk", helper.cmdStop_Talk},
         {"Pac_Helper", helper.Pac_Helper}});
}

/// A list is drawn unseen by the program's own view, and its rows are measured.
template <class ListView, class List>
void PrintRows(const char* kind, List& list, const Form& screen) {
  QWidget parent;
  ListView view(list, &parent);
  view.Apply();
  const auto& rows = dynamic_cast<const QAbstractItemView&>(*view.Widget());
  const auto [left, top] = Corner(list, screen);
  const QPoint corner = rows.viewport()->pos() + QPoint(Pixels(left), Pixels(top));
  for (int row = 0; row < rows.model()->rowCount(); ++row) {
    const QModelIndex index = rows.model()->index(row, 0);
    const QRect area = rows.visualRect(index).intersected(rows.viewport()->rect());
    if (area.isEmpty()) continue;
    std::printf("%s %d %d %d %d %s\n", kind, corner.x() + area.left(), corner.y() + area.top(),
                area.width(), area.height(), qPrintable(index.data().toString()));
  }
  view.Detach();
}

void PrintRows(Application& app, TextView folder) {
  auto& packager = app.Screen<frmPackager>();
  packager.lstDir.SetPath(app.State.GamePath + Text(folder));
  PrintRows<DirListBoxView>("folder", packager.lstDir, packager);
  PrintRows<ListBoxView>("file", packager.lstFileSelect, packager);
}

}  // namespace

}  // namespace tarvo

int main(int count, char** arguments) {
  using namespace tarvo;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(count, arguments);
  ApplySkin(application);
  const QStringList words = QApplication::arguments().mid(1);
  const bool rows = words.size() == 3 && words[0] == "rows";
  if (!rows && words != QStringList{"places"}) {
    std::fputs("Usage: controls places | rows GAME FOLDER\n", stderr);
    return 2;
  }
  Nowhere nowhere;
  PosixFiles files("");
  // The start makes its folders in the program folder.
  const QTemporaryDir program;
  Application app({files, nowhere, nowhere, nowhere, nowhere, nowhere, nowhere, nowhere}, nowhere,
                  nowhere, GamePathOf(program.path().toStdString()));
  try {
    app.Screen<frmMain>();
    if (rows) {
      app.State.GamePath = GamePathOf(QDir(words[1]).absolutePath().toStdString());
      PrintRows(app, FromQt(words[2]));
    } else {
      PrintPlaces(app);
    }
  } catch (const RaisedError& error) {
    std::fprintf(stderr, "controls: %s\n", Utf8FromText(error.Description).c_str());
    return 1;
  }
  return 0;
}
