#include <gtest/gtest.h>

#include "controls/ProgressBar.h"
#include "machine/TestMachine.h"
#include "platform/Guarded.h"
#include "platform/Sound.h"
#include "state/CommonUtilities.h"
#include "state/FileFacts.h"

namespace tarvo::test {
namespace {

FileText AllBytes() {
  FileText all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  return all;
}

class Utilities : public testing::Test {
 protected:
  void SetUp() override {
    machine.Start();
    app.ProgressBars[u"Game Tools"] = &bar;
    app.ProgressBars[u"Packager"] = &bar;
  }

  TestMachine machine;
  Application& app = machine.app;
  ProgressBar bar{nullptr};
  Text path = machine.GameFolder() + u"\\file.bin";
};

TEST_F(Utilities, CheckFileCountsMissesAndTakesFoldersForMissing) {
  app.State.MissingFileCount = 0;
  EXPECT_EQ(CheckFile(app, machine.GameFolder() + u"\\STBC.exe"), u"--> OK!");
  EXPECT_EQ(CheckFile(app, machine.GameFolder()), u"--> ERROR:  Missing File!!!");
  EXPECT_EQ(CheckFile(app, path), kFileMissing);
  EXPECT_EQ(app.State.MissingFileCount, 2);
}

TEST_F(Utilities, FilesComeBackByteForByteWithAnyChunk) {
  WriteFileText(app, path, AllBytes());
  for (const unsigned chunk : {1u, 255u, 256u, 257u, 100000u}) {
    app.State.ReadChunkSize = chunk;
    EXPECT_EQ(ReadFileText(app, path), AllBytes());
  }
  WriteFileText(app, path, "");
  EXPECT_EQ(machine.Bytes(path), AllBytes());
}

TEST_F(Utilities, ReadMovesTheBarOfTheScreenAtHand) {
  struct Case {
    TextView screen;
    std::size_t size;
    std::int64_t value;
  };
  app.State.ReadChunkSize = 1024;
  for (const Case& c : {Case{u"Game Tools", 2048, 2046}, Case{u"Game Tools", 100, 0},
                        Case{u"Game Tools", 1025, 1023}, Case{u"Packager", 2048, 2047},
                        Case{u"Packager", 1024, 1024}, Case{u"Packager", 3, 1}}) {
    machine.WriteFile(path, FileText(c.size, 'x'));
    app.State.CurrentScreen = Text(c.screen);
    EXPECT_EQ(ReadFileText(app, path).size(), c.size);
    EXPECT_EQ(bar.Max(), static_cast<std::int64_t>(c.size));
    EXPECT_EQ(bar.Value(), c.value) << c.size;
  }
}

TEST_F(Utilities, LookingNotesAFileThatCantBeReadToItsEnd) {
  app.State.CurrentScreen = u"Game Tools";
  ReadFileText(app, path);
  machine.WriteFile(path, "");
  ReadFileText(app, path);
  EXPECT_TRUE(app.Failures.empty());
  machine.WriteFile(path, "text");
  machine.files.Fail(FileStep::Open, 1, kAccessDenied);
  ReadFileText(app, path);
  machine.files.Fail(FileStep::Read, 1, kReadFault);
  ReadFileText(app, path);
  ASSERT_EQ(app.Failures.size(), 2u);
  EXPECT_EQ(app.Failures[0].Words, u"Can't open " + path + u": " + SystemErrorText(kAccessDenied));
  EXPECT_TRUE(app.Failures[1].OnFile);
}

TEST_F(Utilities, FactsThatCouldntBeReadAreReadAgain) {
  machine.WriteFile(path, "text");
  FileFacts<std::size_t> lengths(app, [](const FileText& text) { return text.size(); });
  machine.files.Fail(FileStep::Open, 1, kAccessDenied);
  EXPECT_THROW(lengths.Of(path), PlatformError);
  EXPECT_EQ(lengths.Of(path), 4u);
  const int opened = machine.files.Steps(FileStep::Open);
  EXPECT_EQ(lengths.Of(path), 4u);
  EXPECT_EQ(machine.files.Steps(FileStep::Open), opened);
}

TEST_F(Utilities, FailureTellsTheFileAndTheSystemsWords) {
  const RaisedError refused(u"TGLFileRep.ReadFile", u"Not valid.\r\nReally");
  NoteFailure(app, refused, path);
  NoteFailure(app, refused.Because(kDiskFull), path);
  ASSERT_EQ(app.Failures.size(), 2u);
  EXPECT_EQ(app.Failures[0].Words, path + u": Not valid. Really");
  EXPECT_FALSE(app.Failures[0].OnFile);
  EXPECT_EQ(app.Failures[1].Words,
            path + u": Not valid. Really (" + SystemErrorText(kDiskFull) + u")");
  EXPECT_TRUE(app.Failures[1].OnFile);
}

TEST_F(Utilities, WriteFailureIsToldInABoxAndNoted) {
  machine.WriteFile(path, "old");
  machine.disk->SetAttributes(path, kReadOnlyFile);
  WriteFileText(app, path, "new");
  EXPECT_EQ(machine.boxes.back(), (TestMachine::Box{u"Can't write to File " + path +
                                                        u"!!!  This File is Corrupted or Missing!",
                                                    BoxIcon::Critical}));
  EXPECT_EQ(machine.Start().StatusBar.Panel1.Get(), app.Failures.front().Words);
  EXPECT_EQ(machine.Bytes(path), "old");
  ClearReadOnly(app, path);
  ClearReadOnly(app, path + u".missing");
  WriteFileText(app, path, "new");
  EXPECT_EQ(machine.Bytes(path), "new");
}

TEST_F(Utilities, CopyFoldersTakesTheFoldersThatMatch) {
  const Text source = machine.ProgramFolder() + u"\\Foundation";
  machine.WriteFile(source + u"\\scripts\\Custom\\a.py", "new");
  machine.WriteFile(source + u"\\data\\b.bin", AllBytes());
  machine.WriteFile(source + u"\\loose.txt", "stays");
  machine.WriteFile(machine.GameFolder() + u"\\scripts\\custom\\A.PY", "old");
  CopyFolders(app, source + u"\\*", machine.GameFolder());
  EXPECT_EQ(machine.FilesBelow(machine.GameFolder()),
            (std::vector<Text>{u"\\data\\b.bin", u"\\scripts\\Custom\\A.PY",
                               u"\\scripts\\Custom\\FoundationConfig.py", u"\\stbc.exe"}));
  EXPECT_EQ(machine.Bytes(machine.GameFolder() + u"\\scripts\\custom\\A.py"), "new");
  EXPECT_TRUE(app.Failures.empty());
  CopyFolders(app, machine.ProgramFolder() + u"\\Missing\\*", machine.GameFolder());
  EXPECT_EQ(app.Failures.size(), 1u);
}

TEST_F(Utilities, NoSoundWithoutSoundFX) {
  app.State.SoundFX = false;
  machine.sound.Orders.clear();
  PlayEffect(app, u"Click.wav", kPlay);
  EXPECT_TRUE(machine.sound.Orders.empty());
}

TEST_F(Utilities, SystemTextsEndAtTheirNull) {
  const Text buffer(u"  text\0    ", 11);
  EXPECT_EQ(helper_TrimNull(buffer), u"text");
  EXPECT_EQ(helper_TrimNull(Text(u"   \0  ", 6)), u"");
  EXPECT_EQ(helper_TrimNull(u"Unknown Win32 Error."), u"Unknown Win32 Error.");
  EXPECT_EQ(helper_Win32ErrorText(987654), u"Unknown Win32 Error.");
  EXPECT_FALSE(helper_Win32ErrorText(kNoSuchFile).empty());
}

}  // namespace
}  // namespace tarvo::test
