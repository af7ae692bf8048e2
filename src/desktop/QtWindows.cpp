#include "desktop/QtWindows.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QScreen>
#include <QUrl>

#include "desktop/Host.h"
#include "desktop/Skin.h"
#include "platform/HostMachine.h"
#include "text/Paths.h"

namespace tarvo {
namespace {

constexpr QChar kBreakHere(0x200B);

QMessageBox::Icon IconOf(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::Critical:
      return QMessageBox::Critical;
    case BoxIcon::Question:
      return QMessageBox::Question;
    case BoxIcon::Exclamation:
      return QMessageBox::Warning;
    case BoxIcon::Information:
      return QMessageBox::Information;
    case BoxIcon::Plain:
      break;
  }
  return QMessageBox::NoIcon;
}

/// A file by its game path; its path on the host.
QString OnHost(TextView path) {
  return QString::fromUtf8(HostPath(path).c_str());
}

/// Lets a long path wrap behind each of its backslashes.
QString Breakable(QString text) {
  return text.replace(QLatin1Char('\\'), QStringLiteral("\\") + kBreakHere);
}

}  // namespace

QtWindows::QtWindows() : open_(&ShowInUsersProgram) {}

void QtWindows::ShowMessage(TextView text, TextView caption, BoxIcon icon) {
  QMessageBox box(QApplication::activeWindow());
  box.setIcon(IconOf(icon));
  box.setWindowTitle(ToQt(caption));
  box.setTextFormat(Qt::PlainText);
  const QString words = ToQt(text);
  const QString shown = Breakable(words);
  box.setText(shown);
  // The marks between the parts of a path would be copied along.
  if (shown == words) {
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  }
  box.setStandardButtons(QMessageBox::Ok);
  box.exec();
}

bool QtWindows::OpenAddress(TextView address) {
  const QUrl url(ToQt(address), QUrl::TolerantMode);
  return url.isValid() && !url.scheme().isEmpty() && open_(url);
}

Text QtWindows::PickFolder(TextView start) {
  const QString picked = QFileDialog::getExistingDirectory(
      QApplication::activeWindow(), QStringLiteral("Folder of the game"), OnHost(start));
  return picked.isEmpty() ? Text() : GamePathFromArgument(picked.toStdString());
}

Text QtWindows::HomeFolder() {
  return GamePathFromArgument(QDir::homePath().toStdString());
}

bool QtWindows::RunProgram(TextView path) {
  return StartProgram(path);
}

bool QtWindows::ShowSystemInfo() {
  return StartSystemInfo();
}

void QtWindows::ShowManual(TextView page) {
  const std::size_t tail = helpFile_.rfind(u'\\');
  const Text folder = helpFile_.substr(0, tail == Text::npos ? 0 : tail);
  QString file;
  if (!page.empty()) file = OnHost(JoinPath(folder, page));
  const Text first = JoinPath(folder, u"index.html");
  if (!QFileInfo(file).isFile()) file = OnHost(first);
  if (!QFileInfo(file).isFile()) {
    ShowMessage(u"The manual is missing. It should be in this file:\r\n\r\n" + first,
                u"Tarvo Packager", BoxIcon::Exclamation);
  } else if (!open_(QUrl::fromLocalFile(file))) {
    ShowMessage(
        u"There is no program to show the manual with. It is in this file:\r\n\r\n" + FromQt(file),
        u"Tarvo Packager", BoxIcon::Exclamation);
  }
}

TwipSize QtWindows::ScreenSize() {
  const QSize size = QApplication::primaryScreen()->availableGeometry().size();
  return {ToTwips(size.width()), ToTwips(size.height())};
}

TwipArea QtWindows::ScreenAt(int left, int top) {
  const QScreen* screen = QApplication::screenAt({ToPixels(left), ToPixels(top)});
  if (!screen) screen = QApplication::primaryScreen();
  const QRect area = screen->availableGeometry();
  return {ToTwips(area.left()), ToTwips(area.top()), ToTwips(area.width()), ToTwips(area.height())};
}

}  // namespace tarvo
