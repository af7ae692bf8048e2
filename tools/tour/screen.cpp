// Looks at the screen:
//   screen shot FILE [LEFT TOP WIDTH HEIGHT]       writes it, or an area of it, as a picture
//   screen settled LEFT TOP WIDTH HEIGHT [OLD]     waits until the area has stopped to change and
//                                                  prints a sum over its pixels; with the sum OLD,
//                                                  until it has also become another

#include <QCryptographicHash>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QScreen>
#include <QThread>
#include <cstdio>

namespace {

constexpr int kLookEveryMs = 30;
constexpr int kStillForMs = 150;
constexpr int kPatienceMs = 8000;

QByteArray SumOf(const QRect& area) {
  const QPixmap grab = QGuiApplication::primaryScreen()->grabWindow(0, area.x(), area.y(),
                                                                    area.width(), area.height());
  const QImage image = grab.toImage().convertToFormat(QImage::Format_RGB32);
  const QByteArrayView bytes(image.constBits(), image.sizeInBytes());
  return QCryptographicHash::hash(bytes.toByteArray(), QCryptographicHash::Md5).toHex();
}

int WaitUntilSettled(const QRect& area, const QByteArray& old) {
  QElapsedTimer patience;
  QElapsedTimer still;
  patience.start();
  still.start();
  QByteArray sum = SumOf(area);
  while (sum == old || still.elapsed() < kStillForMs) {
    if (patience.elapsed() > kPatienceMs) return 1;
    QThread::msleep(kLookEveryMs);
    const QByteArray now = SumOf(area);
    if (now != sum) still.restart();
    sum = now;
  }
  std::puts(sum.constData());
  return 0;
}

}  // namespace

int main(int count, char** arguments) {
  qunsetenv("QT_SCALE_FACTOR");  // Places are in the screen's own pixels, whatever programs show.
  QGuiApplication application(count, arguments);
  const QStringList words = QGuiApplication::arguments().mid(1);
  if ((words.size() == 2 || words.size() == 6) && words[0] == "shot") {
    const QPixmap grab = QGuiApplication::primaryScreen()->grabWindow(0);
    const QRect area(words.value(2).toInt(), words.value(3).toInt(), words.value(4).toInt(),
                     words.value(5).toInt());
    return (area.isEmpty() ? grab : grab.copy(area)).save(words[1], "PNG") ? 0 : 1;
  }
  if ((words.size() == 5 || words.size() == 6) && words[0] == "settled") {
    const QRect area(words[1].toInt(), words[2].toInt(), words[3].toInt(), words[4].toInt());
    return WaitUntilSettled(area, words.value(5).toLatin1());
  }
  std::fputs(
      "Usage: screen shot FILE [LEFT TOP WIDTH HEIGHT] | screen settled LEFT TOP WIDTH HEIGHT "
      "[OLD]\n",
      stderr);
  return 2;
}
