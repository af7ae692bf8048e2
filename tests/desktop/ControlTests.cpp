#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QListView>
#include <QScrollBar>
#include <QWindow>
#include <utility>

#include "Desk.h"
#include "desktop/DirListBoxView.h"
#include "desktop/Skin.h"
#include "desktop/UndoKey.h"

namespace tarvo::test {
namespace {

using Controls = Desk;

TEST_F(Controls, ButtonsTakePointerSpaceEnterAndTheirKey) {
  WorkForm& form = ShowWork();
  int pressed = 0;
  form.go.OnClick = [&] { ++pressed; };
  Click(form.go);
  EXPECT_EQ(pressed, 1);
  Key("space");
  EXPECT_EQ(pressed, 2) << "a click gives the keyboard";
  Key("Return");
  EXPECT_EQ(pressed, 3);
  Key("Tab");
  Key("alt+g");
  EXPECT_TRUE(Until([&] { return pressed == 4; }));

  form.go.Enabled = false;
  Turn(30);
  Click(form.go);
  Key("alt+g");
  Turn(150);
  EXPECT_EQ(pressed, 4);
}

TEST_F(Controls, ASwitchedOffFormTakesNoInputAndThenGoesOnWhereItWas) {
  WorkForm& form = ShowWork();
  int pressed = 0;
  form.go.OnClick = [&] { ++pressed; };
  form.stop.SetFocus();
  form.CancelButton = &form.go;
  Turn(30);
  form.Enabled = false;
  Turn(30);
  Click(form.go);
  ClickRow(form.found, 1);
  Key("Escape");
  Key("alt+F4");
  EXPECT_EQ(pressed, 0);
  EXPECT_FALSE(form.found.Selected(1));
  EXPECT_TRUE(screens_.IsOpen(form));

  form.Enabled = true;
  Turn(30);
  const auto* focused = qobject_cast<QAbstractButton*>(QApplication::focusWidget());
  ASSERT_TRUE(focused);
  EXPECT_EQ(focused->text(), "Stop");
  EXPECT_EQ(focused->accessibleName(), "Stop the work");
}

TEST_F(Controls, AListScrollsToTheRowThatItIsToShow) {
  WorkForm& form = ShowWork();
  for (int i = 0; i < 40; ++i) form.single.Add(u"more");
  Turn(40);
  auto* list =
      qobject_cast<QListView*>(QApplication::widgetAt(Middle(form.single))->parentWidget());
  ASSERT_TRUE(list);
  EXPECT_EQ(list->verticalScrollBar()->value(), 0) << "rows alone scroll nothing";
  form.single.BringIntoSight(form.single.Add(u"last"));
  Turn(40);
  EXPECT_EQ(list->verticalScrollBar()->value(), list->verticalScrollBar()->maximum());
  list->verticalScrollBar()->setValue(0);
  form.single.Add(u"behind it");
  Turn(40);
  EXPECT_EQ(list->verticalScrollBar()->value(), 0) << "once is enough";
}

TEST_F(Controls, EscapeGoesToADropDownThatIsOpenBeforeTheForm) {
  WorkForm& form = ShowWork();
  int left = 0;
  form.stop.OnClick = [&] { ++left; };
  form.CancelButton = &form.stop;
  form.types.SetFocus();
  Turn(30);
  Key("alt+Down");
  ASSERT_TRUE(Until([&] { return QApplication::activePopupWidget(); }));
  Key("Escape");
  ASSERT_TRUE(Until([&] { return !QApplication::activePopupWidget(); }));
  EXPECT_EQ(left, 0);
  int expected = 0;
  for (Control* control : std::initializer_list<Control*>{&form.types, &form.line, &form.folders,
                                                          &form.found, &form.tick, &form.go}) {
    control->SetFocus();
    Turn(30);
    Key("Escape");
    EXPECT_EQ(left, ++expected);
  }
}

TEST_F(Controls, AStrokeIsNoRepetitionWhereTheSystemMissedThatTheKeyWasLetGo) {
  WorkForm& form = ShowWork();
  int pressed = 0;
  form.CancelButton = &form.stop;
  form.stop.OnClick = [&] { ++pressed; };
  const auto press = [&](int key, bool repetition) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, {}, repetition);
    QCoreApplication::sendEvent(WindowOf(form)->windowHandle(), &event);
    return pressed;
  };
  EXPECT_EQ(press(Qt::Key_Escape, false), 1);
  EXPECT_EQ(press(Qt::Key_Escape, true), 1) << "held";
  press(Qt::Key_Tab, false);
  EXPECT_EQ(press(Qt::Key_Escape, true), 2) << "another key came between";
  Turn(1600);
  EXPECT_EQ(press(Qt::Key_Escape, true), 3) << "no key is repeated that late";
}

