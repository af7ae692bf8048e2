#include <algorithm>

#include "gametools/ShipTesting.h"
#include "platform/Sound.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

constexpr TextView kAdded = u"Your Ship has been added to the Game!!!";
constexpr TextView kNoScript = u"N1.py file does not exist for this Ship Name!";
constexpr TextView kCanCreate = u"If ALL Required files exist you can Create one!";

class MakeShipPlugin : public ShipScreen {
 protected:
  frmGameTools& OpenFor(TextView ship, TextView menu) {
    frmGameTools& screen = Open();
    screen.cboShipName.SetText(Text(ship));
    screen.txtAuthor.SetText(u"Me");
    screen.txtComments.SetText(u"c");
    screen.cboSpecies.SetText(Text(menu));
    return screen;
  }

  /// The line of a plug-in that begins with `start`.
  FileText Line(TextView file, FileTextView start) {
    const FileText text = machine.Bytes(Plugin(file));
    const std::size_t at = text.find(start);
    return at == FileText::npos ? "(none)" : text.substr(at, text.find("\r\n", at) - at);
  }
};

TEST_F(MakeShipPlugin, NeedsAMenuAndAName) {
  frmGameTools& screen = OpenFor(u"N1", u"Select QB Menu!");
  screen.MakeShipPlugin();
  screen.cboSpecies.SetText(u"Bases");
  screen.cboShipName.SetText(u"");
  screen.MakeShipPlugin();
  EXPECT_EQ(machine.boxes, (std::vector<TestMachine::Box>{
                               {u"You Did not Select a Race!!!", BoxIcon::Critical},
                               {u"You Did not Enter a Ship Name!!!", BoxIcon::Critical}}));
  EXPECT_TRUE(PluginFiles().empty());
}

TEST_F(MakeShipPlugin, ReplacesThePluginOfAShipThatStands) {
  AddShip(u"N1");
  frmGameTools& screen = OpenFor(u"N1", u"Cardassian Ships");
  screen.txtVersion.SetText(u"7");
  screen.MakeShipPlugin();
  EXPECT_EQ(Messages(), Texts{Text(kAdded)});
  EXPECT_TRUE(machine.questions.empty());
  EXPECT_EQ(Line(u"N1.py", "#  Date"), "#  Date: 1/2/2003" + FileText(68, ' ') + "#");
  EXPECT_EQ(Line(u"N1.py", "iconName"), "iconName = 'N1'");
  EXPECT_EQ(screen.cboSpecies.Text() + screen.cboShipName.Text() + screen.txtIconName.Text() +
                screen.txtModName.Text() + screen.txtComments.Text() + screen.txtVersion.Text() +
                screen.txtAuthor.Text() + screen.txtSources.Text(),
            u"Select QB Menu!1.0Mehttp://");
}

TEST_F(MakeShipPlugin, ACustomMenuThatWasChosenIsNoRaceForOneShip) {
  AddShip(u"N1");
  frmGameTools& screen = OpenFor(u"N1", u"Klingon Ships");
  screen.CustomMenuChosen = true;
  for (const FileTextView sought : {"= Foundation.ShipDef(", "= Foundation.KlingonShipDef("}) {
    screen.cboShipName.SetText(u"N1");
    screen.cboSpecies.SetText(u"Klingon Ships");
    screen.MakeShipPlugin();
    EXPECT_NE(Line(u"N1.py", "Foundation.ShipDef.N1 =").find(sought), FileText::npos);
  }
}

TEST_F(MakeShipPlugin, WithoutAScriptItMakesOneOfTheTemplateAndChecksIt) {
  frmGameTools& screen = OpenFor(u"N1", u"Bases");
  machine.answers = {u"Yes"};
  screen.MakeShipPlugin();
  EXPECT_EQ(Messages(),
            (Texts{Text(kNoScript), Text(kCanCreate),
                   u"N1.py has been created... Checking File Structures...",
                   u"Ship N1 has Problems with it, Please use the File Checker!", Text(kAdded)}));
  EXPECT_EQ(machine.questions, Texts{u"Would you like to Attempt to Create one???"});
  const FileText script = machine.Bytes(Script(u"N1.py"));
  EXPECT_NE(script.find("\"Name\": \"N1\",\r\n"), FileText::npos);
  EXPECT_EQ(script.find("Galaxy"), FileText::npos);
  EXPECT_EQ(PluginFiles(), Texts{u"N1.Disabled"});
}

TEST_F(MakeShipPlugin, WithoutAScriptNoLeavesThePluginAndTheFields) {
  frmGameTools& screen = OpenFor(u"N1", u"Federation Ships");
  machine.answers = {u"No"};
  screen.MakeShipPlugin();
  EXPECT_EQ(Messages(), (Texts{Text(kNoScript), Text(kCanCreate)}));
  EXPECT_EQ(PluginFiles(), Texts{u"N1.py"});
  EXPECT_EQ(machine.Bytes(Script(u"N1.py")), "(missing)");
  EXPECT_EQ(screen.cboShipName.Text() + screen.txtComments.Text(), u"N1c");
  EXPECT_EQ(screen.cboSpecies.Text(), u"Fed");
}

