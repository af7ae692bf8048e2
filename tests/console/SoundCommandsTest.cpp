#include "console/ConsoleTesting.h"

namespace tarvo::test {
namespace {

class SoundCommands : public Console {
 protected:
  void SetUp() override {
    Console::SetUp();
    folder.Put("game/Scripts/Custom/Autoload/_", "x");
    folder.Put("game/Scripts/Custom/Ships/_", "x");
    folder.Put("game/sfx/Weapons/torp.wav", "x");
    folder.Put("game/Scripts/ships/Hardpoints/a.py",
               "SetFireSound(\"b \xFC\")\r\nSetFireSound(\"A\")Tactical.Projectiles.c\" )\r\n\")");
  }

  std::string Plugin(const std::string& name) {
    return folder.Get("game/Scripts/Custom/Autoload/" + name + "_SoundPak.py");
  }
};

TEST_F(SoundCommands, ListWeaponsOneALineWithTheirLineBreaks) {
  const Outcome plain = Do({"weapons"});
  EXPECT_EQ(plain.results, "A\nb \xC3\xBC\nc\" )\\n\n");
  EXPECT_EQ(plain.status, 0);
  folder.Put("program/QBMenus/Species.TGL", "no database");
  EXPECT_EQ(Do({"weapons"}).status, 0) << "The command has no use for menus.";
  options.Json = true;
  EXPECT_EQ(Do({"weapons"}).results, "[\"A\",\"b \xC3\xBC\",\"c\\\" )\\r\\n\"]\n");
  files.Fail(FileStep::Open, 1, kAccessDenied, true);
  const Outcome closed = Do({"weapons"});
  EXPECT_EQ(closed.status, 3);
  EXPECT_NE(closed.words.find("a.py: " + SystemWords(kAccessDenied)), std::string::npos);
}

TEST_F(SoundCommands, MakeAPluginOfAllSounds) {
  options.Answer = u"No";
  const Outcome made =
      Do({"sound-plugin", "Voyager", "--sound", "torp.wav,Klingon, Torpedo,80", "--sound",
          "p.wav,Galaxy Phaser:Start,100", "--sound", "q.wav,Galaxy Phaser,10"});
  EXPECT_EQ(made.results, "Custom Sound Plugin Voyager_SoundPak.py has been Created!!!\n");
  EXPECT_EQ(made.status, 0);
  EXPECT_NE(Plugin("Voyager").find(
                "Foundation.SoundDef(\"sfx/Weapons/p.wav\", \"Galaxy Phaser Start\", 1)\r\n"
                "Foundation.SoundDef(\"sfx/Weapons/q.wav\", \"Galaxy Phaser Loop\", 0.1)\r\n"
                "Foundation.SoundDef(\"sfx/Weapons/torp.wav\", \"Klingon, Torpedo\", 0.8)\r\n"),
            std::string::npos);
}

TEST_F(SoundCommands, PointsAreWrittenWhereTheyAreWanted) {
  locale.Mark = u',';
  const std::vector<std::string> words = {"sound-plugin", "x", "--sound", "p.wav,A:Loop,80"};
  EXPECT_NE(Do(words).words, "");
  EXPECT_NE(Plugin("x").find("\"A Loop\", 0,8)"), std::string::npos);
  std::vector<std::string> more = words;
  more.insert(more.end(), {"--sound", "q.wav,B,10", "--points"});
  EXPECT_EQ(Do(more).words, "");
  EXPECT_NE(Plugin("x").find("\"A Loop\", 0.8)"), std::string::npos);
  EXPECT_NE(Plugin("x").find("\"B\", 0.1)"), std::string::npos);
}

TEST_F(SoundCommands, WrongSoundsAreRefusedBeforeAnythingIsMade) {
  for (const char* sound :
       {"torp.wav", "torp.wav,A", "torp.wav,A,9", "torp.wav,A,101", "torp.wav,A,x",
        "torp.wav,A,50%", ",A,50", "torp.wav,,50", "torp.wav,:Loop,50", "torp.wav,A,"}) {
    EXPECT_THROW(Do({"sound-plugin", "x", "--sound", sound}), CLI::ParseError) << sound;
  }
  EXPECT_THROW(Do({"sound-plugin", "x"}), CLI::ParseError);
  const Outcome broken = Do({"sound-plugin", "x", "--sound", "torp.wav,A\nB,50"});
  EXPECT_EQ(broken.status, 1);
  EXPECT_EQ(broken.results, "");
  files.Fail(FileStep::Commit, 1, kDiskFull);
  const Outcome full = Do({"sound-plugin", "x", "--sound", "torp.wav,A,50"});
  EXPECT_EQ(full.status, 3);
  EXPECT_EQ(full.results, "");
  EXPECT_FALSE(files.FileExists(folder.Game(u"game\\scripts\\Custom\\Autoload\\x_SoundPak.py")));
}

}  // namespace
}  // namespace tarvo::test