TEST_F(Controls, ADeepFolderIsIndentedAndTheFirstRowInSightIsWhole) {
  Text path = u"Z:\\games";
  for (const char16_t* name : {u"a", u"b", u"c", u"d", u"e", u"f", u"g", u"h"}) {
    path += u"\\" + Text(name);
    files_.Put(path + u"\\file", "");
  }
  WorkForm& form = ShowWork();
  form.folders.Width = 2100;
  form.folders.Height = 2110;
  form.folders.SetPath(path);
  Turn(60);
  QListView* list = nullptr;
  for (auto* each : WindowOf(form)->findChildren<QListView*>()) {
    if (dynamic_cast<FolderRows*>(each->model())) list = each;
  }
  ASSERT_TRUE(list);
  const QModelIndex first = list->indexAt({2, 2});
  EXPECT_GT(first.row(), 0);
  EXPECT_EQ(list->visualRect(first).top(), 0);

  const QImage shown = list->viewport()->grab().toImage();
  int before = 0;
  for (int row = first.row(); row < form.folders.ListIndex(); ++row) {
    const int middle = list->visualRect(first.siblingAtRow(row)).center().y();
    int mark = 0;
    while (mark < shown.width() && shown.pixelColor(mark, middle).lightness() < 60) ++mark;
    EXPECT_GT(mark, before) << row;
    before = mark;
  }
}

TEST_F(Controls, TheFormHearsEscapeAndCtrlZFirst) {
  const UndoKey undo([&](bool typed) { return forms_.Undo(typed); });
  WorkForm& form = ShowWork();
  int left = 0;
  form.stop.OnClick = [&] { ++left; };
  form.CancelButton = &form.stop;
  bool holds = true;
  form.OnEscape = [&] { return std::exchange(holds, false); };
  bool takes = false;
  std::vector<bool> typed;
  form.OnUndo = [&](bool can) {
    typed.push_back(can);
    return takes;
  };
  Key("Escape");
  EXPECT_EQ(left, 0);
  Key("Escape");
  EXPECT_EQ(left, 1);
  form.line.SetText({});
  form.line.SetFocus();
  Turn(30);
  Key("ctrl+z");
  Key("x");
  takes = true;
  Key("ctrl+z");
  EXPECT_EQ(form.line.Text(), u"x");
  takes = false;
  Key("ctrl+z");
  EXPECT_EQ(form.line.Text(), u"");
  EXPECT_EQ(typed, (std::vector<bool>{false, true, true}));
}

TEST_F(Controls, ToggleListsToggle) {
  WorkForm& form = ShowWork();
  int clicks = 0;
  form.found.OnClick = [&] { ++clicks; };
  ClickRow(form.found, 1);
  ClickRow(form.found, 2);
  EXPECT_TRUE(form.found.Selected(1) && form.found.Selected(2));
  ClickRow(form.found, 2, 2);
  EXPECT_TRUE(form.found.Selected(2)) << "two quick clicks are two";
  EXPECT_EQ(clicks, 4);

  Key("Up");
  Key("Up");
  EXPECT_EQ(clicks, 4) << "walking chooses nothing";
  Key("space");
  EXPECT_TRUE(form.found.Selected(0));
  EXPECT_TRUE(form.found.Selected(1)) << "other rows stay as they are";
}

