#include "desktop/Host.h"

#include <QDir>
#include <QUrl>

#include "desktop/Skin.h"
#include "platform/windows/ShellOpening.h"
#include "platform/windows/WindowsSound.h"

namespace tarvo {

std::unique_ptr<Sound> OpenSound(Files&) {
  return std::make_unique<WindowsSound>();
}

bool ShowInUsersProgram(const QUrl& url) {
  const QString named = url.isLocalFile() ? QDir::toNativeSeparators(url.toLocalFile())
                                          : url.toString(QUrl::FullyEncoded);
  return OpenInShell(FromQt(named));
}

bool StartProgram(TextView path) {
  return StartInShell(path);
}

}  // namespace tarvo
