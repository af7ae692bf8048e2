#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QWidget>

#include "Desk.h"
#include "controls/RowPanel.h"
#include "desktop/Skin.h"

namespace tarvo::test {
namespace {

/// A window with a panel of rows behind a frame of eight rows' height, a held arrow and a report.
class PanelForm : public Form {
 public:
  PanelForm() : Form(Style::Window, nullptr) {
    Caption = u"Panel";
    Move(3000, 3000, 9000, 6000);
    window.Move(300, 300, 2400, 2880);
    panel.Move(0, 120, 2400, 120);
    panel.AccessibleName = u"Menus";
    for (int i = 0; i < 3; ++i) Add(RowPanel::Family::Menu, u"menu");
    arrow.Move(3000, 300, 600, 450);
    arrow.Glyph = Button::Arrow::Up;
    arrow.BackColour = palette::kPeach;
    report.Move(4000, 300, 4500, 1500);
    report.MultiLine = true;
    report.ReadOnly = true;
    report.ForeColour = palette::kPeach;
    arrow.OnPress = [this] { ++held; };
    arrow.OnRelease = [this] { ++released; };
    panel.OnCaptionClick = [this](RowPanel::Place place) { captions.push_back(place); };
    panel.OnPictureClick = [this](RowPanel::Place place) { pictures.push_back(place); };
    panel.OnPointer = [this](RowPanel::Place place) {
      pointed.push_back(static_cast<int>(place.Index));
    };
    panel.OnPointerFree = [this] { pointed.push_back(-1); };
  }

  void Add(RowPanel::Family kind, TextView caption) {
    const int top = 360 * static_cast<int>(panel.InOrder().size());
    panel.Edit(kind).push_back({.Caption = Text(caption),
                                .PictureArea = {120, top, 2160, 270},
                                .CaptionArea = {480, top, 1500, 240},
                                .Visible = true});
    panel.Height = top + 480;
  }

  Frame window{this};
  RowPanel panel{&window, 120};
  Button arrow{this};
  TextBox report{this};

  int held = 0, released = 0;
  std::vector<RowPanel::Place> captions, pictures;
  std::vector<int> pointed;  ///< Numbers of rows, -1 for the free part.
};

class Panels : public Desk {
 protected:
  PanelForm& Show() {
    Hands({"mousemove", "0", "0"});
    auto& form = screens_.Use<PanelForm>();
    form.Visible = true;
    EXPECT_TRUE(Until([&] { return WindowOf(form) && WindowOf(form)->isActiveWindow(); }));
    Turn(100);
    return form;
  }

  /// A point of the panel on the screen.
  QPoint At(const RowPanel& panel, int left, int top) {
    const QSize size = PixelRect(panel).size();
    return Middle(panel) - QPoint(size.width() / 2, size.height() / 2) +
           QPoint(ToPixels(left), ToPixels(top));
  }
  static QStringList MoveTo(QPoint at) {
    return {"mousemove", QString::number(at.x()), QString::number(at.y())};
  }
  static QStringList ClickAt(QPoint at) {
    return MoveTo(at) << "click"
                      << "1";
  }