TEST_F(Controls, SingleListsChooseByPointerAndByWalking) {
  WorkForm& form = ShowWork();
  ClickRow(form.single, 2);
  EXPECT_EQ(form.single.ListIndex(), 2);
  Key("Up");
  EXPECT_EQ(form.single.ListIndex(), 1);
  EXPECT_TRUE(form.single.Selected(1) && !form.single.Selected(2));
}

TEST_F(Controls, ALongListStaysWhereTheUserIs) {
  WorkForm& form = ShowWork();
  for (int row = 0; row < 5000; ++row) form.single.Add(u"row");
  form.single.SetFocus();
  Turn(60);
  const auto lists = WindowOf(form)->findChildren<QListView*>();
  const auto list = std::find_if(lists.begin(), lists.end(), [](const QListView* candidate) {
    return candidate->model() && candidate->model()->rowCount() == 5003;
  });
  ASSERT_NE(list, lists.end());
  QScrollBar& bar = *(*list)->verticalScrollBar();
  bar.setValue(bar.maximum() / 2);
  const int place = bar.value();
  ClickRow(form.single, 3);
  EXPECT_GT(form.single.ListIndex(), 2000);
  EXPECT_NEAR(bar.value(), place, 30);
  const int chosen = form.single.ListIndex();
  const int then = bar.value();
  form.single.Add(u"one more");
  Turn(30);
  EXPECT_EQ(bar.value(), then);
  EXPECT_EQ((*list)->currentIndex().row(), chosen);
  form.single.Clear();
  for (int row = 0; row < 4000; ++row) form.single.Add(u"other");
  Turn(30);
  EXPECT_EQ(bar.value(), 0) << "new rows begin at their top";
}

TEST_F(Controls, FoldersOpenByDoubleClickAndEnterOnly) {
  WorkForm& form = ShowWork();
  int entered = 0;
  form.go.OnClick = [&] { ++entered; };
  form.DefaultButton = &form.go;
  // Z:\, games, data, scripts, sfx
  ClickRow(form.folders, 3);
  EXPECT_EQ(form.folders.Path(), u"Z:\\games");
  ClickRow(form.folders, 3, 2);
  EXPECT_EQ(form.folders.Path(), u"Z:\\games\\scripts");
  Key("Down");
  Key("Return");
  EXPECT_EQ(form.folders.Path(), u"Z:\\games\\scripts\\Custom");
  EXPECT_EQ(entered, 0);
}

TEST_F(Controls, FoldersAreWalkedByKeysAlone) {
  WorkForm& form = ShowWork();
  form.folders.SetFocus();
  Turn(60);
  struct Case {
    const char* key;
    TextView folder, listed;
  };
  for (const Case& c :
       {Case{"Down", u"Z:\\games", u"Z:\\games\\data"}, Case{"Left", u"Z:\\games", u"Z:\\games"},
        Case{"s", u"Z:\\games", u"Z:\\games\\scripts"},
        Case{"Right", u"Z:\\games\\scripts", u"Z:\\games\\scripts"},
        Case{"BackSpace", u"Z:\\games", u"Z:\\games"}, Case{"BackSpace", u"Z:\\", u"Z:\\"},
        Case{"Left", u"Z:\\", u"Z:\\"}, Case{"End", u"Z:\\", u"Z:\\games"},
        Case{"Return", u"Z:\\games", u"Z:\\games"}}) {
    Key(c.key);
    EXPECT_EQ(form.folders.Path(), c.folder) << c.key;
    EXPECT_EQ(form.folders.ListedFolder(), c.listed) << c.key;
  }
}

TEST_F(Controls, ACheckBoxIsTickedOnItsSquareOnItsCaptionAndBySpace) {
  WorkForm& form = ShowWork();
  std::vector<bool> ticks;
  form.tick.OnClick = [&] { ticks.push_back(form.tick.Checked); };
  Click(form.tick, {-88, 0});
  Click(form.tick, {-50, 0});
  Key("space");
  EXPECT_EQ(ticks, (std::vector<bool>{true, false, true}));
  QAccessibleInterface* box = QAccessible::queryAccessibleInterface(QApplication::focusWidget());
  ASSERT_TRUE(box);
  EXPECT_EQ(box->role(), QAccessible::CheckBox);
  EXPECT_EQ(box->text(QAccessible::Name), "Tick me");
  EXPECT_TRUE(box->state().checked);
}

