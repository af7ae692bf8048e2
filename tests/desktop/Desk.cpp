#include "Desk.h"

#include <QApplication>
#include <QEventLoop>
#include <QListView>
#include <QPixmap>
#include <QProcess>
#include <QScreen>
#include <QTimer>

#include "desktop/Skin.h"

namespace tarvo::test {
namespace {

QStringList complaints;

void Listen(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type != QtDebugMsg && type != QtInfoMsg) complaints << text;
}

/// The widget of a control, by its place in the tree of models.
QPoint Origin(const Control& control) {
  QPoint origin;
  for (const Control* at = &control; at->Parent(); at = at->Parent()) {
    origin += PixelRect(*at).topLeft();
  }
  return origin;
}

}  // namespace

QStringList TakeComplaints() {
  return std::exchange(complaints, {});
}

void ListenForComplaints() {
  qInstallMessageHandler(Listen);
}

Desk::Desk() {
  forms_.SetScreens(screens_);
  for (const char16_t* file : {u"Z:\\games\\App.py", u"Z:\\games\\Bridge.py", u"Z:\\games\\Load.py",
                               u"Z:\\games\\stbc.exe"}) {
    files_.Put(file, "x");
  }
  for (const char16_t* folder : {u"Z:\\games\\data", u"Z:\\games\\scripts",
                                 u"Z:\\games\\scripts\\Custom", u"Z:\\games\\sfx"}) {
    files_.MakeFolder(folder);
  }
}

Desk::~Desk() {
  EXPECT_EQ(TakeComplaints().join("\n"), "");
}

bool Desk::Until(const std::function<bool()>& done, int milliseconds) {
  QEventLoop loop;
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, &loop, [&] {
    if (done()) loop.exit(1);
  });
  look.start(5);
  QTimer::singleShot(milliseconds, &loop, [&] { loop.exit(0); });
  return loop.exec() == 1;
}

void Desk::Turn(int milliseconds) {
  Until([] { return false; }, milliseconds);
}

void Desk::Hands(const QStringList& doings) {
  QProcess tool;
  bool ended = false;
  QObject::connect(&tool, &QProcess::finished, [&] { ended = true; });
  tool.start("xdotool", doings);
  ASSERT_TRUE(Until([&] { return ended; })) << "xdotool";
  EXPECT_EQ(tool.exitCode(), 0) << tool.readAllStandardError().toStdString();
  Turn(60);
}

void Desk::Click(const Control& control, QPoint offset) {
  const QPoint at = Middle(control) + offset;
  Hands({"mousemove", QString::number(at.x()), QString::number(at.y()), "click", "1"});
}

void Desk::ClickRow(const Control& list, int row, int times) {
  const QPoint corner = Middle(list) - QPoint(0, PixelRect(list).height() / 2);
  const int tall = QFontMetrics(ToQt(Font(list.Font))).height() + 8;
  const QPoint at = corner + QPoint(0, 2 + row * tall + tall / 2);
  Hands({"mousemove", QString::number(at.x()), QString::number(at.y()), "click", "--repeat",
         QString::number(times), "--delay", "40", "1"});
}

WorkForm& Desk::ShowWork() {
  Hands({"mousemove", "0", "0"});
  auto& form = screens_.Use<WorkForm>(files_);
  form.Visible = true;
  EXPECT_TRUE(Until([&] { return WindowOf(form) && WindowOf(form)->isActiveWindow(); }));
  Turn(100);  // The window manager puts it in its place.
  return form;
}

QWidget* Desk::WindowOf(const Form& form) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->windowTitle() == ToQt(form.Caption)) return window;
  }
  return nullptr;
}

QPoint Desk::Middle(const Control& control) {
  const Control* top = &control;
  while (top->Parent()) top = top->Parent();
  const QWidget* window = WindowOf(*static_cast<const Form*>(top));
  if (!window) return {};
  const QSize size = PixelRect(control).size();
  return window->mapToGlobal(Origin(control) + QPoint(size.width() / 2, size.height() / 2));
}

QColor Desk::Pixel(QPoint place) {
  const QPixmap grab =
      QGuiApplication::primaryScreen()->grabWindow(0, place.x(), place.y(), 1, 1);
  return grab.toImage().pixelColor(0, 0);
}

}  // namespace tarvo::test
