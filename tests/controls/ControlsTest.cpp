#include <gtest/gtest.h>

#include "controls/Button.h"
#include "controls/ComboBox.h"
#include "controls/DirListBox.h"
#include "controls/DriveListBox.h"
#include "controls/FileListBox.h"
#include "controls/Frame.h"
#include "controls/MediaPlayer.h"
#include "controls/ProgressBar.h"
#include "controls/Screens.h"
#include "controls/Timer.h"
#include "platform/HostMachine.h"
#include "support/Fakes.h"
#include "support/TemporaryFolder.h"
#include "text/LetterCase.h"
#include "text/RaisedError.h"

namespace tarvo::test {
namespace {

struct CountingObserver : ControlObserver {
  void ControlChanged(Control&) override { ++changes; }
  void ControlRefreshed(Control&) override {}
  void ControlFocused(Control&) override {}
  int changes = 0;
};

TEST(MediaPlayer, OpensItsFileOnceAStart) {
  RecordingVideo video;
  MediaPlayer player(nullptr, video);
  int opened = 0;
  player.OnOpened = [&] { ++opened; };
  player.Open(1, 1);
  EXPECT_TRUE(video.Orders.empty()) << "not started";
  player.Start();
  player.Open(1, 1);
  player.Open(1, 1);
  ASSERT_EQ(video.Orders.size(), 1u);
  player.Stop();
  EXPECT_EQ(opened, 1) << "given up";
  const VideoPictures pictures = {std::make_shared<VideoPicture>()};
  video.Orders[0].Opened(pictures);
  EXPECT_TRUE(player.Pictures().empty());

  player.Start();
  player.Open(1, 1);
  ASSERT_EQ(video.Orders.size(), 2u);
  video.Orders[1].Opened(pictures);
  player.Open(1, 1);
  EXPECT_EQ(video.Orders.size(), 2u);
  EXPECT_EQ(player.Pictures(), pictures);
  EXPECT_EQ(opened, 2);
  player.Stop();
  EXPECT_TRUE(player.Pictures().empty());
  EXPECT_EQ(opened, 2);
}

TEST(ProgressBar, RefusesWhatIsOutsideItsRangeAndKeepsItsState) {
  ProgressBar bar(nullptr);
  bar.SetRange(1, 10, 1);
  EXPECT_THROW(bar.SetRange(0, 0, 0), RaisedError);
  EXPECT_THROW(bar.SetRange(1, 1, 1), RaisedError);
  EXPECT_THROW(bar.SetRange(1, 5, 6), RaisedError);
  EXPECT_THROW(bar.SetValue(0), RaisedError);
  EXPECT_THROW(bar.SetValue(11), RaisedError);
  EXPECT_EQ(bar.Max(), 10);
  EXPECT_EQ(bar.Value(), 1);
  bar.SetValue(10);
  EXPECT_EQ(bar.Value(), 10);
}

TEST(Controls, TellTheirObserverOnlyOfRealChanges) {
  Button button(nullptr);
  CountingObserver observer;
  button.Observe(&observer);
  button.Caption = u"x";
  button.Caption = u"x";
  button.Enabled = true;
  EXPECT_EQ(observer.changes, 1);
}

TEST(Controls, AreUsableOnlyWithAllTheyStandOn) {
  Frame frame(nullptr);
  Button button(&frame);
  int clicks = 0;
  button.OnClick = [&] { ++clicks; };
  button.Press();
  frame.Enabled = false;
  button.Press();
  frame.Enabled = true;
  frame.Visible = false;
  button.Press();
  EXPECT_EQ(clicks, 1);
}

TEST(Timer, TicksOnlyWhileEnabled) {
  Timer timer(nullptr, 15);
  int ticks = 0;
  timer.OnTimer = [&] { timer.Enabled = ++ticks < 2; };
  for (int i = 0; i < 5; ++i) timer.Tick();
  EXPECT_EQ(ticks, 2);
}

TEST(ListBox, ToggleListTogglesAndSingleListMoves) {
  ListBox toggle(nullptr, ListBox::Selection::Toggle);
  ListBox single(nullptr, ListBox::Selection::Single);
  for (ListBox* list : {&toggle, &single}) {
    for (const TextView item : {u"a", u"b", u"c"}) list->Add(Text(item));
    list->Click(0);
    list->Click(2);
  }
  EXPECT_TRUE(toggle.Selected(0) && toggle.Selected(2));
  EXPECT_TRUE(!single.Selected(0) && single.Selected(2));
  toggle.Click(2);
  EXPECT_FALSE(toggle.Selected(2));
  single.RemoveAt(0);
  EXPECT_EQ(single.ListIndex(), 1);
  EXPECT_EQ(single.Item(1), u"c");
  single.RemoveAt(1);
  EXPECT_EQ(single.ListIndex(), -1);
  EXPECT_THROW(single.RemoveAt(7), std::out_of_range);
}

TEST(ComboBox, SettingTheTextRaisesChangeAndPickingRaisesClick) {
  ComboBox combo(nullptr);
  int changes = 0;
  int clicks = 0;
  combo.OnChange = [&] { ++changes; };
  combo.OnClick = [&] { ++clicks; };
  combo.Add(u"one");
  combo.SetText(u"typed");
  combo.SetText(u"typed");
  combo.Pick(0);
  EXPECT_EQ(combo.Text(), u"one");
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(clicks, 1);
  combo.Clear();
  EXPECT_EQ(combo.Text(), u"");
}

class FolderLists : public testing::Test {
 protected:
  void Make(TextView below) { files->MakeFolder(root + Text(below)); }
  TemporaryFolder folder;
  std::unique_ptr<Files> files = OpenFiles(folder.Host("journal"));
  Text root = folder.Game();
  Text drive = root.substr(0, 2);
};

TEST_F(FolderLists, DirListShowsParentsThenSubfoldersAndRefusesWhatIsMissing) {
  Make(u"\\Zeta");
  Make(u"\\alpha");
  Make(u"\\alpha\\inner");
  DirListBox list(nullptr, *files);
  int changes = 0;
  list.OnChange = [&] { ++changes; };
  list.SetPath(root + u"\\");
  EXPECT_EQ(list.Path(), root);
  const std::size_t open = list.Rows().size() - 2;
  EXPECT_EQ(list.Rows()[0].Path, drive + u"\\");
  EXPECT_EQ(list.Rows()[open - 1].Path, root);
  EXPECT_EQ(list.Rows()[open].Name, u"alpha");
  EXPECT_EQ(list.Rows()[open].Depth, list.Rows()[open - 1].Depth + 1);
  list.OpenRow(open);
  EXPECT_EQ(list.Rows().back().Path, root + u"\\alpha\\inner");
  EXPECT_THROW(list.SetPath(root + u"\\missing"), RaisedError);
  EXPECT_THROW(list.SetPath(u""), RaisedError);
  EXPECT_EQ(list.Path(), root + u"\\alpha");
  EXPECT_EQ(changes, 2);
  list.SetPath(drive + u"\\");
  EXPECT_EQ(list.Path(), drive + u"\\");
  EXPECT_EQ(list.Rows()[0].Path, drive + u"\\");
  EXPECT_EQ(list.Rows()[1].Depth, 1);
}

TEST_F(FolderLists, TheUserComesToRowsOfADirListWithoutOpeningThem) {
  Make(u"\\alpha");
  Make(u"\\zeta");
  DirListBox list(nullptr, *files);
  EXPECT_EQ(list.ListedFolder(), u"");
  list.GoUp();
  list.SetPath(root);
  const auto folder = static_cast<std::size_t>(list.ListIndex());
  EXPECT_EQ(list.ListedFolder(), root);
  int clicks = 0;
  list.OnClick = [&] { ++clicks; };
  list.Click(folder + 2);
  EXPECT_EQ(list.ListedFolder(), root + u"\\zeta");
  EXPECT_EQ(list.Path(), root);
  EXPECT_THROW(list.Click(folder + 3), std::out_of_range);
  list.GoUp();
  EXPECT_EQ(list.ListedFolder(), root);
  EXPECT_EQ(clicks, 2);
  list.GoUp();
  EXPECT_EQ(list.Path(), list.Rows()[folder - 1].Path);
  EXPECT_EQ(list.ListedFolder(), list.Path());
  while (list.ListIndex() > 0) list.GoUp();
  EXPECT_EQ(list.Path(), drive + u"\\");
  list.GoUp();
  EXPECT_EQ(list.Path(), drive + u"\\");
}

TEST_F(FolderLists, FileListShowsItsFolderAsOfTheLastRefresh) {
  files->MakeEmptyFile(root + u"\\b.TARVO");
  files->MakeEmptyFile(root + u"\\A.Tarvo");
  files->MakeEmptyFile(root + u"\\c.txt");
  FileListBox list(nullptr, *files, ListBox::Selection::Toggle, u"*.Tarvo");
  list.SetPath(root);
  ASSERT_EQ(list.Count(), 2u);
  EXPECT_EQ(list.Item(0), u"A.Tarvo");
  list.SetSelected(0, true);
  files->Remove(root + u"\\b.tarvo");
  EXPECT_EQ(list.Count(), 2u);
  list.Reload();
  EXPECT_EQ(list.Count(), 1u);
  EXPECT_FALSE(list.Selected(0));
  EXPECT_THROW(list.SetPath(root + u"\\missing"), RaisedError);
  EXPECT_EQ(list.Path(), root);
}

TEST_F(FolderLists, DriveListRefusesDrivesThatTheMachineLacks) {
  DriveListBox list(nullptr, *files);
  EXPECT_EQ(list.Drive(), files->Drives().front());
  list.SetDrive(FoldCase(drive));
  EXPECT_THROW(list.SetDrive(u"Q:"), RaisedError);
  EXPECT_THROW(list.SetDrive(u""), RaisedError);
  EXPECT_EQ(list.Drive(), drive);
}

struct QuietHost : FormHost {
  void Made(Form&) override {}
  void RunModal(Form&) override {}
  void Closed(Form& form) override { closed.push_back(&form); }
  void Quit() override {}
  std::vector<Form*> closed;
};

struct LoggingForm : Form {
  explicit LoggingForm(std::string& journal) : Form(Style::Window, nullptr), log(journal) {}
  ~LoggingForm() override { log += "gone "; }
  void Load() override { log += "load "; }
  void Unload() override { log += "unload "; }
  std::string& log;
};

TEST(Screens, FormExistsOnceAndStartsAfreshAfterItWasClosed) {
  QuietHost host;
  std::string log;
  Screens screens(host);
  EXPECT_EQ(screens.Find<LoggingForm>(), nullptr);
  auto& first = screens.Use<LoggingForm>(log);
  EXPECT_EQ(&screens.Use<LoggingForm>(log), &first);
  screens.Close(first);
  screens.Close(first);
  EXPECT_EQ(screens.Find<LoggingForm>(), nullptr);
  screens.Use<LoggingForm>(log);
  EXPECT_EQ(log, "load unload load ");
  screens.DestroyClosed();
  EXPECT_EQ(log, "load unload load gone ");
  EXPECT_EQ(host.closed, std::vector<Form*>{&first});
}

}  // namespace
}  // namespace tarvo::test
