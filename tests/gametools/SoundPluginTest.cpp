#include <gmock/gmock.h>

#include <cstdio>

#include "gametools/MenusTesting.h"
#include "sounds/SoundPlugin.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SoundPluginScreen : public GameToolsScreen {
 protected:
  void SetUp() override {
    GameToolsScreen::SetUp();
    for (const TextView name : {u"a.wav", u"torp.wav"}) {
      machine.WriteFile(game + u"\\sfx\\Weapons\\" + Text(name), "x");
    }
  }

  /// The tab with these weapons, "torp.wav" and the first weapon being selected.
  frmGameTools& OpenTab(const std::vector<Text>& weapons) {
    frmGameTools& screen = Open();
    screen.fraSound.Visible = true;
    for (const Text& weapon : weapons) screen.lstWeapons.Add(weapon);
    screen.lstWeapons.SetSelected(0, true);
    screen.FileListWavs.SetSelected(1, true);
    return screen;
  }

  std::vector<Text> Entries(const frmGameTools& screen) {
    std::vector<Text> entries;
    for (std::size_t row = 0; row < screen.lstSoundInfo.Count(); ++row) {
      entries.push_back(screen.lstSoundInfo.Item(row));
    }
    return entries;
  }

  Text PluginPath(const Text& name) {
    return game + u"\\scripts\\Custom\\Autoload\\" + name + u"_SoundPak.py";
  }

#ifndef _WIN32
  /// What a plug-in registers when Python runs it, one "file|name|volume" a line.
  std::string RunByPython(const Text& path) {
    const std::string code =
        "import runpy, sys; sys.path.insert(0, '" TARVO_SOURCE
        "/tests/support/python'); import Foundation; runpy.run_path(sys.argv[1]);"
        "print(*('|'.join(map(str, s)) for s in Foundation.sounds), sep='\\n')";
    const std::string command =
        "python3 -B -c \"" + code + "\" '" + machine.folder.Host(HostNameBelow(path)) + "' 2>&1";
    std::string output;
    FILE* const pipe = popen(command.c_str(), "r");
    if (!pipe) return "can't start python3";
    for (int c; (c = fgetc(pipe)) != EOF;) output += static_cast<char>(c);
    return pclose(pipe) == 0 ? output : "failed: " + output;
  }

  std::string HostNameBelow(const Text& path) {
    std::string name = Utf8FromText(path.substr(machine.folder.Game().size() + 1));
    std::replace(name.begin(), name.end(), '\\', '/');
    return name;
  }
#endif
};

TEST_F(SoundPluginScreen, AddNeedsANameAWeaponAndAFile) {
  frmGameTools& screen = OpenTab({u"Torpedo"});
  screen.lblAddSound.Press();
  screen.cboSoundName.SetText(u"x");
  screen.lstWeapons.Clear();
  screen.lblAddSound.Press();
  screen.lstWeapons.SetSelected(screen.lstWeapons.Add(u"A\r\nB"), true);
  screen.lblAddSound.Press();
  EXPECT_THAT(Entries(screen), IsEmpty());
  EXPECT_THAT(TakeMessages(BoxIcon::Exclamation),
              ElementsAre(u"Please Specify a File Name First!",
                          u"You did not Select a Weapon and Sound File!!!",
                          u"The Name of this Weapon doesn't fit on one Line of a Plugin!!!"));
}

TEST_F(SoundPluginScreen, PhasersHaveTwoSounds) {
  struct Case {
    TextView weapon;
    std::deque<Text> answers;
    TextView sound;
  };
  frmGameTools& screen = OpenTab({u"?"});
  screen.cboSoundName.SetText(u"x");
  for (const Case& c : {Case{u"Galaxy Phaser", {u"Yes"}, u"Galaxy Phaser Start"},
                        Case{u"Galaxy Phaser", {u"No"}, u"Galaxy Phaser Loop"},
                        Case{u"Galaxy Phaser", {u""}, u""}, Case{u"phaser", {}, u"phaser"}}) {
    screen.lstSoundInfo.Clear();
    screen.lstWeapons.Clear();
    screen.lstWeapons.SetSelected(screen.lstWeapons.Add(Text(c.weapon)), true);
    machine.answers = c.answers;
    machine.questions.clear();
    screen.lblAddSound.Press();
    EXPECT_EQ(machine.questions.size(), c.answers.size());
    std::vector<Text> expected;
    if (!c.sound.empty()) expected.push_back(u"torp.wav\", \"" + Text(c.sound) + u"\", 1");
    EXPECT_EQ(Entries(screen), expected);
  }
  EXPECT_TRUE(machine.boxes.empty());
}

TEST_F(SoundPluginScreen, TheAssistantAsksOfASecondPhaserInOtherWords) {
  frmGameTools& screen = OpenTab({u"Galaxy Phaser"});
  screen.cboSoundName.SetText(u"x");
  machine.app.State.PacHelper = true;
  machine.onDialog = [&](frmPac_InputBox& dialog) {
    EXPECT_EQ(dialog.cmdYes.Caption.Get(), u"Start");
    machine.Pass(8000);
  };
  machine.answers = {u"Yes", u"Yes"};
  for (int i = 0; i < 2; ++i) {
    machine.questions.clear();
    screen.lblAddSound.Press();
    EXPECT_EQ(machine.questions.size(), 1u);
    machine.Turn();
  }
  EXPECT_NE(machine.questions.back().find(u"Galaxy Phaser"), Text::npos);
  EXPECT_EQ(Entries(screen), std::vector<Text>(2, u"torp.wav\", \"Galaxy Phaser Start\", 1"));
}

