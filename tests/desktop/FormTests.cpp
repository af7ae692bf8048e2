#include <QApplication>
#include <QProcess>
#include <QTimer>
#include <QWidget>
#include <fstream>

#include "Desk.h"
#include "desktop/QtWindows.h"
#include "desktop/Skin.h"

namespace tarvo::test {
namespace {

using Forms = Desk;

/// What each case does while the dialog is open, from within the event loop.
void Later(int milliseconds, std::function<void()> doing) {
  QTimer::singleShot(milliseconds, std::move(doing));
}

/// Presses a key without turning a loop of its own.
void Tap(const QString& key) {
  QStringList doings{"key", key};
  EXPECT_EQ(QProcess::execute("xdotool", doings), 0);
}

TEST_F(Forms, ADialogSlidesOpenWhileTimersGoOnAndKeysPressItsButtons) {
  struct Case {
    const char* key;
    const char16_t* answer;
  };
  WorkForm& form = ShowWork();
  int ticks = 0;
  form.timer.OnTimer = [&] { ++ticks; };
  form.timer.Enabled = true;
  int pressed = 0;
  form.go.OnClick = [&] { ++pressed; };
  for (const Case& wanted : {Case{"Escape", u"No"}, Case{"Return", u"Yes"}, Case{"alt+y", u"Yes"},
                             Case{"alt+F4", u"No"}}) {
    SCOPED_TRACE(wanted.key);
    auto& dialog = screens_.Use<SlidingDialog>(form);
    Text answer;
    const auto close = [&](const char16_t* with) {
      answer = with;
      screens_.Close(dialog);
    };
    dialog.yes.OnClick = [&] { close(u"Yes"); };
    dialog.no.OnClick = [&] { close(u"No"); };
    dialog.line.Move(300, 900, 3900, 400);
    int ticksAtOpen = ticks;
    int ticksMeanwhile = 0;
    Later(350, [&] {
      EXPECT_EQ(int(dialog.Width), 4500);
      EXPECT_EQ(WindowOf(dialog)->width(), 300);
      EXPECT_TRUE(WindowOf(dialog)->isActiveWindow());
      form.Enabled = false;  // The owner's being off leaves the dialog alone.
      const QPoint at = WindowOf(form)->mapToGlobal(PixelRect(form.go).center());
      EXPECT_EQ(QProcess::execute("xdotool", {"mousemove", QString::number(at.x()),
                                              QString::number(at.y()), "click", "1"}),
                0);
    });
    Later(550, [&] {
      ticksMeanwhile = ticks - ticksAtOpen;
      form.Enabled = true;
      EXPECT_TRUE(WindowOf(dialog)->isActiveWindow());
      Tap(wanted.key);
    });
    QTimer lifeguard;
    lifeguard.callOnTimeout([&] { close(u"none"); });
    lifeguard.start(2000);
    screens_.RunModal(dialog);
    EXPECT_EQ(answer, wanted.answer);
    EXPECT_GE(ticksMeanwhile, 15) << "of some 27 in 550 ms";
    EXPECT_EQ(pressed, 0) << "the owner takes no clicks meanwhile";
    Turn(80);
  }
}

/// A form that closes itself from a handler of a control of its own.
class ShortLived : public Form {
 public:
  static inline int alive = 0;

  explicit ShortLived(Form& owner) : Form(Style::Child, &owner) {
    ++alive;
    Move(1500, 1500, 3000, 3000);
    for (int row = 0; row < 50; ++row) list.Add(u"a row of some length");
    list.Move(0, 0, 2000, 2000);
  }
  ~ShortLived() override { --alive; }

