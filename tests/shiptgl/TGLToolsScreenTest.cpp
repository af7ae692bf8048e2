#include "TGLToolsTesting.h"
#include "platform/Sound.h"
#include "shiptgl/frmTGLTools.h"

namespace tarvo::test {
namespace {

class TGLTools : public testing::Test, public TGLMachine {
 protected:
  TGLTools() {
    for (const TextView name : {u"Nord", u"Sued", u"__init__"}) {
      machine.WriteFile(PluginPath(name), "plug-in");
    }
    Define(u"Sued", {.LongName = u"USS Sued", .Weapons = u"two"});
  }

  void SetUp() override {
    machine.Start().Visible = true;
    screen = &machine.app.Screen<frmTGLTools>();
    screen->Visible = true;
    machine.boxes.clear();
  }

  Text PluginPath(TextView ship) {
    return machine.GameFolder() + u"\\scripts\\Custom\\Ships\\" + Text(ship) + u".py";
  }

  std::vector<Text> Offered() {
    std::vector<Text> names;
    for (std::size_t row = 0; row < screen->cboShipNames.Count(); ++row) {
      names.push_back(screen->cboShipNames.Item(row));
    }
    return names;
  }

  void Pick(FileListBox& list, const Text& fileName) {
    for (std::size_t row = 0; row < list.Count(); ++row) {
      if (list.Item(row) == fileName) list.Click(row);
    }
  }

  Text LastBox() { return machine.boxes.empty() ? Text() : machine.boxes.back().Message; }
  Text Status() { return machine.Start().StatusBar.Panel1; }

