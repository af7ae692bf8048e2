#include "desktop/Host.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QStringList>
#include <QUrl>
#include <algorithm>

#include "desktop/SdlSound.h"
#include "platform/HostMachine.h"

namespace tarvo {

void PrepareDesktop() {}

std::unique_ptr<Sound> OpenSound(Files& files) {
  return std::make_unique<SdlSound>(files);
}

bool ShowInUsersProgram(const QUrl& url) {
  return QDesktopServices::openUrl(url);
}

bool StartProgram(TextView path) {
  const QString program = QString::fromStdString(HostPath(path));
  return QFileInfo(program).isFile() && QProcess::startDetached(program, {});
}

bool StartSystemInfo() {
  const struct {
    const char* Program;
    QStringList Arguments;
  } kTools[] = {{"kinfocenter", {}},
                {"gnome-control-center", {"info-overview"}},
                {"cinnamon-settings", {"info"}},
                {"hardinfo", {}},
                {"hardinfo2", {}}};
  return std::ranges::any_of(kTools, [](const auto& tool) {
    const QString program = QStandardPaths::findExecutable(tool.Program);
    return !program.isEmpty() && QProcess::startDetached(program, tool.Arguments);
  });
}

}  // namespace tarvo