  static QWidget* FaceOf(const QWidget& window) {
    for (QWidget* widget : window.findChildren<QWidget*>()) {
      if (widget->accessibleName() == "Menus") return widget;
    }
    return nullptr;
  }
};

using Place = RowPanel::Place;
constexpr auto kMenu = RowPanel::Family::Menu;
constexpr auto kShip = RowPanel::Family::Ship;

TEST_F(Panels, TellClicksOnTheCaptionFromThoseBesideIt) {
  PanelForm& form = Show();
  Hands(ClickAt(At(form.panel, 600, 360 + 120)));
  Hands(ClickAt(At(form.panel, 200, 720 + 120)));
  Hands(ClickAt(At(form.panel, 600, 720 + 315)));  // Between the rows.
  EXPECT_EQ(form.captions, (std::vector<Place>{{kMenu, 1}}));
  EXPECT_EQ(form.pictures, (std::vector<Place>{{kMenu, 2}}));
}

TEST_F(Panels, ThePointerCrossesTheFreePartBetweenTwoRowsHoweverFast) {
  PanelForm& form = Show();
  Hands(MoveTo(At(form.panel, 600, 120)));
  Hands(MoveTo(At(form.panel, 700, 120)));
  Hands(MoveTo(At(form.panel, 600, 720 + 120)));
  Hands(MoveTo(At(form.panel, 600, 720 + 315)));
  Hands(MoveTo(At(form.panel, 600, 120)));
  Hands({"mousemove", "0", "0"});
  EXPECT_EQ(form.pointed, (std::vector<int>{0, -1, 2, -1, 0, -1}));
}

TEST_F(Panels, TheKeyboardWalksTheRowsInTheOrderOfTheScreen) {
  PanelForm& form = Show();
  // Two ships between the first menu and the second.
  for (std::size_t i : {1, 2}) form.panel.Edit(kMenu)[i].MoveBy(720);
  for (const int top : {720, 360}) {
    form.Add(kShip, top == 360 ? u"upper" : u"lower");
    RowPanel::Row& row = form.panel.Edit(kShip).back();
    row.MoveBy(top - row.PictureArea.Top);
  }
  form.panel.SetFocus();
  Turn(60);
  Key("Down");
  Key("space");
  Key("Down");
  Key("Return");
  Key("Home");
  Key("Right");
  Key("Left");  // It is closed: nothing to close.
  EXPECT_EQ(form.captions, (std::vector<Place>{{kShip, 1}, {kShip, 0}, {kMenu, 0}}));
}

TEST_F(Panels, ScreenReadersSeeTheRowsAsATree) {
  ShowWork();  // With the last window the program would end.
  PanelForm& form = Show();
  form.Add(kShip, u"Warbird");
  form.panel.Edit(kMenu)[1].Shown = RowPanel::Picture::MenuOpen;
  form.panel.ChosenShip = 0;
  form.panel.SetFocus();
  Turn(60);
  QAccessibleInterface* tree = QAccessible::queryAccessibleInterface(FaceOf(*WindowOf(form)));
  ASSERT_TRUE(tree);
  EXPECT_EQ(tree->role(), QAccessible::Tree);
  EXPECT_EQ(tree->text(QAccessible::Name), "Menus");
  ASSERT_EQ(tree->childCount(), 4);
  QAccessibleInterface* ship = tree->child(3);
  EXPECT_EQ(ship->text(QAccessible::Name), "Warbird");
  EXPECT_TRUE(ship->state().selected && !ship->state().focused);
  EXPECT_TRUE(tree->child(1)->state().expanded && tree->child(2)->state().collapsed);
  EXPECT_EQ(tree->focusChild(), tree->child(0));
  EXPECT_EQ(tree->indexOfChild(ship), 3);
  const QPoint middle = At(form.panel, 600, 3 * 360 + 120);
  EXPECT_EQ(tree->childAt(middle.x(), middle.y()), ship);
  ship->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(form.captions, (std::vector<Place>{{kShip, 0}}));

  form.panel.Edit(kShip).clear();
  EXPECT_FALSE(ship->isValid());
  ship->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  screens_.Close(form);
  EXPECT_FALSE(ship->isValid());
  Turn(40);
}

TEST_F(Panels, KeysThatComeBeforeARedrawMeetTheRowsThatAreThere) {
  PanelForm& form = Show();
  form.Add(kShip, u"ship");
  form.panel.SetFocus();
  Turn(60);
  Key("End");
  QWidget* face = FaceOf(*WindowOf(form));
  form.panel.Edit(kShip).clear();
  for (const int key : {Qt::Key_Space, Qt::Key_Down, Qt::Key_Left}) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(face, &press);
  }
  EXPECT_EQ(form.captions, (std::vector<Place>{{kMenu, 2}}));
}

TEST_F(Panels, WheelAndKeyboardScrollNoFurtherThanThereAreRows) {
  PanelForm& form = Show();
  for (int i = 0; i < 2000; ++i) form.Add(kShip, u"ship");
  Turn(60);
  Hands(MoveTo(At(form.panel, 600, 120)));
  Hands({"click", "5"});
  EXPECT_EQ(form.panel.Top, 120 - 3 * 360);
  Hands({"click", "--repeat", "3", "4"});
  EXPECT_EQ(form.panel.Top, 120);

  form.panel.SetFocus();
  Key("End");
  const int bottom = form.window.Height - form.panel.Height;
  EXPECT_NEAR(form.panel.Top, bottom, 240);
  Hands({"click", "5"});
  EXPECT_EQ(form.panel.Top, bottom);
  // Far below the rows are drawn where they are clicked.
  Hands({"mousemove", "0", "0"});
  Turn(60);
  const QPoint row = Middle(form.window) + QPoint(40, 0);
  Hands(ClickAt(row));
  ASSERT_EQ(form.captions.size(), 1u);
  EXPECT_GT(form.captions[0].Index, 1980u);
  Key("Home");
  EXPECT_EQ(form.panel.Top, 0) << "no further than the row needs";
}

TEST_F(Panels, RowsShowTheirStates) {
  PanelForm& form = Show();
  const auto at = [&] { return Pixel(At(form.panel, 2100, 120)); };
  using Picture = RowPanel::Picture;
  std::vector<QRgb> seen;
  for (const Picture picture :
       {Picture::MenuClosed, Picture::MenuOpen, Picture::Ship, Picture::ShipSelected}) {
    form.panel.Edit(kMenu)[0].Shown = picture;
    Turn(40);
    seen.push_back(at().rgb());
    EXPECT_GT(at().lightness(), 120);
  }
  std::sort(seen.begin(), seen.end());
  EXPECT_EQ(std::unique(seen.begin(), seen.end()), seen.end()) << "four colours";
  form.panel.Edit(kMenu)[0].CaptionColour = kWhite;
  Turn(40);
  EXPECT_LT(at().lightness(), 120) << "a white caption has a dark ground";
}

TEST_F(Panels, TheKeyboardLightsItsRowAndThePointerDoesNot) {
  PanelForm& form = Show();
  form.panel.FocusColour = kWhite;
  form.panel.SetFocus();
  const auto light = [&] { return Pixel(At(form.panel, 2100, 120)).lightness(); };
  Key("Down");
  Turn(40);
  const int atRest = light();
  Key("Up");
  EXPECT_TRUE(Until([&] { return light() < atRest - 20; })) << "darker, under a white caption";
  Hands(ClickAt(At(form.panel, 600, 120)));
  EXPECT_TRUE(Until([&] { return light() == atRest; }));
}

TEST_F(Panels, TheRowOfTheKeyboardStaysInSightWhenRowsGo) {
  PanelForm& form = Show();
  for (int i = 0; i < 30; ++i) form.Add(kShip, u"ship");
  form.panel.SetFocus();
  Turn(60);
  Key("End");
  form.panel.Edit(kShip).resize(12);
  Turn(60);
  const RowPanel::Row& last = form.panel.Rows(kShip).back();
  EXPECT_GE(form.panel.Top + last.PictureArea.Top, 0);
}

TEST_F(Panels, AnArrowIsHeldByMouseAndKeys) {
  PanelForm& form = Show();
  const QPoint at = Middle(form.arrow);
  Hands(MoveTo(at) << "mousedown"
                   << "1");
  EXPECT_TRUE(form.held == 1 && form.released == 0);
  Hands({"mousemove", "0", "0"});
  EXPECT_EQ(form.released, 1) << "the pointer has left it";
  Hands({"mouseup", "1"});
  EXPECT_TRUE(form.held == 1 && form.released == 1);
  int count = 1;
  for (const char* key : {"space", "Return"}) {
    Hands({"keydown", key});
    Turn(900);  // It repeats.
    EXPECT_EQ(form.held, ++count) << key;
    EXPECT_EQ(form.released, count - 1) << key;
    Hands({"keyup", key});
    EXPECT_EQ(form.released, count) << key;
  }
}

TEST_F(Panels, AnArrowThatIsTakenAwayComesUp) {
  PanelForm& form = Show();
  Hands(MoveTo(Middle(form.arrow)) << "mousedown"
                                   << "1");
  form.Enabled = false;
  Turn(60);
  EXPECT_EQ(form.released, 1);
  Hands({"mouseup", "1"});
}

TEST_F(Panels, AReportCanBeReadAndScrolledButNotChanged) {
  PanelForm& form = Show();
  Text lines;
  for (int i = 0; i < 60; ++i) lines += u"a line\r\n";
  form.report.SetText(lines);
  Turn(40);
  auto* box = WindowOf(form)->findChild<QPlainTextEdit*>();
  ASSERT_TRUE(box);
  EXPECT_EQ(box->toPlainText().count('\n'), 60);
  Click(form.report);
  Hands({"type", "x"});
  EXPECT_EQ(form.report.Text(), lines);
  Hands({"key", "ctrl+End"});
  EXPECT_EQ(box->textCursor().blockNumber(), 60);

  form.report.ReadOnly = false;
  form.report.SetText(u"one\r\ntwo");
  Turn(40);
  Hands({"key", "ctrl+End", "Return"});
  Hands({"type", "x"});
  EXPECT_EQ(form.report.Text(), u"one\r\ntwo\r\nx");
}

}  // namespace
}  // namespace tarvo::test