  ListBox list{this, ListBox::Selection::Toggle};
  Button button{this};
  Timer timer{this, 1};
};

long ResidentKilobytes() {
  std::ifstream status("/proc/self/statm");
  long total = 0;
  long resident = 0;
  status >> total >> resident;
  return resident * 4;
}

TEST_F(Forms, FormsThatCloseFromTheirOwnHandlersLeaveNothingBehind) {
  WorkForm& form = ShowWork();
  int closed = 0;
  const auto round = [&] {
    auto& brief = screens_.Use<ShortLived>(form);
    brief.list.OnClick = [&] {
      ++closed;
      screens_.Close(brief);
      brief.Caption = u"still there for its handler";
    };
    brief.timer.OnTimer = [&] { brief.list.Click(7); };
    brief.Visible = true;
    const int before = closed;
    return Until([&] { return closed > before; });
  };
  for (int warm = 0; warm < 50; ++warm) ASSERT_TRUE(round());
  Turn(30);
  const qsizetype widgets = QApplication::allWidgets().size();
  const long resident = ResidentKilobytes();
  for (int rounds = 0; rounds < 1000; ++rounds) ASSERT_TRUE(round());
  Turn(30);
  EXPECT_EQ(ShortLived::alive, 0);
  EXPECT_EQ(QApplication::allWidgets().size(), widgets);
  EXPECT_LT(ResidentKilobytes() - resident, 1024) << "KiB in a thousand forms";
}

TEST_F(Forms, ClosedFormsLiveUntilNoHandlerRuns) {
  WorkForm& form = ShowWork();
  auto& brief = screens_.Use<ShortLived>(form);
  brief.button.OnClick = [&] {
    screens_.Close(brief);
    auto& dialog = screens_.Use<SlidingDialog>(form);
    dialog.no.OnClick = [&] { screens_.Close(dialog); };
    Later(200, [&] { dialog.no.Press(); });
    screens_.RunModal(dialog);
    EXPECT_EQ(ShortLived::alive, 1) << "its handler is still running";
  };
  brief.Visible = true;
  brief.button.Press();
  Turn(30);
  EXPECT_EQ(ShortLived::alive, 0);
}

TEST_F(Forms, AWindowAndItsModelAgreeOnTheirPlace) {
  WorkForm& form = ShowWork();
  EXPECT_EQ(WindowOf(form)->pos(), QPoint(200, 200));
  EXPECT_EQ(WindowOf(form)->size(), QSize(642, 500));
  EXPECT_EQ(int(form.Left), 3000);

  Hands({"getactivewindow", "windowmove", "300", "260"});
  Turn(100);
  EXPECT_EQ(QPoint(form.Left, form.Top), WindowOf(form)->pos() * 15);
  EXPECT_NE(int(form.Left), 3000);

  form.Left = 1500;
  Turn(150);
  EXPECT_EQ(WindowOf(form)->pos().x(), 100);
  EXPECT_EQ(int(form.Left), 1500);
}

TEST_F(Forms, TheLastWindowEndsTheProcess) {
  ShowWork();
  QTimer::singleShot(50, [&] { Tap("alt+F4"); });
  QTimer lifeguard;
  lifeguard.callOnTimeout([] { QApplication::exit(9); });
  lifeguard.start(4000);
  EXPECT_EQ(QApplication::exec(), 0);
  EXPECT_EQ(screens_.Find<WorkForm>(), nullptr);
}

TEST_F(Forms, ChildFormsStandOnTheirOwnersAndCloseWithThem) {
  WorkForm& form = ShowWork();
  auto& brief = screens_.Use<ShortLived>(form);
  brief.Height = 0;
  brief.Visible = true;
  brief.timer.OnTimer = [&] { brief.Height = std::min(brief.Height + 150, 3000); };
  brief.BackColour = palette::kViolet;
  ASSERT_TRUE(Until([&] { return brief.Height == 3000; }));
  Turn(60);
  const QPoint inside = WindowOf(form)->mapToGlobal(QPoint(290, 290));
  EXPECT_EQ(Pixel(inside), ToQt(palette::kViolet));
  QTimer::singleShot(0, [&] { screens_.Close(form); });
  EXPECT_EQ(QApplication::exec(), 0);
  EXPECT_EQ(ShortLived::alive, 0);
}

TEST_F(Forms, AMessageBoxWaitsAndTakesTextAsItIs) {
  WorkForm& form = ShowWork();
  int ticks = 0;
  form.timer.OnTimer = [&] { ++ticks; };
  form.timer.Enabled = true;
  QtWindows windows;
  Later(300, [&] { Tap("Return"); });
  windows.ShowMessage(u"<b>Z:\\games\\" + Text(200, u'x') + u"</b>", u"Oops", BoxIcon::Critical);
  EXPECT_GE(ticks, 8);
  EXPECT_FALSE(windows.OpenAddress(u"no address"));
  EXPECT_EQ(windows.ScreenSize().Width, 1280 * 15);
}

}  // namespace
}  // namespace tarvo::test
