#include <QApplication>

#include "assistant/PacDialogue.h"
#include "desktop/Pictures.h"
#include "desktop/QtForms.h"
#include "desktop/QtWindows.h"
#include "desktop/SdlSound.h"
#include "desktop/Skin.h"
#include "platform/HostMachine.h"
#include "shell/frmMain.h"

namespace tarvo {
namespace {

/// The application on its real doors. The order of the members is that of their needs: what is
/// destroyed first stands last.
struct Program {
  HostMachine host = OpenHostMachine();
  SdlSound sound{*host.files};
  QtWindows windows;
  QtForms forms;
  PacDialogue dialogue{app};
  Application app{
      {*host.files, *host.settings, *host.registry, sound, *host.locale, *host.clock, windows},
      forms,
      dialogue,
      ProgramFolder()};
};

}  // namespace
}  // namespace tarvo

int main(int argc, char** argv) {
  QApplication qt(argc, argv);
  QApplication::setApplicationName("Tarvo Packager");
  QApplication::setDesktopFileName("tarvo-packager");
  QApplication::setWindowIcon(tarvo::ProgramIcon());
  tarvo::ApplySkin(qt);
  tarvo::Program program;
  program.forms.SetScreens(program.app.screens);
  program.app.Screen<tarvo::frmMain>().Visible = true;
  return QApplication::exec();
}
