#include "gametools/frmGameTools.h"

namespace tarvo {

frmGameTools::frmGameTools(Application& app)
    : Form(Style::Child, app.MainForm),
      FileList2(&fraShipInfo, app.machine.files, ListBox::Selection::Single, u"*.py"),
      FileListWavs(&fraSound, app.machine.files, ListBox::Selection::Single, u"*.wav"),
      FileList5(&fraSound, app.machine.files, ListBox::Selection::Single, u"*.py"),
      FileList1(&fraMenus, app.machine.files, ListBox::Selection::Single, u"*.py"),
      FileList4(&fraMenus, app.machine.files, ListBox::Selection::Single, u"*.py"),
      FileList3(&fraIntegrity, app.machine.files, ListBox::Selection::Single, u"*.py"),
      app_(app) {}

frmGameTools::~frmGameTools() = default;

void frmGameTools::Load() {}

void frmGameTools::Unload() {}

}  // namespace tarvo