TEST_F(SoundPluginScreen, EntriesTakeTheVolumeOfTheMomentAndTheSystemsDecimalMark) {
  frmGameTools& screen = OpenTab({u"Torpedo"});
  screen.cboSoundName.SetText(u"x");
  screen.SoundVolume = 80;
  screen.lblAddSound.Press();
  machine.locale.Mark = u',';
  screen.SoundVolume = 10;
  screen.lblAddSound.Press();
  EXPECT_THAT(Entries(screen),
              ElementsAre(u"torp.wav\", \"Torpedo\", 0,1", u"torp.wav\", \"Torpedo\", 0.8"));
  screen.lblRemoveSound.Press();
  EXPECT_EQ(screen.lstSoundInfo.Count(), 2u);
  screen.lstSoundInfo.SetSelected(0, true);
  screen.lblRemoveSound.Press();
  EXPECT_THAT(Entries(screen), ElementsAre(u"torp.wav\", \"Torpedo\", 0.8"));
  screen.cboSoundName.SetText(u"y");
  EXPECT_THAT(Entries(screen), IsEmpty());
}

TEST_F(SoundPluginScreen, PluginIsMadeReadBackAndRunByPython) {
  frmGameTools& screen = OpenTab({u"Galaxy Phaser", u"Torpedo 2", u"_x"});
  screen.cboSoundName.SetText(u"Voyager");
  for (const std::size_t row : {0, 2, 1}) {
    screen.lstWeapons.SetSelected(row, true);
    machine.answers = {u"Yes"};
    screen.SoundVolume = static_cast<std::int16_t>(row == 2 ? 30 : 100);
    screen.lblAddSound.Press();
  }
  const std::vector<Text> entries = Entries(screen);
  machine.app.Failures.clear();
  screen.lblMakeSoundPlugin.Press();
  EXPECT_THAT(machine.boxes, ElementsAre(TestMachine::Box{
                                 u"Custom Sound Plugin Voyager_SoundPak.py has been Created!!!",
                                 BoxIcon::Information}));
  const FileText bytes = machine.Bytes(PluginPath(u"Voyager"));
  EXPECT_EQ(bytes, SoundPluginText(entries, u"1/2/2003"));
#ifndef _WIN32
  EXPECT_EQ(RunByPython(PluginPath(u"Voyager")),
            "sfx/Weapons/torp.wav|_x|1\n"
            "sfx/Weapons/torp.wav|Galaxy Phaser Start|1\n"
            "sfx/Weapons/torp.wav|Torpedo 2|0.3\n");
#endif
  EXPECT_THAT(Entries(screen), IsEmpty());
  EXPECT_EQ(screen.cboSoundName.Text(), u"");
  ASSERT_EQ(screen.cboSoundName.Count(), 1u);
  screen.cboSoundName.Pick(0);
  EXPECT_EQ(Entries(screen), entries);
  screen.lblMakeSoundPlugin.Press();
  EXPECT_EQ(machine.Bytes(PluginPath(u"Voyager")), bytes);
  EXPECT_EQ(screen.cboSoundName.Count(), 1u);
}

TEST_F(SoundPluginScreen, PluginsThatHaveGoneOrHoldNothingGiveAnEmptyList) {
  frmGameTools& screen = OpenTab({u"Torpedo"});
  machine.WriteFile(PluginPath(u"Nothing"), "");
  for (const TextView name : {u"Nothing", u"Gone"}) {
    screen.cboSoundName.Add(Text(name));
    screen.lstSoundInfo.Add(u"old");
    screen.cboSoundName.Pick(screen.cboSoundName.Count() - 1);
    EXPECT_THAT(Entries(screen), IsEmpty());
  }
  EXPECT_EQ(machine.Bytes(PluginPath(u"Nothing")), "");
  EXPECT_EQ(machine.Bytes(PluginPath(u"Gone")), "(missing)");
  EXPECT_TRUE(machine.boxes.empty());
}

TEST_F(SoundPluginScreen, MakeNeedsANameAndKeepsTheEntriesWhenItFails) {
  frmGameTools& screen = OpenTab({u"Torpedo"});
  screen.lblMakeSoundPlugin.Press();
  EXPECT_THAT(TakeMessages(BoxIcon::Exclamation),
              ElementsAre(u"You did not specify a File Name!!!"));
  screen.cboSoundName.SetText(u"x");
  machine.WriteFile(PluginPath(u"x"), "old");
  screen.lblAddSound.Press();
  for (const FileStep step : {FileStep::Replace, FileStep::Write, FileStep::Commit}) {
    machine.files.Fail(step, 1, kDiskFull);
    screen.lblMakeSoundPlugin.Press();
    EXPECT_THAT(TakeMessages(BoxIcon::Information), IsEmpty());
    EXPECT_THAT(StatusLine(), Holds(SystemErrorText(kDiskFull)));
    EXPECT_EQ(screen.lstSoundInfo.Count(), 1u);
    EXPECT_EQ(machine.Bytes(PluginPath(u"x")), "old");
  }
  screen.lblMakeSoundPlugin.Press();
  EXPECT_EQ(TakeMessages(BoxIcon::Information).size(), 1u);
  EXPECT_EQ(StatusLine(), u"Create a New Ship Plugin...") << "The words of the open tab.";
}

}  // namespace
}  // namespace tarvo::test
