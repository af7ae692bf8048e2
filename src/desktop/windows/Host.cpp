#include "desktop/Host.h"

#include <QDir>
#include <QUrl>

#include "desktop/Skin.h"
#include "platform/windows/ShellOpening.h"
#include "platform/windows/WindowsSound.h"

namespace tarvo {

/// The screens are laid out by measure, so texts are drawn as on every other machine: the system's
/// own engine makes them wider, and takes a bold face for one between the weights that it knows.
void PrepareDesktop() {
  const char* const name = "QT_QPA_PLATFORM";
  if (!qEnvironmentVariableIsSet(name)) qputenv(name, "windows:fontengine=freetype");
}

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

/// The registry knows it.
bool StartSystemInfo() {
  return false;
}

}  // namespace tarvo
