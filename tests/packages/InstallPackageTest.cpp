#include <gtest/gtest.h>

#include "machine/TestMachine.h"
#include "packages/PackageFormat.h"
#include "packages/frmPackager.h"
#include "shiptgl/ShipDefinition.h"
#include "text/Utf8.h"
#include "tgl/TGLFile.h"

namespace tarvo::test {
namespace {

/// The Packager with a package "x" to install.
class Installing : public testing::Test {
 protected:
  void SetUp() override { machine.Start().Visible = true; }

  static FileText Package(const std::vector<std::pair<Text, FileText>>& files) {
    Text list;
    FileText bodies;
    for (const auto& [entry, body] : files) {
      list += entry + u"\r\n";
      bodies += body + BodyEnd();
    }
    return PackageHead(list, u"1/1/2026") + bodies;
  }

  /// Installs the package and gives the icon of the closing box.
  BoxIcon Install(const FileText& package) {
    machine.WriteFile(program + u"\\Tarvos\\x.Tarvo", package);
    machine.boxes.clear();
    machine.questions.clear();
    frmPackager& screen = machine.app.Screen<frmPackager>();
    screen.Visible = true;
    screen.cboFileName.SetText(u"x");
    screen.lblTest.Press();
    EXPECT_FALSE(screen.fraProgress.Visible);
    return machine.boxes.back().Icon;
  }

  Text Status() { return machine.Start().StatusBar.Panel1; }

