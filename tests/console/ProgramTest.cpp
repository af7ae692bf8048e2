#include "console/ConsoleTesting.h"
#include "support/RunProgram.h"

namespace tarvo::test {
namespace {

/// The program itself, started as a user starts it.
class Program : public Console {
 protected:
  void SetUp() override {
    Console::SetUp();
    folder.Put(game + "/stbc.exe", "game");
    folder.Put(game + "/scripts/ships/A.py", "a");
    folder.Put(game + "/scripts/Custom/Ships/A.py", "menuGroup = 'Bases'");
  }

  Ran Run(std::vector<std::string> words) const {
    words.insert(words.begin(), {TARVO_TOOL, "--game", folder.Host(game), "--program",
                                 Utf8FromText(folder.Game(u"program")) + kSlash});
    return RunProgram(std::move(words));
  }

  const std::string game = "Br\u00FCcke \u65E5\u672C \U0001F680";
  const std::string kSlash = "\\";
};

TEST_F(Program, TakesAndPrintsNamesOfAllScriptsByteByByte) {
  const std::string odd = "\u00DCber \u65E5\u672C \U0001F680 \"x\" \\";
  const std::string found = Utf8FromText(GamePathFromArgument(folder.Host(game)));
  const struct {
    std::vector<std::string> Words;
    int Status;
    std::string Output;
  } cases[] = {
      {{"game"}, 0, found + "\noption\n"},
      {{"define", "Nord", "--long-name", odd}, 0, "Ship TGL Definition has been Saved!\n"},
      {{"define", "Leer", "--long-name=L", "--description=", "--weapons=sa", "--hull", "--tactics="},
       0,
       "Ship TGL Definition has been Saved!\n"},
      {{"tgl", "show", folder.Host("program/ShipTGLs/Leer.TGL")},
       0,
       "Leer\tLeer.wav\tL\nQBLeer\tsfx/QuickBattle/Leer.mp3\tL\n"
       "Leer Description\tLeerDescription.wav\tDescription: \\r\\nWeapons: sa\\r\\n"
       "Shield Rating: N/A\\r\\nHull Rating: --tactics=\\r\\nTactics: \n"},
      {{"tgl", "hash", odd}, 0, "DEF03089\n"},
      {{"tgl", "hash", "/x"}, 0, "A6E78BF8\n"},
      {{"ships"}, 0, "enabled A Bases\n"},
      {{"--json", "list", odd}, 1, ""},
      {{"list", ""}, 1, ""},
      {{"no-command", odd}, 2, ""},
  };
  for (const auto& [words, status, output] : cases) {
    const Ran ran = Run(words);
    EXPECT_EQ(ran.Status, status) << words[0];
    EXPECT_EQ(ran.Output, output) << words[0];
  }
}

TEST_F(Program, TakesNoForAnAnswerWhereNobodyTypes) {
  EXPECT_EQ(Run({"delete", "A"}).Output, "");
  EXPECT_NO_THROW(folder.Get(game + "/scripts/Custom/Ships/A.py"));
  EXPECT_EQ(Run({"--yes", "delete", "A"}).Status, 0);
  EXPECT_ANY_THROW(folder.Get(game + "/scripts/Custom/Ships/A.py"));
}

}  // namespace
}  // namespace tarvo::test
