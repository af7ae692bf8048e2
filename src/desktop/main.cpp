#include <QApplication>

#include "assistant/PacDialogue.h"
#include "desktop/FilmVideo.h"
#include "desktop/HelpKey.h"
#include "desktop/Host.h"
#include "desktop/Pictures.h"
#include "desktop/QtForms.h"
#include "desktop/QtWindows.h"
#include "desktop/Skin.h"
#include "desktop/UndoKey.h"
#include "platform/HostMachine.h"
#include "shell/frmMain.h"

namespace tarvo {
namespace {

/// The application on its real doors. The order of the members is that of their needs: what is
/// destroyed first stands last.
struct Program {
  HostMachine host = OpenHostMachine();
  FoundProgramFolder folder = OpenProgramFolder(*host.files);
  std::unique_ptr<Sound> sound = OpenSound(*host.files);
  FilmVideo video{*host.files};
  QtWindows windows;
  QtForms forms;
  HelpKey helpKey{[this] { windows.ShowManual(forms.HelpPage()); }};
  UndoKey undoKey{[this](bool typed) { return forms.Undo(typed); }};
  PacDialogue dialogue{app};
  Application app{{*host.files, *host.settings, *host.registry, *sound, video, *host.locale,
                   *host.clock, windows},
                  forms,
                  dialogue,
                  folder.Path};
};

}  // namespace
}  // namespace tarvo

int main(int argc, char** argv) {
  tarvo::PrepareDesktop();
  QApplication qt(argc, argv);
  QApplication::setApplicationName("Tarvo Packager");
  QApplication::setDesktopFileName("tarvo-packager");
  QApplication::setWindowIcon(tarvo::ProgramIcon());
  tarvo::ApplySkin(qt);
  tarvo::Program program;
  program.forms.SetScreens(program.app.screens);
  const tarvo::Text failure = tarvo::FailureWords(program.folder);
  if (!failure.empty()) {
    program.windows.ShowMessage(failure, u"Tarvo Packager", tarvo::BoxIcon::Exclamation);
  }
  if (program.folder.Path.empty()) return 1;
  program.app.Screen<tarvo::frmMain>().Visible = true;
  return QApplication::exec();
}
