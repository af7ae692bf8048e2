// The least that a Qt program can be: one black window, as large as the real program's.

#include <QApplication>
#include <QPalette>
#include <QWidget>

int main(int count, char** arguments) {
  QApplication application(count, arguments);
  QWidget window;
  QPalette palette;
  palette.setColor(QPalette::Window, Qt::black);
  window.setPalette(palette);
  window.setFixedSize(642, 500);
  window.show();
  return QApplication::exec();
}