  TestMachine machine;
  Text game = machine.GameFolder();
  Text program = machine.ProgramFolder();
};

TEST_F(Installing, WritesEveryByteWhereItBelongs) {
  FileText all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  FileText large;
  for (int i = 0; i < 3000; ++i) large += all;
  machine.WriteFile(game + u"\\data\\models\\ships\\other.nif", "other");
  EXPECT_EQ(Install(Package({{u"\\data\\Models\\Ships\\It's \u00FC b\\a.nif", large},
                             {u"\\scripts\\ships\\A.py", all},
                             {u"\\ShipTGLs\\A.TGL", "tgl"},
                             {u"\\scripts\\b.tgl", "game file"},
                             {u"\\empty\\none.py", ""}})),
            BoxIcon::Information);
  EXPECT_EQ(machine.boxes.back().Message, u"Tarvo \"x\" has been installed into your Game!");
  EXPECT_EQ(machine.FilesBelow(game),
            (std::vector<Text>{u"\\data\\models\\ships\\It's \u00FC b\\a.nif",
                               u"\\data\\models\\ships\\other.nif",
                               u"\\scripts\\Custom\\FoundationConfig.py", u"\\scripts\\b.tgl",
                               u"\\scripts\\ships\\A.py", u"\\stbc.exe"}));
  EXPECT_EQ(machine.Bytes(game + u"\\data\\Models\\Ships\\It's \u00FC b\\a.nif"), large);
  EXPECT_EQ(machine.Bytes(game + u"\\scripts\\ships\\A.py"), all);
  EXPECT_EQ(machine.Bytes(program + u"\\ShipTGLs\\A.TGL"), "tgl");
  EXPECT_TRUE(machine.disk->FolderExists(game + u"\\empty"));
  EXPECT_TRUE(machine.questions.empty());
}

TEST_F(Installing, DefinitionGoesIntoTheGameAndTakesThePlaceOfItsOldTexts) {
  const Text ships = game + u"\\data\\TGL\\Ships.TGL";
  const Text quickBattle = game + u"\\data\\TGL\\QuickBattle\\QuickBattle.TGL";
  const auto make = [&](const Text& path, const Text& ship, const Text& longName) {
    machine.WriteFile(path, "");
    TGLFile file(*machine.disk);
    AddDefinition(file.Strings(), ship, {.LongName = longName});
    file.Update(path, true);
    return machine.Bytes(path);
  };
  make(ships, u"Other", u"");
  make(quickBattle, u"Other", u"");
  for (const TextView longName : {u"First", u"Second"}) {
    const FileText body = make(program + u"\\new", u"N 1", Text(longName));
    EXPECT_EQ(Install(Package({{u"\\ShipTGLs\\N 1.TGL", body}})), BoxIcon::Information);
    EXPECT_EQ(machine.boxes.size(), 1u);
    EXPECT_TRUE(machine.questions.empty());
    EXPECT_EQ(machine.Bytes(program + u"\\ShipTGLs\\N 1.TGL"), body);
    for (const Text& path : {ships, quickBattle}) {
      TGLFile file(*machine.disk);
      file.SetFilename(path);
      file.Load();
      EXPECT_EQ(file.Strings().Lookup(u"N 1")->Data, longName);
    }
  }
}

TEST_F(Installing, DatabasesThatAreNoDefinitionsAreAskedAboutByThemselves) {
  const std::vector<Text> databases = {u"\\QBMenus\\Species.TGL", u"\\ShipTGLs\\old\\A.TGL"};
  for (const Text& database : databases) machine.WriteFile(program + database, "the user's");
  machine.WriteFile(game + u"\\1.py", "old");
  machine.answers = {u"All", u"No", u"No"};
  Install(Package({{u"\\1.py", "new"},
                   {databases[0], "foreign"},
                   {databases[1], "foreign"},
                   {u"\\1.py", "2"}}));
  EXPECT_EQ(
      machine.questions,
      (std::vector<Text>{u"File 1.py already exists!!!  Would you like to Overwrite???",
                         u"File Species.TGL already exists!!!  Would you like to Overwrite???",
                         u"File A.TGL already exists!!!  Would you like to Overwrite???"}));
  for (const Text& database : databases) EXPECT_EQ(machine.Bytes(program + database), "the user's");
  EXPECT_EQ(machine.Bytes(game + u"\\1.py"), "2") << "All goes on for the files of the game";
}

TEST_F(Installing, TheAssistantAsksOfFilesOfOneNameByTheirFolders) {
  machine.WriteFile(game + u"\\High\\t.tga", "old");
  machine.WriteFile(game + u"\\Low\\t.tga", "old");
  machine.app.State.PacHelper = true;
  machine.onDialog = [&](frmPac_InputBox&) { machine.Pass(8000); };
  machine.answers = {u"Yes", u"Yes"};
  machine.WriteFile(program + u"\\Tarvos\\x.Tarvo",
                    Package({{u"\\High\\t.tga", "new"}, {u"\\Low\\t.tga", "new"}}));
  frmPackager& screen = machine.app.Screen<frmPackager>();
  screen.cboFileName.SetText(u"x");
  screen.InstallPackage();
  EXPECT_EQ(
      machine.questions,
      (std::vector<Text>{u"File t.tga already exists!!!  Would you like to Overwrite???",
                         u"File \\Low\\t.tga already exists!!!  Would you like to Overwrite???"}));
  EXPECT_EQ(machine.Bytes(game + u"\\Low\\t.tga"), "new");
}

TEST_F(Installing, AsksBeforeItOverwritesUntilToldAll) {
  for (const TextView name : {u"1", u"2", u"3", u"4"}) {
    machine.WriteFile(game + u"\\s\\" + Text(name) + u".py", "old");
  }
  machine.answers = {u"No", u"Yes", u"All"};
  Install(Package({{u"\\s\\1.py", "new"},
                   {u"\\s\\2.py", "new"},
                   {u"\\s\\3.py", "new"},
                   {u"\\s\\4.py", "new"},
                   {u"\\s\\4.py", "twice"}}));
  EXPECT_EQ(machine.questions,
            (std::vector<Text>{u"File 1.py already exists!!!  Would you like to Overwrite???",
                               u"File 2.py already exists!!!  Would you like to Overwrite???",
                               u"File 3.py already exists!!!  Would you like to Overwrite???"}));
  EXPECT_EQ(machine.Bytes(game + u"\\s\\1.py"), "old");
  EXPECT_EQ(machine.Bytes(game + u"\\s\\2.py"), "new");
  EXPECT_EQ(machine.Bytes(game + u"\\s\\3.py"), "new");
  EXPECT_EQ(machine.Bytes(game + u"\\s\\4.py"), "twice");
}

TEST_F(Installing, OneUnsafeEntryRefusesTheWholePackage) {
  for (const TextView entry : {u"\\..\\evil.py", u"evil.py", u"\\C:\\evil.py",
                               u"\\ShipTGLs\\..\\..\\a.TGL", u"\\scripts\\nul"}) {
    EXPECT_EQ(Install(Package({{u"\\good.py", "x"}, {Text(entry), "x"}})), BoxIcon::Critical);
    EXPECT_EQ(machine.boxes.back().Message, u"An Error Occured while trying to extract!");
    EXPECT_EQ(Status().find(u"x.Tarvo: " + Text(entry) + u": it"), 0u) << Utf8FromText(Status());
    EXPECT_EQ(machine.app.Screen<frmPackager>().PackageList, u"") << "it isn't left at hand";
    EXPECT_EQ(machine.FilesBelow(game),
              (std::vector<Text>{u"\\scripts\\Custom\\FoundationConfig.py", u"\\stbc.exe"}));
  }
  EXPECT_EQ(machine.Bytes(machine.folder.Game() + u"\\evil.py"), "(missing)");
}

TEST_F(Installing, PackageCutAnywhereHarmsNothing) {
  machine.WriteFile(game + u"\\s\\1.py", "old");
  const FileText whole = Package({{u"\\s\\1.py", "new"}, {u"\\s\\2.py", "more"}});
  for (std::size_t size = 0; size < whole.size() - 2; ++size) {
    machine.answers = {u"All"};
    EXPECT_EQ(Install(whole.substr(0, size)), BoxIcon::Critical) << "cut to " << size;
    EXPECT_EQ(machine.Bytes(game + u"\\s\\1.py"), "old");
    EXPECT_TRUE(Status().starts_with(u"x.Tarvo: byte")) << Utf8FromText(Status());
  }
  EXPECT_EQ(machine.FilesBelow(game).size(), 3u);
}

TEST_F(Installing, FileThatCantBeWrittenIsNamedAndTheRestFollows) {
  machine.WriteFile(game + u"\\s\\1.py", "old");
  machine.disk->SetAttributes(game + u"\\s\\1.py", kReadOnlyFile);
  machine.WriteFile(game + u"\\folder", "a file where a folder is wanted");
  machine.answers = {u"All"};
  EXPECT_EQ(Install(Package({{u"\\s\\1.py", "new"}, {u"\\folder\\2.py", "x"}, {u"\\3.py", "x"}})),
            BoxIcon::Information);
  ASSERT_EQ(machine.boxes.size(), 3u);
  EXPECT_EQ(machine.boxes[0],
            (TestMachine::Box{u"Can't write to File " + game +
                                  u"\\s\\1.py!!!  This File is Corrupted or Missing!",
                              BoxIcon::Critical}));
  EXPECT_EQ(machine.Bytes(game + u"\\s\\1.py"), "old");
  EXPECT_EQ(machine.Bytes(game + u"\\3.py"), "x");
  EXPECT_NE(Status().find(u"1.py: " + SystemErrorText(kAccessDenied) + u" (and 1 more)"),
            Text::npos);
}

TEST_F(Installing, FilesOfOneCauseAreToldInOneBoxBehindTheFirst) {
  std::vector<std::pair<Text, FileText>> files;
  for (const TextView name : {u"1", u"2", u"3", u"4", u"5"}) {
    files.emplace_back(u"\\s\\" + Text(name) + u".py", "new");
    machine.WriteFile(game + files.back().first, "old");
    machine.disk->SetAttributes(game + files.back().first, kReadOnlyFile);
  }
  machine.answers = {u"All"};
  EXPECT_EQ(Install(Package(files)), BoxIcon::Information);
  ASSERT_EQ(machine.boxes.size(), 3u);
  EXPECT_TRUE(machine.boxes[0].Message.starts_with(u"Can't write to File " + game + u"\\s\\1.py"));
  EXPECT_EQ(machine.boxes[1].Message.find(u"1.py"), Text::npos);
  for (const TextView name : {u"2", u"3", u"4", u"5"}) {
    EXPECT_NE(machine.boxes[1].Message.find(u"\\s\\" + Text(name) + u".py"), Text::npos);
  }
  EXPECT_EQ(machine.app.Failures.size(), 5u);
}

/// The marker alone in a file, and with the line ends that a section has around it.
TEST_F(Installing, WarnsOfACutFileBeforeItWrites) {
  for (const FileText& body : {FileText("bbb===Next File===bbb"), "b" + BodyEnd() + "b"}) {
    machine.WriteFile(game + u"\\a.py", "old");
    machine.onDialog = [&](frmPac_InputBox&) { EXPECT_EQ(machine.boxes.size(), 1u); };
    Install(Package({{u"\\a.py", "a"}, {u"\\b.py", body}, {u"\\c.py", "c"}}));
    ASSERT_EQ(machine.boxes.size(), 2u);
    const Text words = machine.boxes[0].Message;
    EXPECT_EQ(words.find(u"\\a.py") == Text::npos, body[1] == 'b') << Utf8FromText(words);
    EXPECT_NE(words.find(u"\\b.py"), Text::npos);
    EXPECT_NE(words.find(u"\\c.py"), Text::npos);
  }
}

TEST_F(Installing, ADefinitionThatCantBeWrittenIsNotMerged) {
  const Text ships = game + u"\\data\\TGL\\Ships.TGL";
  for (const Text& path : {ships, game + u"\\data\\TGL\\QuickBattle\\QuickBattle.TGL"}) {
    machine.WriteFile(path, "");
    TGLFile file(*machine.disk);
    file.Strings().Add(u"Galaxy", u"x", u"");
    file.Update(path, true);
  }
  const Text definition = DefinitionPath(program, u"A");
  machine.WriteFile(definition, "");
  TGLFile old(*machine.disk);
  AddDefinition(old.Strings(), u"A", {.LongName = u"old"});
  old.Update(definition, true);
  const FileText before = machine.Bytes(ships);
  machine.disk->SetAttributes(definition, kReadOnlyFile);
  Install(Package({{u"\\ShipTGLs\\A.TGL", "new"}}));
  EXPECT_EQ(machine.Bytes(ships), before);
}

TEST_F(Installing, FullDiskLosesNoOldFile) {
  machine.WriteFile(game + u"\\s\\1.py", "old");
  for (const FileStep step : {FileStep::Copy, FileStep::Commit}) {
    machine.answers = {u"Yes"};
    machine.files.Fail(step, 1, kDiskFull);
    Install(Package({{u"\\s\\1.py", "new"}}));
    EXPECT_EQ(machine.Bytes(game + u"\\s\\1.py"), "old");
    EXPECT_EQ(machine.FilesBelow(game).size(), 3u);
  }
}

TEST_F(Installing, FullDiskEndsTheCommandAndNamesWhatWasWritten) {
  machine.files.FailAfterBytes(1000, kDiskFull);
  EXPECT_EQ(Install(Package({{u"\\1.py", "x"},
                             {u"\\2.py", FileText(2000, 'x')},
                             {u"\\3.py", "x"},
                             {u"\\4.py", FileText(2000, 'x')}})),
            BoxIcon::Critical);
  ASSERT_EQ(machine.boxes.size(), 3u);
  EXPECT_EQ(machine.boxes[2].Message, u"An Error Occured while trying to extract!");
  const Text words = machine.boxes[1].Message;
  const std::size_t left = words.find(u"have not");
  EXPECT_LT(words.find(u"\\1.py"), left);
  for (const TextView entry : {u"\\2.py", u"\\3.py", u"\\4.py"}) {
    EXPECT_GT(words.find(entry), left);
    EXPECT_NE(words.find(entry), Text::npos);
  }
  EXPECT_EQ(machine.Bytes(game + u"\\3.py"), "(missing)");
}

TEST_F(Installing, WithoutAGameNothingIsWritten) {
  machine.app.State.GamePath.clear();
  EXPECT_EQ(Install(Package({{u"\\a.py", "x"}})), BoxIcon::Critical);
  EXPECT_EQ(Status(), u"no game's folder is known");
}

}  // namespace
}  // namespace tarvo::test
