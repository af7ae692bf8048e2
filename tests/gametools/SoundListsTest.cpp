#include <gmock/gmock.h>

#include "gametools/MenusTesting.h"
#include "platform/Sound.h"

namespace tarvo::test {
namespace {

using testing::ElementsAre;

class SoundLists : public GameToolsScreen {
 protected:
  void PutHardpoint(const Text& name, FileTextView text) {
    machine.WriteFile(game + u"\\scripts\\ships\\Hardpoints\\" + name, text);
  }
  void PutPlugin(const Text& name) {
    machine.WriteFile(game + u"\\scripts\\Custom\\Autoload\\" + name, "x");
  }
  std::vector<Text> Weapons(const frmGameTools& screen) {
    std::vector<Text> names;
    for (std::size_t row = 0; row < screen.lstWeapons.Count(); ++row) {
      names.push_back(screen.lstWeapons.Item(row));
    }
    return names;
  }
};

TEST_F(SoundLists, HoldEachWeaponOnceAndAllPlugins) {
  PutHardpoint(u"Galaxy.py",
               "P.SetFireSound(\"Galaxy Phaser\")\r\nT.S(0, \"Tactical.Projectiles.Photon\")\r\n");
  PutHardpoint(u"nebula.PY", "\tP.SetFireSound(\"Galaxy Phaser\")\n#SetFireSound(\"photon\")\n");
  PutHardpoint(u"open.py", "SetFireSound(\"no end\n");
  PutHardpoint(u"note.txt", "SetFireSound(\"Note\")");
  PutHardpoint(u"__init__.py", "");
  PutPlugin(u"Two_SoundPak.py");
  PutPlugin(u"one_soundpak.PY");
  PutPlugin(u"other.py");
  frmGameTools& screen = Open();
  machine.app.State.SoundFX = true;
  machine.sound.Orders.clear();
  screen.FillSoundLists();
  EXPECT_THAT(Weapons(screen), ElementsAre(u"Galaxy Phaser", u"Photon", u"photon"));
  ASSERT_EQ(screen.cboSoundName.Count(), 2u);
  EXPECT_EQ(screen.cboSoundName.Item(0), u"one");
  EXPECT_EQ(screen.cboSoundName.Item(1), u"Two");
  EXPECT_FALSE(screen.fraProgress.Visible);
  EXPECT_EQ(screen.ProgressBar.Max(), 4);
  EXPECT_EQ(screen.ProgressBar.Value(), 3);
  EXPECT_EQ(screen.lblFile.Caption.Get(), game + u"\\scripts\\ships\\Hardpoints\\open.py");
  EXPECT_EQ(machine.Bytes(game + u"\\scripts\\ships\\Hardpoints\\__init__.py"), "");
  const std::vector<RecordingSound::Order> expected = {
      {program + u"\\Sfx\\Scroll.wav", kPlayLoop, true},
      {program + u"\\Sfx\\BackgroundBeep.wav", kPlay, true}};
  EXPECT_EQ(machine.sound.Orders, expected);
}

TEST_F(SoundLists, SecondScanReadsOnlyWhatChanged) {
  PutHardpoint(u"a.py", "SetFireSound(\"A\")");
  PutHardpoint(u"b.py", "SetFireSound(\"B\")");
  frmGameTools& screen = Open();
  screen.FillSoundLists();
  PutHardpoint(u"b.py", "SetFireSound(\"Bigger\")");
  const int opened = machine.files.Steps(FileStep::Open);
  screen.FillSoundLists();
  EXPECT_EQ(machine.files.Steps(FileStep::Open), opened + 1);
  EXPECT_THAT(Weapons(screen), ElementsAre(u"A", u"B", u"Bigger"));
  machine.disk->Remove(game + u"\\scripts\\ships\\Hardpoints\\a.py");
  screen.lstWeapons.Clear();
  screen.FillSoundLists();
  EXPECT_THAT(Weapons(screen), ElementsAre(u"Bigger"));
}

TEST_F(SoundLists, EmptyAndMissingFoldersAreFilledFromNothing) {
  PutPlugin(u"My_SoundPak.py");
  frmGameTools& screen = Open();
  screen.FillSoundLists();
  screen.FillSoundLists();
  EXPECT_EQ(screen.lstWeapons.Count(), 0u);
  EXPECT_EQ(screen.cboSoundName.Count(), 2u);
  EXPECT_EQ(screen.ProgressBar.Max(), 100);
  // The list stands on the plug-ins of the scan before; none of them is a hardpoint script.
  machine.app.State.GamePath = game + u"\\scripts";
  screen.FillSoundLists();
  EXPECT_EQ(screen.cboSoundName.Count(), 2u);
  EXPECT_FALSE(screen.fraProgress.Visible);
}

TEST_F(SoundLists, OneScriptAddsWhatTheListLacks) {
  PutHardpoint(u"a.py", "SetFireSound(\"b\") SetFireSound(\"B\") Tactical.Projectiles.a\")");
  frmGameTools& screen = Open();
  screen.lstWeapons.Add(u"b");
  screen.GetWeaponsList(game + u"\\scripts\\ships\\Hardpoints\\a.py");
  screen.GetWeaponsList(game + u"\\scripts\\ships\\Hardpoints\\missing.py");
  EXPECT_THAT(Weapons(screen), ElementsAre(u"a", u"b", u"B"));
}

TEST_F(SoundLists, TestSoundPlaysTheSelectedFile) {
  machine.WriteFile(game + u"\\sfx\\Weapons\\torp.wav", "x");
  frmGameTools& screen = Open();
  screen.FileListWavs.SetPath(game + u"\\sfx\\Weapons");
  machine.app.State.SoundFX = true;
  machine.sound.Orders.clear();
  screen.lblPlaySound_Click();
  EXPECT_TRUE(machine.sound.Orders.empty());
  screen.FileListWavs.SetSelected(0, true);
  screen.lblPlaySound_Click();
  EXPECT_EQ(
      machine.sound.Orders,
      (std::vector<RecordingSound::Order>{{game + u"\\sfx\\Weapons\\torp.wav", kPlay, true}}));
}

}  // namespace
}  // namespace tarvo::test
