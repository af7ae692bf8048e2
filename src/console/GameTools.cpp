#include "console/GameTools.h"

namespace tarvo {

frmGameTools& OpenGameTools(Session& session, bool needsMenus) {
  Application& app = session.app;
  auto& screen = app.Screen<frmGameTools>();
  if (!needsMenus) app.Failures.clear();
  // The load ends before it sets this where the game lacks a folder.
  app.State.CurrentScreen = u"Game Tools";
  return screen;
}

}  // namespace tarvo
