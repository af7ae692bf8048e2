// The least that a Qt program can be: one black window, as large and where the real program's is.

#include <QApplication>
#include <QPalette>
#include <QScreen>
#include <QWidget>

int main(int count, char** arguments) {
  QApplication application(count, arguments);
  QWidget window;
  QPalette palette;
  palette.setColor(QPalette::Window, Qt::black);
  window.setPalette(palette);
  window.setFixedSize(642, 500);
  window.move(QGuiApplication::primaryScreen()->geometry().center() - window.rect().center());
  window.show();
  return QApplication::exec();
}
