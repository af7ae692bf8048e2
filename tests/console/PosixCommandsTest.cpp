#include <unistd.h>

#include <filesystem>

#include "console/ConsoleTesting.h"
#include "packages/PackageFormat.h"
#include "support/RunProgram.h"

namespace tarvo::test {
namespace {

namespace fs = std::filesystem;

/// What only names, links and streams of a POSIX host can bring about.
class PosixCommands : public Console {
 protected:
  /// The real program by a command line of the shell.
  Ran Shell(const std::string& line) {
    return RunProgram({"sh", "-c",
                       "exec '" TARVO_TOOL "' --game '" + folder.Host("game") + "' --program '" +
                           folder.Host("program") + "' " + line});
  }
};

TEST_F(PosixCommands, DeletingAShipTakesNoOtherByANameThatReadsAsAPattern) {
  for (const char* name : {"Alpha.py", "Alpha.pyc", "Alpha.*", "Alpha.D.py", "AlphaX.py"}) {
    folder.Put(std::string("game/scripts/Custom/Ships/") + name, name);
  }
  folder.Put("game/scripts/Custom/Ships/Alpha.Z.Disabled", "");
  for (const char* ship : {"Alpha", "Alpha.D", "AlphaX"}) {
    folder.Put(std::string("game/scripts/ships/") + ship + ".py", "\"Name\": \"../ships/A\",");
  }
  options.Answer = u"Yes";
  Do({"delete", "Alpha"});
  std::set<std::string> left;
  for (const auto& file : fs::directory_iterator(folder.Path("game/scripts/Custom/Ships"))) {
    left.insert(file.path().stem().string());
  }
  EXPECT_EQ(left, (std::set<std::string>{"Alpha.D", "Alpha.Z", "AlphaX"}));
}

TEST_F(PosixCommands, LinksThatLeadBackArePackedOnce) {
  fs::create_directory_symlink("..", folder.Path("game/scripts2/up"));
  fs::create_directory_symlink("/", folder.Path("game/scripts2/root"));
  folder.Put("game/other/c.py", "c");
  fs::create_directory_symlink("../other", folder.Path("game/scripts2/side"));
  fs::create_directory_symlink("../scripts2", folder.Path("game/other/back"));
  const Outcome packed = Do({"pack", "x", "scripts2"});
  EXPECT_EQ(packed.status, 0) << packed.words;
  EXPECT_EQ(Do({"list", "x"}).results, "\\scripts2\\B b.py\n\\scripts2\\side\\c.py\n");
  EXPECT_NE(packed.words.find("\\scripts2\\root: left out"), std::string::npos);
}

TEST_F(PosixCommands, ClosedStreamsAreNoFilesToWriteTo) {
  folder.Put("game/odd/a;b.py", "a warning is told of this name");
  EXPECT_EQ(Shell("pack x odd <&- >&- 2>&-").Status, 1);
  EXPECT_TRUE(folder.Get("program/Tarvos/x.Tarvo")
                  .ends_with(";\r\n" + folder.Get("game/odd/a;b.py") + BodyEnd()));
}

TEST_F(PosixCommands, OutputThatCantBeWrittenIsAFailure) {
  for (const char* line : {"game", "--json ships", "--help", "pack x scripts2"}) {
    EXPECT_EQ(Shell(std::string(line) + " > /dev/full").Status, 3) << line;
    EXPECT_EQ(Shell(std::string(line) + " > /dev/null").Status, 0) << line;
  }
}

TEST_F(PosixCommands, NamesGiveNoOrdersToTheTerminal) {
  folder.Put("game/odd/\x1B[2Jred\xC2\x81.py", "x");
  Do({"pack", "x", "odd"});
  EXPECT_EQ(Do({"list", "x"}).results, "\\odd\\\\x1B[2Jred\\x81.py\n");
  options.Json = true;
  EXPECT_EQ(Do({"list", "x"}).results, "[\"\\\\odd\\\\\\u001b[2Jred\\u0081.py\"]\n");
}

}  // namespace
}  // namespace tarvo::test
