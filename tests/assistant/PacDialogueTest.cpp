#include "AssistantTesting.h"

namespace tarvo::test {
namespace {

using Question = Assistant;

TEST_F(Question, WakesWhenTheFigureGetsToItAndIsAnsweredThen) {
  StartAndSettle();
  const int tall = helper->Height;
  machine.answers = {u"Yes", u"All", u"typed"};
  machine.onDialog = [&](frmPac_InputBox& dialog) {
    EXPECT_TRUE(dialog.cmdYes.Enabled) << "the figure was free";
    EXPECT_FALSE(main->Timer_Buffer.Enabled);
    EXPECT_EQ(dialog.Left, helper->Left + 50);
    EXPECT_EQ(dialog.Top, helper->Top + tall);
    EXPECT_EQ(helper->Height, tall + dialog.Height + 50);
    Hear(8000);
    EXPECT_TRUE(helper->lblPac_Label.Visible) << "the bubble stands as long as the dialog";
  };
  EXPECT_EQ(machine.dialogue.PacInput(u"Sure?", Title::Question), u"Yes");
  machine.Turn();
  EXPECT_FALSE(helper->lblPac_Label.Visible);
  EXPECT_TRUE(main->Timer_Buffer.Enabled);
  EXPECT_EQ(helper->Height, tall);
  EXPECT_EQ(machine.dialogue.PacInput(u"Overwrite?", Title::Warning), u"All");
  machine.Turn();
  Settle();
  EXPECT_EQ(machine.dialogue.PacAskText(u"Name?", Title::Information), u"typed");
  machine.Turn();
  EXPECT_EQ(helper->Height, tall);
  const std::vector<Speech> all = {
      {u"Sure?", u"sad"}, {u"Overwrite?", u"sadmad"}, {u"Name?", u"talk"}};
  EXPECT_EQ(heard, all);
}

TEST_F(Question, WaitsItsTurnBehindAnyNumberOfMessages) {
  for (const int waiting : {0, 2, 9, 10, 11, 15}) {
    for (const bool asksForText : {false, true}) {
      SCOPED_TRACE(testing::Message() << waiting << (asksForText ? " text" : " question"));
      TestMachine own;
      own.settings.Write(u"Tarvo Packager", u"Settings", u"PacHelper", u"1");
      own.Start();
      own.dialogue.PacMsg(u"in progress", Title::Critical);
      own.Pass(80);
      for (int i = 0; i < waiting; ++i) {
        own.dialogue.PacMsg(Text(5, static_cast<char16_t>(u'a' + i)), Title::Information);
      }
      own.answers = {u"Yes"};
      const Text answer = asksForText ? own.dialogue.PacAskText(u"?", Title::Question)
                                      : own.dialogue.PacInput(u"?", Title::Question);
      EXPECT_EQ(answer, u"Yes");
      EXPECT_GT(own.waited, 2000);
    }
  }
}

TEST_F(Question, IsServedAtTheNextTickBelowTheResultsThatCameBeforeIt) {
  StartAndSettle();
  const int tall = helper->Height;
  Say(u"in progress");
  machine.dialogue.PacTip(u"A tip", PacTipOf::Screen);
  for (const TextView result : {u"one", u"two"}) Say(result);
  bool served = false;
  machine.onDialog = [&](frmPac_InputBox& dialog) {
    EXPECT_TRUE(dialog.lblWait.Visible);
    Hear(2000);
    EXPECT_TRUE(dialog.cmdYes.Enabled);
    EXPECT_FALSE(dialog.lblWait.Visible);
    EXPECT_EQ(dialog.lblInput.Caption.Get(), u"one\r\n\r\ntwo\r\n\r\nSure?");
    served = true;
  };
  machine.dialogue.PacInput(u"Sure?", Title::Question);
  machine.Turn();
  Settle();
  EXPECT_TRUE(served);
  EXPECT_THAT(Words(), testing::ElementsAre(u"in progress", u"Sure?", u"A tip"));
  EXPECT_EQ(helper->Height, tall);
}

TEST_F(Question, ThatStandsInTheBubbleIsNotAskedAgain) {
  StartAndSettle();
  machine.answers = {u"Yes", u"one", u"two"};
  machine.onDialog = [&](frmPac_InputBox&) { Hear(80); };
  EXPECT_EQ(machine.dialogue.PacInput(u"Sure?", Title::Question), u"Yes");
  machine.dialogue.PacSetButtons(u"Start", u"Loop");
  EXPECT_EQ(machine.dialogue.PacInput(u"Sure?", Title::Question), u"");
  EXPECT_EQ(machine.questions.size(), 1u);
  EXPECT_EQ(state.PacButtonCaptions[0], u"") << "captions end with their question, asked or not";
  // A line of text is, and its dialog wakes though the figure still speaks the same words.
  machine.Turn();
  for (const TextView line : {u"one", u"two"}) {
    EXPECT_EQ(machine.dialogue.PacAskText(u"Name?", Title::Question), line);
    machine.Turn();
  }
  // With the assistant off the bubble counts for nothing.
  state.PacHelper = false;
  machine.onDialog = {};
  machine.answers = {u"Yes"};
  EXPECT_EQ(machine.dialogue.PacInput(u"Name?", Title::Question), u"Yes");
}

TEST_F(Question, StaysAnswerableWhenTheAssistantIsClosedOrStopped) {
  StartAndSettle();
  Say(u"a long message that is in progress when the question comes");
  Say(u"waiting");
  machine.answers = {u"Yes"};
  machine.onDialog = [&](frmPac_InputBox& dialog) {
    EXPECT_FALSE(dialog.cmdYes.Enabled);
    machine.app.screens.Close(*helper);
    EXPECT_TRUE(dialog.cmdYes.Enabled);
    machine.Pass(8000);
  };
  EXPECT_EQ(machine.dialogue.PacInput(u"Sure?", Title::Question), u"Yes");
  machine.Turn();
  EXPECT_EQ(machine.boxes, (std::vector{TestMachine::Box{u"waiting", BoxIcon::Information}}));
  EXPECT_TRUE(main->Timer_Buffer.Enabled);

  state.PacHelper = true;
  machine.dialogue.PacStart();
  Settle();
  machine.answers = {u"Yes"};
  machine.onDialog = [&](frmPac_InputBox& dialog) {
    Hear(80);
    helper->cmdStop_Talk.Press();
    Hear(4000);
    EXPECT_TRUE(dialog.cmdYes.Enabled);
    EXPECT_FALSE(main->Timer_Buffer.Enabled);
  };
  EXPECT_EQ(machine.dialogue.PacInput(u"Really?", Title::Warning), u"Yes");
  machine.Turn();
  EXPECT_TRUE(main->Timer_Buffer.Enabled);
}

/// A dialog of the time before must not make the greeting count as a question.
TEST_F(Question, AskedWithTheAssistantOffLeavesNothingBehindForItsStart) {
  machine.Start();
  machine.dialogue.PacAskText(u"Name?", Title::Information);
  machine.Turn();
  state.PacHelper = true;
  machine.dialogue.PacStart();
  Settle();
  EXPECT_EQ(heard.size(), 2u) << "the greeting and the tip";
  EXPECT_EQ(machine.app.screens.Find<frmPac_InputBox>(), nullptr);
}

TEST(Pictures, StandOnTheButtonsThatKeepTheirCaptionsAsLongAsTheAssistantIsOn) {
  const Text ok = u":/dialog/ok.png", cancel = u":/dialog/cancel.png";
  const Text yes = u":/dialog/yes.png", no = u":/dialog/no.png";
  struct Case {
    bool assistant;
    Text first, second;          ///< Captions in place of Yes and No.
    std::vector<Text> pictures;  ///< Of OK, Cancel, Yes, No and Yes to All.
  };
  const std::vector<Case> cases{{false, u"", u"", {u"", u"", u"", u"", u""}},
                                {false, u"Start", u"Loop", {u"", u"", u"", u"", u""}},
                                {true, u"", u"", {ok, cancel, yes, no, u""}},
                                {true, u"Start", u"", {ok, cancel, u"", no, u""}},
                                {true, u"", u"Loop", {ok, cancel, yes, u"", u""}},
                                {true, u"Start", u"Loop", {ok, cancel, u"", u"", u""}}};
  for (const Case& c : cases) {
    SCOPED_TRACE(Utf8FromText(c.first + u"/" + c.second) + (c.assistant ? " on" : " off"));
    TestMachine machine;
    machine.settings.Write(u"Tarvo Packager", u"Settings", u"PacHelper", c.assistant ? u"1" : u"0");
    machine.Start();
    std::vector<Text> seen;
    machine.onDialog = [&](frmPac_InputBox& dialog) {
      for (const Button* button :
           {&dialog.cmdOk, &dialog.cmdCancel, &dialog.cmdYes, &dialog.cmdNo, &dialog.cmdAll}) {
        seen.push_back(button->Picture);
      }
    };
    machine.dialogue.PacSetButtons(c.first, c.second);
    machine.answers = {u"No"};
    EXPECT_EQ(machine.dialogue.PacInput(u"Sure?", Title::Question), u"No");
    EXPECT_EQ(seen, c.pictures);
  }
}

TEST_F(Question, LongWordsMakeTheDialogHigher) {
  StartAndSettle();
  const int tall = helper->Height;
  machine.textHeight = 855 + 400;
  machine.onDialog = [&](frmPac_InputBox& dialog) {
    EXPECT_EQ(dialog.lblInput.Height, 1255);
    EXPECT_EQ(dialog.cmdYes.Top, 1600);
    EXPECT_EQ(dialog.Height, 1815 + 50 + 400);
  };
  machine.dialogue.PacInput(u"long", Title::Warning);
  EXPECT_EQ(helper->Height, tall);
}

}  // namespace
}  // namespace tarvo::test
