#include <gtest/gtest.h>

#include "assistant/frmPac_InputBox.h"
#include "machine/TestMachine.h"

namespace tarvo::test {
namespace {

class Dialog : public testing::Test {
 protected:
  frmPac_InputBox& Open() { return machine.app.Screen<frmPac_InputBox>(); }
  TestMachine machine;
  frmMain& main = machine.Start();
};

TEST_F(Dialog, SlidesOpenAThirdIntoTheMainWindow) {
  frmPac_InputBox& dialog = Open();
  EXPECT_EQ(dialog.Left.Get(), main.Left + 9630 / 3);
  EXPECT_EQ(dialog.Top.Get(), main.Top + 7500 / 3);
  EXPECT_EQ(dialog.BackColour.Get(), kBlack);
  EXPECT_EQ(dialog.Width.Get(), 0);
  for (int i = 0; i < 100; ++i) dialog.InputBox_Timer.Tick();
  EXPECT_EQ(dialog.Width.Get(), 3450);
}

TEST_F(Dialog, QuestionTakesThePlaceOfTheTextPage) {
  frmPac_InputBox& dialog = Open();
  dialog.LayOutQuestion(u"Sure?", Title::Question);
  EXPECT_EQ(dialog.lblInput.Caption.Get(), u"Sure?");
  EXPECT_TRUE(dialog.cmdYes.Enabled && dialog.cmdNo.Enabled);
  EXPECT_EQ(dialog.cmdYes.Top.Get(), 1200);
  EXPECT_EQ(dialog.Shape2.Top.Get(), 120);
  EXPECT_FALSE(dialog.cmdAll.Visible || dialog.txtInputBox.Visible || dialog.cmdOk.Visible);
  EXPECT_EQ(dialog.CancelButton.Get(), &dialog.cmdNo);
}

/// Remembers the control that has the keyboard.
struct FocusWatch : ControlObserver {
  void ControlChanged(Control&) override {}
  void ControlRefreshed(Control&) override {}
  void ControlFocused(Control& control) override { focused = &control; }
  const Control* focused = nullptr;
};

TEST_F(Dialog, ABlindEnterAnswersNo) {
  for (const bool renamed : {false, true}) {
    if (renamed) machine.dialogue.PacSetButtons(u"Start", u"Loop");
    frmPac_InputBox& dialog = Open();
    FocusWatch watch;
    for (Button* button : {&dialog.cmdYes, &dialog.cmdNo, &dialog.cmdAll}) button->Observe(&watch);
    dialog.LayOutQuestion(u"Delete it?", Title::Warning);
    EXPECT_EQ(watch.focused, &dialog.cmdNo);
    watch.focused = nullptr;
    dialog.Wake();
    EXPECT_EQ(watch.focused, &dialog.cmdNo) << "the assistant has come to the question";
    machine.app.screens.Close(dialog);
    machine.Turn();
  }
}

TEST_F(Dialog, GivesTheAnswersOfItsButtons) {
  for (const TextView answer : {u"Yes", u"No", u"All"}) {
    machine.answers = {Text(answer)};
    EXPECT_EQ(machine.dialogue.PacInput(u"Overwrite?", Title::Warning), answer);
    machine.Turn();
  }
  machine.answers = {u"typed"};
  EXPECT_EQ(machine.dialogue.PacAskText(u"Name?", Title::Question), u"typed");
}

TEST_F(Dialog, EscapeAnswersNoUnlessTheCallerHasCaptionsOfHisOwn) {
  machine.onDialog = [](frmPac_InputBox& dialog) { dialog.PressEscape(); };
  EXPECT_EQ(machine.dialogue.PacInput(u"Sure?", Title::Question), u"No");
  machine.Turn();
  machine.dialogue.PacSetButtons(u"Start", u"Loop");
  EXPECT_EQ(machine.dialogue.PacInput(u"Which?", Title::Question), u"Neither");
}

TEST_F(Dialog, ChangedCaptionsAreForOneDialogOnly) {
  machine.dialogue.PacSetButtons(u"Start", u"Loop");
  EXPECT_EQ(Open().cmdYes.Caption.Get(), u"Start");
  EXPECT_EQ(Open().cmdNo.Caption.Get(), u"Loop");
  machine.app.screens.Close(Open());
  machine.Turn();
  EXPECT_EQ(Open().cmdYes.Caption.Get(), u"&Yes");
}

TEST_F(Dialog, MessagesShowTheIconOfTheirTitle) {
  struct Case {
    Title title;
    BoxIcon icon;
  };
  for (const Case& c :
       {Case{Title::Information, BoxIcon::Information}, Case{Title::Question, BoxIcon::Question},
        Case{Title::Warning, BoxIcon::Exclamation}, Case{Title::Critical, BoxIcon::Critical}}) {
    machine.dialogue.PacMsg(u"x", c.title);
    EXPECT_EQ(machine.boxes.back().Icon, c.icon);
  }
  machine.dialogue.PacMsg(u"x", Title::None);
  EXPECT_EQ(machine.boxes.size(), 4u);
}

}  // namespace
}  // namespace tarvo::test
