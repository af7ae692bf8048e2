#include <QEventLoop>
#include <QTimer>
#include <QWidget>
#include <chrono>
#include <ctime>

#include "Desk.h"
#include "assistant/PacDialogue.h"
#include "assistant/frmPac_Helper.h"
#include "desktop/QtWindows.h"
#include "state/Application.h"
#include "state/Shell.h"
#include "support/Fakes.h"

namespace tarvo::test {
namespace {

struct NoShell : Shell {
  void ShowStatus(TextView) override {}
  void TellAside(TextView) override {}
  void ShowMainMenu() override {}
  void ShowOptions() override {}
  void SettleGame() override {}
  void WorkScreenClosed() override {}
  void RunMessageTimer(bool) override {}
};

/// The assistant's window alone, on a real display and its real timer.
class AssistantOnDesk : public Desk {
 protected:
  AssistantOnDesk() {
    forms_.SetScreens(app_.screens);
    app_.shell = &shell_;
    app_.State.PacHelper = true;
  }

  /// Says a text and waits until the bubble opens.
  frmPac_Helper& Say(const Text& text) {
    dialogue_.PacMsg(text, Title::Information);
    auto& helper = app_.Screen<frmPac_Helper>();
    EXPECT_TRUE(Until([&] { return helper.lblPac_Label.Visible.Get(); }));
    return helper;
  }

  /// The share of a core that the process takes meanwhile.
  static double Share(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    const std::clock_t before = std::clock();
    loop.exec();
    return static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC / (milliseconds / 1000.0);
  }

  MemorySettings settings_;
  MemoryRegistry registry_;
  RecordingSound sound_;
  RecordingVideo video_;
  FixedLocale locale_;
  ScriptedClock clock_;
  QtWindows windows_;
  NoShell shell_;
  PacDialogue dialogue_{app_};
  Application app_{{files_, settings_, registry_, sound_, video_, locale_, clock_, windows_},
                   forms_,
                   dialogue_,
                   u"Z:"};
};

TEST_F(AssistantOnDesk, ATextOfFortyCharactersStandsTwoSeconds) {
  frmPac_Helper& helper = Say(Text(40, u'x'));
  const auto opened = std::chrono::steady_clock::now();
  EXPECT_TRUE(Until([&] { return !helper.lblPac_Label.Visible.Get(); }));
  const std::chrono::duration<double> stood = std::chrono::steady_clock::now() - opened;
  EXPECT_NEAR(stood.count(), 2.0, 0.2);
}

TEST_F(AssistantOnDesk, CostsLittleWhileItTalksAndNextToNothingWhileItStands) {
  frmPac_Helper& helper = Say(Text(200, u'x'));
  Turn(300);
  const double talking = Share(5000);
  helper.cmdStop_Talk.Press();
  Turn(300);
  const double standing = Share(5000);
  RecordProperty("talking", std::to_string(talking));
  RecordProperty("standing", std::to_string(standing));
  EXPECT_LT(talking, 0.02);
  EXPECT_LT(standing, 0.003);
}

TEST_F(AssistantOnDesk, ALongMessageStandsInFullInItsBubble) {
  Text path = u"Your ";
  for (int i = 0; i < 12; ++i) path += u"Z:\\games\\Bridge Commander\\";
  frmPac_Helper& helper = Say(path);
  EXPECT_GT(helper.lblPac_Label.Height, 1215);
  EXPECT_GE(helper.lblPac_Label.Height, forms_.TextHeight(helper.lblPac_Label));
  Turn(100);
  EXPECT_EQ(WindowOf(helper)->height() * 15, helper.Height.Get());
}

}  // namespace
}  // namespace tarvo::test