TEST_F(Controls, DrivesDropDown) {
  WorkForm& form = ShowWork();
  Click(form.drive);
  Turn(250);
  Key("Down");
  Key("Return");
  EXPECT_EQ(form.drive.Drive(), u"Z:");
}

TEST_F(Controls, AComboBoxTellsTypingFromPicking) {
  WorkForm& form = ShowWork();
  std::vector<Text> typed;
  int picked = 0;
  int entered = 0;
  form.types.OnChange = [&] { typed.push_back(form.types.Text()); };
  form.types.OnClick = [&] { ++picked; };
  form.go.OnClick = [&] { ++entered; };
  form.DefaultButton = &form.go;
  Click(form.types, {-40, 0});
  Hands({"type", "--delay", "30", "Ship"});
  EXPECT_EQ(typed, (std::vector<Text>{u"S", u"Sh", u"Shi", u"Ship"}));
  Key("Return");
  EXPECT_EQ(entered, 1);
  EXPECT_EQ(picked, 0) << "an item that was typed isn't picked";

  Key("alt+Down");
  Turn(250);
  Key("Down");
  Key("Return");
  EXPECT_EQ(picked, 1);
  EXPECT_EQ(form.types.Text(), u"Sound");
  EXPECT_EQ(entered, 1) << "Enter belonged to the open list";

  form.types.OnDropDown = [&] { form.types.Add(u"Last"); };
  Key("alt+Down");
  Turn(250);
  Key("End");
  Key("Return");
  EXPECT_EQ(form.types.Text(), u"Last") << "the list shows what its opening brought";
}

TEST_F(Controls, TextBoxesTakeTypingAndShowWhatTheRoutineMadeOfIt) {
  WorkForm& form = ShowWork();
  form.line.OnChange = [&] {
    Text text = form.line.Text();
    std::erase(text, u'/');
    form.line.SetText(text);
  };
  Click(form.line);
  Hands({"type", "--delay", "30", "a/b"});
  EXPECT_EQ(form.line.Text(), u"ab");
  Hands({"type", "c"});
  EXPECT_EQ(form.line.Text(), u"abc");
}

TEST_F(Controls, AMarkIsSeenAndHeardAsLongAsItStands) {
  WorkForm& form = ShowWork();
  form.go.Hint = u"It <goes>";
  for (Control* field : std::initializer_list<Control*>{&form.line, &form.types}) {
    field->AccessibleName = u"Field";
    Turn(40);
    QWidget* face = QApplication::widgetAt(Middle(*field));
    while (face->accessibleName() != "Field") face = face->parentWidget();
    const QImage bare = face->grab().toImage();
    field->Mark(u"Not <this>");
    Turn(40);
    EXPECT_NE(face->grab().toImage(), bare);
    EXPECT_EQ(face->accessibleName(), "Field: Not <this>");
    EXPECT_EQ(face->toolTip(), "<p>Not &lt;this&gt;</p>");
    field->Mark({});
    Turn(40);
    EXPECT_EQ(face->grab().toImage(), bare);
    EXPECT_EQ(face->accessibleName() + face->toolTip(), "Field");
  }
  EXPECT_EQ(QApplication::widgetAt(Middle(form.go))->accessibleName(), "Go: It <goes>");
}

TEST(TextBridge, KeepsEveryUnit) {
  for (const Text& text : {Text(u"\uFEFFx"), Text(u"\uFFFEx"), Text{u'a', 0, u'b'},
                           Text{u'a', char16_t{0xDC80}, u'b'}, Text()}) {
    EXPECT_EQ(FromQt(ToQt(text)), text);
  }
}

}  // namespace
}  // namespace tarvo::test