  frmTGLTools* screen = nullptr;
};

TEST_F(TGLTools, ShowsItsVideoBesideTheListOfTheFourthTab) {
  MediaPlayer& player = screen->MediaPlayer1;
  EXPECT_TRUE(player.FileName.Get().ends_with(u"LCARS_TGL.MOV"));
  EXPECT_TRUE(player.Playing());
  EXPECT_FALSE(player.Visible);
  screen->lblGameTGL_Click();
  EXPECT_TRUE(player.Visible);
  EXPECT_LT(screen->File2.Left + screen->File2.Width, player.Left);
  EXPECT_FALSE(screen->fraShipTGL.Visible);

  screen->CancelButton.Get()->Press();
  machine.Turn();
  machine.app.State.VideoFX = false;
  screen = &machine.app.Screen<frmTGLTools>();
  EXPECT_FALSE(screen->MediaPlayer1.Playing());
  EXPECT_GT(screen->File2.Left + screen->File2.Width, screen->MediaPlayer1.Left)
      << "the list has the room";
}

TEST_F(TGLTools, OpensOnTheNewTabAndUnrolls) {
  EXPECT_EQ(screen->cboShipNames.Text(), u"Select your Ship!");
  EXPECT_EQ(Offered(), (std::vector<Text>{u"Nord"})) << "Sued has a definition.";
  EXPECT_EQ(machine.app.State.CurrentScreen, u"TGL Tools");
  EXPECT_EQ(Status(), u"New Ship TGL Details...");
  int ticks = 0;
  for (; screen->Load_Timer.Enabled; ++ticks) screen->Load_Timer.Tick();
  EXPECT_EQ(ticks, 35);
  EXPECT_EQ(screen->Height, 5065);
  screen->CancelButton.Get()->Press();
  EXPECT_EQ(Status(), u"Standing By...");
}

TEST_F(TGLTools, EachTabShowsItsCommandAndSwitchesTheFields) {
  struct Case {
    Button& Tab;
    Text Status;
    Button* Command;  ///< Nothing on the Game tab.
    bool ListUsable, FieldsUsable;
    Text Ship;
  };
  const std::vector<Case> cases = {
      {screen->lblEditTGL, u"Edit Ship TGL Details...", &screen->lblEdit, true, false,
       u"Select a Ship TGL!"},
      {screen->lblGameTGL, u"Update the Game's TGL Information...", nullptr, false, false,
       u"Select a Ship TGL!"},
      {screen->lblDeleteTGL, u"Delete Ship TGL From Hard Drive...", &screen->lblDelete, true, false,
       u"Select a Ship TGL!"},
      {screen->lblNewTGL, u"New Ship TGL Details...", &screen->lblNew, false, true,
       u"Select your Ship!"},
  };
  for (const Case& c : cases) {
    screen->txtWeapons.SetText(u"typed");
    c.Tab.Press();
    EXPECT_TRUE(Status().starts_with(c.Status));
    EXPECT_EQ(screen->fraGameTGL.Visible, c.Command == nullptr);
    EXPECT_EQ(screen->fraShipTGL.Visible, c.Command != nullptr);
    EXPECT_EQ(screen->imgButtonSelected.Left, c.Tab.Left);
    EXPECT_EQ(screen->FileList.Usable(), c.ListUsable);
    EXPECT_EQ(screen->txtHull.Usable(), c.FieldsUsable);
    EXPECT_EQ(screen->cboShipNames.Usable(), c.FieldsUsable);
    EXPECT_EQ(screen->cboShipNames.Text(), c.Ship);
    EXPECT_EQ(screen->txtWeapons.Text(), c.Command ? u"N/A" : u"typed");
    for (Button* command : {&screen->lblNew, &screen->lblEdit, &screen->lblDelete}) {
      EXPECT_EQ(command->Usable(), command == c.Command && command != &screen->lblEdit);
    }
  }
}

TEST_F(TGLTools, DefinitionIsSavedEditedAndDeleted) {
  screen->lblNew.Press();
  EXPECT_EQ(LastBox(), u"You didn't select a Ship!!!");
  screen->cboShipNames.Pick(0);
  EXPECT_EQ(screen->txtLongName.Text(), u"Nord");
  screen->txtDescription.SetText(u"a\r\nb");
  screen->lblNew.Press();
  EXPECT_EQ(LastBox(), u"Ship TGL Definition has been Saved!");
  EXPECT_EQ(Offered(), std::vector<Text>{});

  screen->lblEditTGL.Press();
  Pick(screen->FileList, u"Nord.TGL");
  EXPECT_EQ(screen->txtDescription.Text(), u"a\r\nb");
  EXPECT_TRUE(screen->txtDescription.Usable() && screen->lblEdit.Usable());
  screen->txtDescription.SetText(u"changed");
  machine.answers = {u"", u"Yes"};
  screen->lblEdit.Press();
  EXPECT_NE(Strings(Definition(u"Nord")).at(u"Nord Description").Data.substr(13, 7), u"changed");
  screen->lblEdit.Press();
  EXPECT_EQ(Strings(Definition(u"Nord")).at(u"Nord Description").Data.substr(13, 7), u"changed");

  screen->lblDeleteTGL.Press();
  screen->lblDelete.Press();
  EXPECT_EQ(LastBox(), u"You did not Select a Definition to Delete!");
  Pick(screen->FileList, u"Nord.TGL");
  EXPECT_EQ(screen->txtDescription.Text(), u"changed");
  EXPECT_FALSE(screen->txtDescription.Usable());
  machine.answers = {u"No", u"Yes"};
  screen->lblDelete.Press();
  EXPECT_EQ(LastBox(), u"The Ship TGL Definition was NOT Deleted from your Hard Drive!");
  EXPECT_TRUE(machine.disk->FileExists(Definition(u"Nord")));
  screen->lblDelete.Press();
  EXPECT_EQ(machine.questions.back(), u"Do you want to Delete Nord.TGL from your Hard Drive?!?");
  EXPECT_EQ(LastBox(), u"Nord.TGL Definition has been Removed from your Hard Drive!");
  EXPECT_FALSE(machine.disk->FileExists(Definition(u"Nord")));
  EXPECT_EQ(Offered(), (std::vector<Text>{u"Nord"}));
  EXPECT_EQ(screen->txtDescription.Text(), u"");
}

TEST_F(TGLTools, FailuresAreToldAndLoseNothing) {
  const FileText sued = machine.Bytes(Definition(u"Sued"));
  machine.files.Fail(FileStep::Write, 1, kDiskFull);
  screen->cboShipNames.SetText(u"Sued");
  screen->lblNew.Press();
  EXPECT_EQ(LastBox(), u"TGLLib has not been Registered with Windows, Please reinstall Tarvo!!!");
  EXPECT_NE(Status().find(SystemErrorText(kDiskFull)), Text::npos);
  EXPECT_EQ(machine.Bytes(Definition(u"Sued")), sued);

  screen->lblDeleteTGL.Press();
  Pick(screen->FileList, u"Sued.TGL");
  machine.files.Fail(FileStep::Remove, 1, kAccessDenied);
  machine.answers = {u"Yes"};
  screen->lblDelete.Press();
  EXPECT_EQ(LastBox(), u"The Ship TGL Definition was NOT Deleted from your Hard Drive!");
  EXPECT_EQ(machine.boxes.back().Icon, BoxIcon::Critical);
  EXPECT_EQ(machine.Bytes(Definition(u"Sued")), sued);
}

TEST_F(TGLTools, DefinitionThatCantBeReadIsOfferedForDeletion) {
  machine.WriteFile(Definition(u"Bad"), "no database");
  screen->lblDeleteTGL.Press();
  screen->FileList.Reload();
  machine.onDialog = [&](frmPac_InputBox&) {
    EXPECT_TRUE(Status().starts_with(Definition(u"Bad"))) << "the reason comes first";
  };
  machine.answers = {u"No"};
  Pick(screen->FileList, u"Bad.TGL");
  ASSERT_EQ(machine.boxes.size(), 2u);
  EXPECT_EQ(machine.boxes[0].Message,
            u"Your Bad file is not Valid with BETA v4.0, Please make a new one!");
  EXPECT_EQ(machine.questions.back(), u"Do you want to Delete Bad.TGL from your Hard Drive?!?");
  EXPECT_TRUE(machine.disk->FileExists(Definition(u"Bad")));
  EXPECT_TRUE(screen->lblEdit.Visible);
  EXPECT_FALSE(screen->lblEdit.Enabled);
  EXPECT_TRUE(Status().starts_with(Definition(u"Bad") + u": "));

  screen->lblDeleteTGL.Press();
  machine.answers = {u"Yes"};
  machine.files.Fail(FileStep::Remove, 1, kAccessDenied);
  Pick(screen->FileList, u"Bad.TGL");
  EXPECT_NE(Status().find(u"(and 1 more)"), Text::npos) << "why the deletion failed";
}

TEST_F(TGLTools, DefinitionThatTheSystemKeepsIsToldWithThatReasonAndNotOfferedForDeletion) {
  for (Button* tab : {&screen->lblEditTGL, &screen->lblDeleteTGL}) {
    tab->Press();
    machine.boxes.clear();
    machine.files.Fail(FileStep::Open, 1, kAccessDenied);
    Pick(screen->FileList, u"Sued.TGL");
    ASSERT_EQ(machine.boxes.size(), 1u);
    EXPECT_NE(LastBox().find(SystemErrorText(kAccessDenied)), Text::npos);
    EXPECT_EQ(LastBox(), Status());
    EXPECT_TRUE(machine.questions.empty());
    EXPECT_EQ(screen->txtLongName.Text(), u"");
    EXPECT_FALSE(screen->lblEdit.Usable());
  }
}

TEST_F(TGLTools, FullDiskEndsTheMergeAndNamesWhatIsInTheGame) {
  for (const TextView ship : {u"A", u"B", u"C"}) Define(Text(ship), {.LongName = Text(ship)});
  screen->File2.Reload();
  screen->lblGameTGL.Press();
  const int commits = 3;  // Of the note and of both databases.
  machine.files.Fail(FileStep::Commit, commits + 1, kDiskFull, true);
  machine.answers = {u"Yes"};
  screen->lblUpdateAllGameTGL.Press();
  ASSERT_EQ(machine.boxes.size(), 2u) << "one ship's failure, and what it means";
  const std::size_t left = LastBox().find(u"are not");
  EXPECT_LT(LastBox().find(u"\nA.TGL"), left);
  for (const TextView name : {u"\nB.TGL", u"\nC.TGL", u"\nSued.TGL"}) {
    EXPECT_NE(LastBox().find(name, left), Text::npos);
  }
}

TEST_F(TGLTools, MergeTakesTheSelectedDefinitionsAndPatchesTheirPlugins) {
  machine.WriteFile(PluginPath(u"Sued"),
                    "# Uncomment these if you have TGL   #\r\nFoundation.ShipDef.Sued.desc = 'x'");
  machine.WriteFile(PluginPath(u"Bad"), machine.Bytes(PluginPath(u"Sued")));
  machine.WriteFile(Definition(u"Bad"), "no database");
  Define(u"Lost", {.LongName = u"No plug-in"});
  Define(u"Nord", {.LongName = u"USS Nord"});
  screen->File2.Reload();
  screen->lblGameTGL.Press();
  screen->lblUpdateGame.Press();
  EXPECT_TRUE(Strings(ships).empty()) << "Nothing was selected.";
  machine.answers = {u"No", u"Yes"};
  screen->lblUpdateAllGameTGL.Press();
  EXPECT_EQ(LastBox(), u"The Game has not been Updated!!!");
  machine.sound.Orders.clear();
  machine.app.State.SoundFX = true;
  screen->lblUpdateAllGameTGL.Press();
  EXPECT_EQ(machine.boxes[machine.boxes.size() - 2].Message,
            u"Your Bad.TGL file is not Valid with BETA v4.0, Please make a new one!");
  EXPECT_TRUE(LastBox().ends_with(u":\n\nBad.py")) << "patched all the same";
  EXPECT_EQ(Strings(ships).size(), 6u);
  EXPECT_EQ(Strings(quickBattle).size(), 3u);
  EXPECT_NE(machine.Bytes(PluginPath(u"Sued")).find("Sued.hasTGLName = 1"), FileText::npos);
  EXPECT_EQ(machine.Bytes(PluginPath(u"Nord")), "plug-in");
  EXPECT_EQ(screen->UnpatchedPlugins, (std::vector<Text>{u"Nord.py"}));
  EXPECT_FALSE(screen->fraProgress.Visible);
  EXPECT_EQ(screen->ProgressBar.Value(), screen->ProgressBar.Max());
  for (std::size_t row = 0; row < screen->File2.Count(); ++row) {
    EXPECT_FALSE(screen->File2.Selected(row));
  }
  std::vector<unsigned> flags;
  for (const auto& order : machine.sound.Orders) flags.push_back(order.Flags);
  // The beep, the question, the click that answers it, the loop, and its end.
  EXPECT_EQ(flags, (std::vector<unsigned>{kPlayToEnd, kPlayUnlessBusy, kPlayUnlessBusy, kPlayLoop,
                                          kPlay}));
  EXPECT_NE(Status().find(u"Bad.TGL"), Text::npos) << "what went wrong comes first";

  const auto update = [&](TextView definition) {
    for (std::size_t row = 0; row < screen->File2.Count(); ++row) {
      screen->File2.SetSelected(
          row, screen->File2.Item(row) != u"Bad.TGL" && screen->File2.Item(row) <= definition);
    }
    screen->lblUpdateGame.Press();
    return Status();
  };
  EXPECT_EQ(update(u"Lost.TGL"), u"Lost.TGL is in the game now.");
  EXPECT_EQ(update(u"Nord.TGL"),
            u"2 Ship TGLs are in the game now, but Nord.py keeps its own description.");
  EXPECT_TRUE(update(u"").starts_with(u"Nothing is chosen:"));
}

/// Whatever look, read or write fails: the plug-in is the old one or the patched one.
TEST_F(TGLTools, NoFailureOfAMergeCutsAPlugin) {
  const FileText old =
      "# Uncomment these if you have TGL   #\r\nFoundation.ShipDef.Nord.desc = 'x'\r\n" +
      FileText(5000, '#') + "Foundation.ShipDef.Nord.RegisterQBShipMenu(menuGroup)";
  Define(u"Nord", {.LongName = u"USS Nord"});
  screen->File2.Reload();
  screen->lblGameTGL.Press();
  const int before = machine.files.AllSteps();
  const auto merge = [&] {
    machine.WriteFile(PluginPath(u"Nord"), old);
    screen->File2.SetSelected(0, true);
    screen->lblUpdateGame.Press();
    machine.files.Heal();
    return machine.Bytes(PluginPath(u"Nord"));
  };
  const FileText patched = merge();
  ASSERT_NE(patched, old);
  const int steps = machine.files.AllSteps() - before;
  for (int step = 1; step <= steps; ++step) {
    machine.files.FailAny(step, kReadFault);
    const FileText now = merge();
    EXPECT_TRUE(now == patched || (now == old && !machine.app.Failures.empty())) << step;
  }
}

}  // namespace
}  // namespace tarvo::test