TEST_F(MakeShipPlugin, ScriptThatIsOnlySpelledOtherwiseIsNeverOverwritten) {
  AddShip(u"n1");
  const FileText script = machine.Bytes(Script(u"n1.py"));
  machine.answers = {u"Yes"};
  OpenFor(u"N1", u"Bases").MakeShipPlugin();
  EXPECT_EQ(machine.questions.size(), 1u);
  EXPECT_EQ(machine.Bytes(Script(u"n1.py")), script);
}

TEST_F(MakeShipPlugin, WhatCantBeWrittenLeavesTheOldPluginAndTheFieldsAndIsNamed) {
  AddShip(u"N1");
  const FileText old = machine.Bytes(Plugin(u"N1.py"));
  frmGameTools& screen = OpenFor(u"N1", u"Federation Ships");
  screen.CustomMenuChosen = true;
  for (const FileStep step : {FileStep::Replace, FileStep::Write, FileStep::Commit}) {
    machine.app.Failures.clear();
    machine.files.Fail(step, 1, kDiskFull);
    screen.MakeShipPlugin();
    EXPECT_EQ(machine.Bytes(Plugin(u"N1.py")), old);
    EXPECT_EQ(screen.cboSpecies.Text() + screen.cboShipName.Text() + screen.txtComments.Text(),
              u"Federation ShipsN1c");
    EXPECT_TRUE(screen.CustomMenuChosen);
    EXPECT_TRUE(machine.boxes.empty());
    ASSERT_EQ(machine.app.Failures.size(), 1u);
    EXPECT_NE(machine.app.Failures[0].Words.find(u"N1.py: " + SystemErrorText(kDiskFull)),
              Text::npos);
  }
}

TEST_F(MakeShipPlugin, ScriptThatCantBeMadeIsNotSaidToBe) {
  const Text pattern = machine.ProgramFolder() + u"\\Backup\\Galaxy.py";
  for (const FileTextView bytes : {"Galaxy", ""}) {
    machine.WriteFile(pattern, bytes);
    OpenFor(u"N1", u"Bases");
    machine.boxes.clear();
    machine.app.Failures.clear();
    machine.answers = {u"Yes"};
    // The second file to be written is the script.
    machine.files.Fail(FileStep::Commit, 2, kAccessDenied);
    machine.app.Screen<frmGameTools>().MakeShipPlugin();
    machine.files.Heal();
    for (const Text& message : Messages()) EXPECT_EQ(message.find(u"created"), Text::npos);
    EXPECT_EQ(machine.app.Failures.size(), 1u);
    EXPECT_EQ(machine.Bytes(Script(u"N1.py")), "(missing)");
    EXPECT_EQ(machine.Bytes(pattern), bytes);
  }
}

class LoadShipPlugin : public ShipScreen {
 protected:
  /// The fields after the plug-in was picked.
  Texts Load(TextView ship) {
    frmGameTools& screen = Open();
    screen.cboShipName.SetText(Text(ship));
    screen.LoadShipPlugin();
    return {screen.txtIconName.Text(), screen.cboSpecies.Text(), screen.txtModName.Text(),
            screen.txtAuthor.Text(),   screen.txtVersion.Text(), screen.txtSources.Text(),
            screen.txtComments.Text()};
  }
};

TEST_F(LoadShipPlugin, GivesBackWhatAPluginWasMadeOf) {
  AddShip(u"N1");
  frmGameTools& screen = Open();
  const Texts fields = {u"Icon 2", u"Federation Ships", u"M\u00FCll", u"\"A\"", u"3", u"s", u"#c"};
  screen.cboShipName.SetText(u"N1");
  screen.txtIconName.SetText(fields[0]);
  screen.cboSpecies.SetText(fields[1]);
  screen.txtModName.SetText(fields[2]);
  screen.txtAuthor.SetText(fields[3]);
  screen.txtVersion.SetText(fields[4]);
  screen.txtSources.SetText(fields[5]);
  screen.txtComments.SetText(fields[6]);
  screen.MakeShipPlugin();
  const FileText made = machine.Bytes(Plugin(u"N1.py"));
  EXPECT_EQ(Load(u"N1"), fields);
  screen.MakeShipPlugin();
  EXPECT_EQ(machine.Bytes(Plugin(u"N1.py")), made);
}

TEST_F(LoadShipPlugin, WithNothingToReadAsksForAMenuAndChangesNoFile) {
  machine.WriteFile(Plugin(u"hand.py"), "iconName = \"I\"\nmenuGroup = \"Bases\"\n");
  machine.WriteFile(Plugin(u"empty.py"), "");
  const Texts nothing = {u"", u"Select QB Menu!", u"", u"", u"", u"", u""};
  for (const TextView ship : {u"hand", u"empty", u"missing"}) EXPECT_EQ(Load(ship), nothing);
  EXPECT_EQ(PluginFiles(), (Texts{u"empty.py", u"hand.py"}));
  EXPECT_TRUE(machine.app.Failures.empty());
  machine.files.Fail(FileStep::Open, 1, kAccessDenied);
  EXPECT_EQ(Load(u"hand"), nothing);
  EXPECT_EQ(machine.app.Failures.size(), 1u);
}

}  // namespace
}  // namespace tarvo::test
