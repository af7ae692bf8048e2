#include "AssistantTesting.h"
#include "packages/frmPackager.h"
#include "shell/frmOptions.h"

namespace tarvo::test {
namespace {

using Figure = Assistant;

TEST_F(Figure, WalksInStopsAtItsPlaceAndStandsATextForItsLength) {
  for (const int width : {3510, 3630, 3511, 3512, 3600, 3601}) {
    SCOPED_TRACE(width);
    TestMachine own;
    AppState& st = own.app.State;
    st.PacHelper = true;
    auto& window = own.app.Screen<frmPac_Helper>();
    window.Width = width;
    const Text text(40, u'x');
    own.dialogue.PacMsg(text, Title::Information);
    EXPECT_TRUE(window.Visible);
    const float stop = static_cast<float>(width) / 2 - 501;
    int walked = 0;
    for (; !window.lblPac_Label.Visible && walked < 100; ++walked) own.Pass(40);
    EXPECT_EQ(walked, 31);
    EXPECT_EQ(st.PacX, stop);
    int stood = 0;
    for (; window.lblPac_Label.Visible && stood < 1000; ++stood) own.Pass(40);
    EXPECT_EQ(stood, 50);
    EXPECT_FALSE(window.Pacman_Animation_Timer.Enabled);
    // The next message opens the bubble on the spot.
    own.dialogue.PacMsg(u"more", Title::Information);
    own.Pass(40);
    EXPECT_TRUE(window.lblPac_Label.Visible);
    EXPECT_EQ(st.PacX, stop);
  }
}

TEST_F(Figure, SpeaksEachMessageOnceWithItsOwnFaceInTheOrderOfArrival) {
  Start();
  Settle();
  const std::vector<Speech> start = {
      {u"Hi There I'm Pac-Man!!!  I will help you with this Program!", u"talk"},
      {u"Click on the Make New Ship Plugin Button to Begin!!!", u"talk"}};
  EXPECT_EQ(heard, start);
  heard.clear();
  Say(u"one", Title::Critical);
  Say(u"two", Title::Warning);
  Say(u"three");
  Hear(40);
  Say(u"four", Title::Question);
  Hear(1500);  // "one" has been said, "two" is yet to come.
  Say(u"five", Title::Critical);
  Settle();
  const std::vector<Speech> all = {{u"one", u"criticalmad"},
                                   {u"two", u"sadmad"},
                                   {u"three", u"talk"},
                                   {u"four", u"sad"},
                                   {u"five", u"criticalmad"}};
  EXPECT_EQ(heard, all);
  EXPECT_EQ(helper->cmdStop_Talk.Picture.Get(), u":/assistant/critical.png");
}

TEST_F(Figure, ATickOfTheQueueWhileItWalksLeavesTheMessagesAsTheyAre) {
  Start();
  Say(u"grave", Title::Critical);
  Say(u"light");
  main->Timer_Buffer.Tick();
  main->Timer_Buffer.Tick();
  Settle();
  ASSERT_EQ(heard.size(), 4u);
  EXPECT_EQ(heard[1], (Speech{u"grave", u"criticalmad"}));
  EXPECT_EQ(heard[2], (Speech{u"light", u"talk"}));
}

TEST_F(Figure, AGraveMessageIsFollowedByAnAngrySpellUnlessItIsStopped) {
  StartAndSettle();
  const Text text(30, u'x');
  Say(text, Title::Critical);
  Hear(40 + 2 * 40 * 40);
  EXPECT_TRUE(helper->lblPac_Label.Visible);
  EXPECT_EQ(state.PacTitles[0], Title::Mad);
  Hear(40);
  EXPECT_FALSE(helper->lblPac_Label.Visible);
  EXPECT_EQ(helper->Pac_Helper.Picture.Get(), u":/assistant/mad8.png");

  Say(Text(2000, u'y'), Title::Warning);
  Hear(400);
  helper->cmdStop_Talk.Press();
  EXPECT_EQ(machine.sound.Orders.back().File, machine.ProgramFolder() + u"\\Sfx\\Click.wav");
  EXPECT_FALSE(helper->lblPac_Label.Visible);
  Hear(40);
  EXPECT_EQ(state.PacState, PacActivity::Idle);
}

TEST_F(Figure, AMessageThatIsBeingSaidIsNotQueuedAndAnEleventhIsLost) {
  StartAndSettle();
  Say(u"said");
  Hear(80);
  Say(u"said");
  for (int i = 0; i < 11; ++i) Say(Text(1, static_cast<char16_t>(u'a' + i)));
  EXPECT_EQ(state.PacQueue[9], u"j");
  EXPECT_EQ(state.PacQueue[10], u"");
  Settle();
  EXPECT_EQ(heard.size(), 11u);
  Say(u"j");  // Once its speech has ended the same text is spoken again.
  Settle();
  EXPECT_EQ(heard.size(), 12u);
}

TEST_F(Figure, FurtherStartsGreetAndRepeatNothingThatHasBeenSaid) {
  StartAndSettle();
  machine.dialogue.PacStart();
  Settle();
  EXPECT_THAT(Words(),
              testing::ElementsAre(u"Hi There I'm Pac-Man!!!  I will help you with this Program!"));
  heard.clear();
  // What is said just before is said first, from where the figure stands.
  Say(u"Your Settings have been saved!");
  machine.dialogue.PacStart();
  machine.Pass(40);
  EXPECT_TRUE(helper->lblPac_Label.Visible);
  Listen();
  Settle();
  EXPECT_EQ(heard.size(), 2u);
}

TEST_F(Figure, SaysGoodByeNextAndWalksOffWithWhatWaitedInTheStatusLine) {
  for (const int waiting : {0, 1, 3, 12}) {
    for (const int pause : {40, 2000}) {
      SCOPED_TRACE(testing::Message() << waiting << " messages, " << pause << " ms");
      StartAndSettle();
      main->ShowStatus({});
      for (int i = 0; i < waiting; ++i) {
        machine.dialogue.PacTip(u"A tip " + Text(1, static_cast<char16_t>(u'a' + i)),
                                PacTipOf::Program);
        Say(Text(5, static_cast<char16_t>(u'a' + i)));
      }
      Hear(pause);
      machine.app.screens.Find<frmMainMenu>()->lblExit.Press();
      EXPECT_FALSE(main->Visible);
      EXPECT_FALSE(machine.quit);
      EXPECT_EQ(state.PacQueue[1], u"") << "nothing waits behind the good-bye";
      for (int i = 0; i < 5000 && !machine.quit; ++i) Hear(40);
      EXPECT_TRUE(machine.quit);
      EXPECT_EQ(state.PacX, -999);
      EXPECT_LE(heard.size(), 3u);
      EXPECT_EQ(heard.back().Text, kGoodBye);
      Text told = main->StatusBar.Panel1;
      for (const Speech& speech : heard) told += speech.Text;
      for (int i = 0; i < waiting; ++i) {
        EXPECT_NE(told.find(Text(5, static_cast<char16_t>(u'a' + i))), Text::npos) << i;
      }
      machine.app.screens.Close(*main);
      machine.Turn();
      machine.quit = false;
      state = {};
      heard.clear();
    }
  }
}

TEST_F(Figure, GoesWithTheMainWindowAndLeavesItRunningWithoutItself) {
  StartAndSettle();
  machine.app.screens.Close(*helper);
  EXPECT_FALSE(machine.quit);
  EXPECT_EQ(state.PacX, -999);
  EXPECT_FALSE(state.PacHelper);
  Say(u"in a box");
  EXPECT_EQ(machine.boxes.back().Message, u"in a box");
  machine.app.screens.Close(*main);
  EXPECT_TRUE(machine.quit);
}

TEST_F(Figure, ClosedByHandEndsTheProcessAfterExitAndShowsWhatWaitedInBoxes) {
  StartAndSettle();
  Say(u"one");
  machine.dialogue.PacTip(u"A tip", PacTipOf::Program);
  Say(u"two", Title::Warning);
  machine.app.screens.Close(*helper);
  machine.Pass(4000);
  EXPECT_EQ(machine.boxes, (std::vector{TestMachine::Box{u"two", BoxIcon::Exclamation}}));

  machine.dialogue.PacStart();
  state.PacHelper = true;
  machine.dialogue.PacStart();
  Say(u"three");
  machine.app.screens.Find<frmMainMenu>()->lblExit.Press();
  EXPECT_FALSE(machine.quit);
  machine.app.screens.Close(machine.app.Screen<frmPac_Helper>());
  EXPECT_TRUE(machine.quit);
}

TEST_F(Figure, TellsWhatTheScreensAreForAsLongAsTheyAreOpen) {
  StartAndSettle();
  auto& menu = *machine.app.screens.Find<frmMainMenu>();
  menu.lblPackager.Press();
  machine.app.screens.Find<frmPackager>()->lblExit.Press();
  machine.Turn();
  menu.lblOptions.Press();
  machine.app.screens.Find<frmOptions>()->lblExit.Press();
  Settle();
  menu.lblTGLTools.Press();
  Settle();
  const std::vector<Speech> all = {{u"Create your Ship Mod Package here!!!", u"talk"},
                                   {u"Create a New ShipTGL on this Screen", u"talk"}};
  EXPECT_EQ(heard, all);
}

TEST_F(Figure, WindowStandsBesideTheMainOneWhichGivesWayOnASmallScreen) {
  struct Case {
    int screen, left, mainLeft, mainWidth;
  };
  for (const Case& c :
       {Case{19200, 1275, 4785, 9630}, Case{15360, 0, 3510, 9630}, Case{12000, 0, 3510, 8490}}) {
    SCOPED_TRACE(c.screen);
    TestMachine own;
    own.screen = {c.screen, 9000};
    frmMain& top = own.Start();
    auto& window = *own.app.screens.Find<frmPac_Helper>();
    EXPECT_FALSE(window.Visible);
    EXPECT_EQ(window.Left, c.left);
    EXPECT_EQ(window.Top, 750);
    EXPECT_EQ(top.Left, c.mainLeft);
    EXPECT_EQ(top.Width, c.mainWidth);
  }
}

TEST_F(Figure, BubbleGrowsForALongTextAndTheFigureStaysWhereItIs) {
  StartAndSettle();
  const int top = helper->Top, tall = helper->Height, foot = top + helper->Pac_Helper.Top;
  machine.textHeight = 1215 + 300;
  Say(u"long");
  Hear(80);
  EXPECT_EQ(helper->lblPac_Label.Height, 1515);
  EXPECT_EQ(helper->Top + helper->Pac_Helper.Top, foot);
  EXPECT_EQ(helper->Height, tall + 300);
  Settle();
  EXPECT_EQ(helper->Top, top);
  EXPECT_EQ(helper->Height, tall);
}

}  // namespace
}  // namespace tarvo::test
