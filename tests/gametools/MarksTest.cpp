#include "gametools/MenusTesting.h"

namespace tarvo::test {
namespace {

using testing::IsEmpty;

class Marks : public GameToolsScreen {
 protected:
  /// The field's reason, which tooltip and status line tell as well; empty where it has no mark.
  Text ReasonOf(const Control& field) {
    EXPECT_EQ(field.Marked, !field.Hint.Get().empty());
    if (field.Marked) {
      EXPECT_EQ(StatusLine(), field.Hint.Get());
    }
    return field.Hint;
  }

  void PutPlugin(FileTextView menu) {
    machine.WriteFile(game + u"\\scripts\\Custom\\Ships\\Cube.py",
                      "menuGroup = '" + FileText(menu) + "'\r\n");
  }
};

TEST_F(Marks, StandOnWhatTheGameCantReadAsLongAsItStandsThere) {
  WriteDatabase(species, {u"Borg"});
  frmGameTools& screen = Open();
  screen.fraSound.Visible = false;
  const std::pair<Text, TextView> names[] = {
      {u"Cube_2", u""},          {u"9lives", u"Python"},    {u"my ship", u"Python"},
      {u"class", u"Python"},     {u"\u00DCber", u"Python"}, {u"a/b", u"can't hold /"},
      {u"a\u0416", u" \u0416."}, {u"a..b", u"two dots"},    {u"", u""}};
  for (const auto& [name, reason] : names) {
    screen.cboShipName.SetText(name);
    const Text told = ReasonOf(screen.cboShipName);
    EXPECT_TRUE(reason.empty() ? told.empty() : told.find(reason) != Text::npos) << name.size();
  }
  const std::pair<Text, bool> values[] = {{u"it's", true}, {u"a\\", true},    {u"a\\\\", false},
                                          {u"a\"", false}, {u"\u0416", true}, {u"\u00FC", false}};
  for (TextBox* field : {&screen.txtIconName, &screen.txtModName, &screen.txtAuthor,
                         &screen.txtVersion, &screen.txtSources, &screen.txtComments}) {
    for (const auto& [value, marked] : values) {
      field->SetText(value);
      EXPECT_EQ(!ReasonOf(*field).empty(), marked);
    }
  }
  EXPECT_EQ(StatusLine(), u"Create a New Ship Plugin...");
  screen.cboSpecies.SetText(u"Borg Shps");
  screen.txtAuthor.SetText(u"it's");
  screen.txtAuthor.SetText(u"me");
  EXPECT_THAT(ReasonOf(screen.cboSpecies), Holds(Text(u"Pick the Species again")));
}

TEST_F(Marks, AMenuIsToldByItsPlaceInTheList) {
  WriteDatabase(species, {u"Borg Ships"});
  TGLFile file(*machine.disk);
  for (const TextView menu : {u"Borg Ships", u"Klingon Ships"}) {
    file.Strings().Add(Text(menu), Text(menu), u"");
  }
  file.Update(species, true);
  PutPlugin("Borg Ships");
  frmGameTools& screen = Open();
  screen.cboShipName.SetText(u"Cube");
  for (std::size_t row = 0; row < screen.cboShipName.Count(); ++row) screen.cboShipName.Pick(row);
  EXPECT_EQ(screen.cboSpecies.Text(), u"Borg Ships");
  EXPECT_THAT(ReasonOf(screen.cboSpecies), Holds(Text(u"Pick the Species again")));
  screen.cboSpecies.Pick(1);
  EXPECT_THAT(ReasonOf(screen.cboSpecies), IsEmpty());
  EXPECT_FALSE(screen.CustomMenuChosen);
  screen.cboSpecies.Pick(screen.cboSpecies.Item(8) == u"Klingon Ships" ? 8 : 9);
  EXPECT_THAT(ReasonOf(screen.cboSpecies), IsEmpty());
  EXPECT_TRUE(screen.CustomMenuChosen);
  // What a "No" to the ship's script leaves in the field is no menu.
  screen.cboSpecies.Pick(4);
  screen.lblMakeShipPlugin.Press();
  EXPECT_EQ(screen.cboSpecies.Text(), u"");
  EXPECT_THAT(ReasonOf(screen.cboSpecies), Holds(Text(u"Pick the Species again")));
}

TEST_F(Marks, AVolumeWithACommaStaysToldUntilItIsGone) {
  machine.WriteFile(game + u"\\sfx\\Weapons\\a.wav", "x");
  machine.locale.Mark = u',';
  frmGameTools& screen = Open();
  screen.lblSoundPlugin.Press();
  screen.cboSoundName.SetText(u"x");
  screen.lstWeapons.SetSelected(screen.lstWeapons.Add(u"Torpedo, new"), true);
  screen.FileListWavs.SetSelected(0, true);
  screen.lblAddSound.Press();
  EXPECT_FALSE(screen.lstSoundInfo.Marked) << "a volume of 1";
  screen.SoundVolume = 80;
  screen.lblAddSound.Press();
  EXPECT_THAT(ReasonOf(screen.lstSoundInfo), Holds(Text(u"decimal symbol")));
  screen.lstSoundInfo.SetSelected(0, true);
  screen.lblRemoveSound.Press();
  EXPECT_FALSE(screen.lstSoundInfo.Marked);
  EXPECT_EQ(StatusLine(), u"Create a New Sound Plugin...");
}

TEST_F(Marks, NamesThatLeadElsewhereMakeNoFile) {
  frmGameTools& screen = Open();
  const auto before = machine.FilesBelow(machine.folder.Game());
  for (const TextView name :
       {u"../../evil", u"..\\x", u"a*", u"a?", u"..", u"a\n", u"\u03A9mega"}) {
    screen.cboShipName.SetText(Text(name));
    screen.cboSpecies.SetText(u"Bases");
    screen.lblMakeShipPlugin.Press();
    screen.cboSoundName.SetText(Text(name));
    screen.lblMakeSoundPlugin.Press();
    EXPECT_EQ(TakeMessages(BoxIcon::Critical).size() + machine.questions.size(), 1u);
  }
  EXPECT_EQ(machine.FilesBelow(machine.folder.Game()), before);
}

TEST_F(Marks, WithNoGameKnownEveryCommandIsRefused) {
  frmGameTools& screen = Open();
  machine.app.State.GamePath.clear();
  screen.lstDisabled.Add(u"A");
  screen.lstDisabled.SetSelected(0, true);
  screen.SelectedMenu = 8;
  screen.lstSpecies.Add(u"Borg Ships");
  screen.cboShipName.SetText(u"A");
  screen.cboSpecies.SetText(u"Bases");
  screen.cboSoundName.SetText(u"A");
  const int steps = machine.files.Steps(FileStep::Look) + machine.files.Steps(FileStep::Open);
  for (Button* command :
       {&screen.lblMakeShipPlugin, &screen.lblMakeSoundPlugin, &screen.lblAddQB,
        &screen.lblDeleteQB, &screen.lblEnable, &screen.lblDisable, &screen.lblDelete}) {
    screen.fraMenus.Visible = screen.fraShipInfo.Visible = screen.fraSound.Visible = true;
    command->Press();
    EXPECT_EQ(TakeMessages(BoxIcon::Critical).size(), 1u);
    EXPECT_THAT(StatusLine(), Holds(Text(u"No game's folder is known")));
  }
  screen.lblMenus.Press();
  EXPECT_THAT(StatusLine(), Holds(Text(u"No game's folder is known")));
  EXPECT_EQ(machine.files.Steps(FileStep::Look) + machine.files.Steps(FileStep::Open), steps);
  EXPECT_THAT(machine.questions, IsEmpty());
}

TEST_F(Marks, AClickOnAScriptTellsOfItsPlugin) {
  for (const TextView ship : {u"A", u"Cube"}) {
    machine.WriteFile(game + u"\\scripts\\ships\\" + Text(ship) + u".py", "x");
  }
  PutPlugin("Bases");
  frmGameTools& screen = Open();
  screen.FileList2.Click(1);
  EXPECT_THAT(StatusLine(), Holds(Text(u"Cube has a plug-in")));
  screen.FileList2.Click(0);
  EXPECT_EQ(StatusLine(), u"Create a New Ship Plugin...");
}

}  // namespace
}  // namespace tarvo::test
