#include "desktop/QtWindows.h"

#include <QApplication>
#include <QDesktopServices>
#include <QMessageBox>
#include <QScreen>
#include <QUrl>

#include "desktop/Skin.h"

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
      break;
  }
  return QMessageBox::Information;
}

/// Lets a long path wrap behind each of its backslashes.
QString Breakable(QString text) {
  return text.replace(QLatin1Char('\\'), QStringLiteral("\\") + kBreakHere);
}

}  // namespace

void QtWindows::ShowMessage(TextView text, TextView caption, BoxIcon icon) {
  QMessageBox box(QApplication::activeWindow());
  box.setIcon(IconOf(icon));
  box.setWindowTitle(ToQt(caption));
  box.setTextFormat(Qt::PlainText);
  box.setText(Breakable(ToQt(text)));
  box.setStandardButtons(QMessageBox::Ok);
  box.exec();
}

bool QtWindows::OpenAddress(TextView address) {
  const QUrl url(ToQt(address), QUrl::TolerantMode);
  return url.isValid() && !url.scheme().isEmpty() && QDesktopServices::openUrl(url);
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
