#include "console/GameTools.h"

namespace tarvo {

frmGameTools& OpenGameTools(Session& session, bool needsMenus) {
  Application& app = session.app;
  const std::size_t before = app.Failures.size();
  auto& screen = app.Screen<frmGameTools>();
  if (!needsMenus)
    app.Failures.erase(app.Failures.begin() + static_cast<std::ptrdiff_t>(before),
                       app.Failures.end());
  screen.Visible = true;  // So that a row can be picked.
  // The load ends before it sets this where the game lacks a folder.
  app.State.CurrentScreen = u"Game Tools";
  return screen;
}

}  // namespace tarvo
