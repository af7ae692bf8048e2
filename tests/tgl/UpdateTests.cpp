#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "TGLTesting.h"
#include "text/Utf8.h"
#include "tgl/TGLFile.h"
#include "tgl/TGLFileRep.h"

namespace tarvo {
namespace {

TGLFile ExampleIn(Files& files) {
  TGLFile file(files);
  file.SetFilename(kPath);
  for (const TGLString& string : kExample) {
    file.Strings().Add(string.Name, string.Data, string.MediaFilename);
  }
  return file;
}

TEST(UpdateTest, TheWorkedExampleGivesItsBytesAndKeepsTheCollectionsOrder) {
  MemoryFiles files;
  files.Put(kPath, FileText(200, 'x'));
  TGLFile file = ExampleIn(files);
  file.Update(file.Filename(), true);
  EXPECT_EQ(files.Bytes(kPath), kExampleFile);
  EXPECT_EQ(kExampleFile.size(), 88u);
  EXPECT_EQ(Records(file.Strings()), kExample);
}

TEST(UpdateTest, ChangedEntriesAndNamesReachTheFile) {
  MemoryFiles files;
  files.Put(kPath, kExampleFile + "tail");
  TGLFile file(files);
  file.SetFilename(kPath);
  file.Load();
  file.Strings().Lookup(u"yes")->Name = u"A";
  file.Strings().Lookup(u"yes")->Data = u"";
  file.Strings().Remove(u"no");
  file.Update(kPath, true);
  EXPECT_EQ(files.Bytes(kPath), kExampleFile.substr(0, 12) + Long(1) + FileText(12, '\0') +
                                    Bytes("02000000 4100 01000000 0000 08000000 5965732E77617600"));
}

TEST(UpdateTest, Refusals) {
  MemoryFiles files;
  TGLFile file = ExampleIn(files);
  EXPECT_EQ(Raised([&] { file.Update(u" ", true); }),
            "TGLFile.Update: No output filename specified!  Update failed.");
  EXPECT_EQ(Raised([&] { TGLFileRep(files).WriteFile(kPath, nullptr, true); }),
            "TGLFile.Update: Invalid parameter.  Parameter 'Strings' is Null.  Update failed.");
  EXPECT_EQ(Raised([&] { TGLFile(files).Update(kPath, true); }),
            "TGLFile.Update: There are no TGL strings in the Strings() collection!  Update "
            "failed.");
  EXPECT_FALSE(files.FileExists(kPath));

  file.Update(kPath);
  EXPECT_EQ(files.Bytes(kPath), kExampleFile);
  files.Put(kPath, "old");
  EXPECT_EQ(Raised([&] { file.Update(kPath); }),
            "TGLFile.Update: Output file 'Z:\\Ships.TGL' already exists and "
            "Overwrite parameter is False.  Update failed.");

  file.Strings().Add(u"Ship365020", u"d", u"m");
  file.Strings().Add(u"Ship216254", u"d", u"m");
  EXPECT_EQ(Raised([&] { file.Update(kPath, true); }),
            "TGLFileRep.Write_SortString: An error occurred in while hashing the strings.  Error: "
            "The names 'Ship365020' and 'Ship216254' have one hash, 74ED6A00.");
  EXPECT_EQ(files.Bytes(kPath), "old");
}

TEST(UpdateTest, WritesNothingThatTheLoaderWouldRefuse) {
  const std::pair<const char*, std::function<void(TGLStrings&)>> cases[] = {
      {"two that become one",
       [](TGLStrings& strings) {
         strings.Add(u"\u0416", u"d", u"m");
         strings.Add(u"\u0429", u"d", u"m");
       }},
      {"one that becomes a string of the file",
       [](TGLStrings& strings) { strings.Add(u"\u0416\u0416", u"d", u"m"); }},
      {"two keys for one name",
       [](TGLStrings& strings) {
         strings.Add(u"b", u"d", u"m");
         strings.Add(u"B", u"d", u"m", u"key");
       }},
      {"blank", [](TGLStrings& strings) { strings.Lookup(u"yes")->Name = u" "; }},
      {"cut short", [](TGLStrings& strings) { strings.Add(Text(u"a\0", 2), u"d", u"m"); }},
  };
  MemoryFiles files;
  TGLFile file = ExampleIn(files);
  file.Strings().Add(u"??", u"d", u"m");
  file.Update(kPath, true);
  const FileText old = files.Bytes(kPath);
  for (const auto& [name, change] : cases) {
    file.SetFilename(kPath);
    file.Load();
    change(file.Strings());
    EXPECT_THAT(Raised([&] { file.Update(kPath, true); }), testing::StartsWith("TGLFileRep.Write"))
        << name;
    EXPECT_EQ(files.Bytes(kPath), old) << name;
  }
}

TEST(UpdateTest, WhateverStepFailsTheOldFileStands) {
  MemoryFiles disk;
  FailingFiles files(disk);
  TGLFile file = ExampleIn(files);
  for (const auto& string : file.Strings()) string->Data = Text(200000, u'x');  // Several writes.
  file.Update(kPath, true);
  const FileText wanted = disk.Bytes(kPath);
  const int steps = files.AllSteps();
  EXPECT_GT(steps, 4);
  for (int step = 1; step <= steps; ++step) {
    disk.Put(kPath, "old");
    files.FailAny(step, kDiskFull);
    EXPECT_EQ(Raised([&] { file.Update(kPath, true); }),
              "helper_CopyFile: Failed to copy file 'the new Ships.TGL' to "
              "'Z:\\Ships.TGL'\r\nReason: " +
                  Utf8FromText(SystemErrorText(kDiskFull)))
        << step;
    EXPECT_EQ(disk.Bytes(kPath), "old") << step;
    files.Heal();
  }
  file.Update(kPath, true);
  EXPECT_EQ(disk.Bytes(kPath), wanted);
}

}  // namespace
}  // namespace tarvo
