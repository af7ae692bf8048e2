#include "desktop/Host.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>

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

}  // namespace tarvo
