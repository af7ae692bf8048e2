#include <gtest/gtest.h>

#include "TGLTesting.h"
#include "text/Utf8.h"
#include "tgl/TGLFile.h"
#include "tgl/TGLFileRep.h"

namespace tarvo {
namespace {

const std::string kReadFailed =
    "TGLFileRep.ReadFile: An error occurred while attempting to read the file.  Error: ";

FileText Header(std::int32_t count, std::int32_t major = 1, std::int32_t minor = 0,
                std::int32_t magic = 5889) {
  FileText bytes;
  for (const std::int32_t field : {magic, major, minor, count}) {
    bytes += Long(static_cast<std::uint32_t>(field));
  }
  return bytes;
}

std::vector<TGLString> Loaded(const FileText& bytes) {
  MemoryFiles files;
  files.Put(kPath, bytes);
  return Records(TGLFileRep(files).ReadFile(kPath));
}

TEST(ReadFileTest, Refusals) {
  const std::string blankName = "The TGL string's Name parameter cannot be blank.  Add failed.";
  const std::string blocks = "An error occurred while reading in the file offset blocks!  Error: ";
  const std::string noMagic = "The file does not appear to be a valid TGL file!";
  FileText caseTwins = kExampleFile;
  caseTwins.replace(0x2C, 7, FileText("NoA\0noA", 7));
  caseTwins.insert(0x33, 1, '\0');
  const struct {
    const char* Case;
    FileText File;
    std::string Words;
  } cases[] = {
      {"empty file", "", noMagic},
      {"less than its magic", kExampleFile.substr(0, 3), noMagic},
      {"less than a header", kExampleFile.substr(0, 15), noMagic},
      {"magic comes before version", Header(1, 2, 0, 5890), noMagic},
      {"version 1.1", Header(1, 1, 1),
       "Wrong file version.  The file version is 1.1 - expected version 1.0."},
      {"version 2.0", Header(1, 2),
       "Wrong file version.  The file version is 2.0 - expected version 1.0."},
      {"version -1.-2", Header(1, -1, -2),
       "Wrong file version.  The file version is -1.-2 - expected version 1.0."},
      {"no strings", Header(0), blocks + "A file can't hold 0 strings."},
      {"a negative count", Header(-1), blocks + "A file can't hold -1 strings."},
      {"two billion strings", Header(2000000000) + FileText(1008, 'x'),
       blocks + "A file can't hold 2000000000 strings."},
      {"more strings than bytes", Header(178000000) + FileText(1008, 'x'), blankName},
      {"ends in the offset blocks", kExampleFile.substr(0, 0x20), blankName},
      {"ends in the name block", kExampleFile.substr(0, 0x2F), blankName},
      {"a blank name", FileText(kExampleFile).replace(0x2C, 2, "  "), blankName},
      {"names that differ in case", caseTwins,
       "There is no string at the place 2, as names of the file differ only in case."},
  };
  for (const auto& [name, bytes, words] : cases) {
    EXPECT_EQ(Raised([&] { Loaded(bytes); }), kReadFailed + words) << name;
  }
}

TEST(ReadFileTest, AFileCutInItsDataOrMediaLoads) {
  for (std::size_t length = 0x33; length <= kExampleFile.size(); ++length) {
    const std::vector<TGLString> strings = Loaded(kExampleFile.substr(0, length));
    ASSERT_EQ(strings.size(), 2u) << length;
    EXPECT_EQ(strings[1].Data, length < 0x40 ? u"" : length < 0x42 ? u"H" : u"Hi") << length;
    EXPECT_EQ(strings[0].MediaFilename,
              Text(u"No.wav").substr(0, length < 0x49 ? 0 : length - 0x49))
        << length;
    EXPECT_EQ(strings[1].MediaFilename,
              Text(u"Yes.wav").substr(0, length < 0x50 ? 0 : length - 0x50))
        << length;
  }
}

TEST(ReadFileTest, OffsetsSizesOrderAndWhatFollowsDontMatter) {
  FileText odd = kExampleFile + "more";
  odd.replace(0x10, 24, FileText(24, '\x7F'));
  for (const std::size_t size : {0x28, 0x33, 0x45}) odd.replace(size, 4, "\xFF\xFF\xFF\xFF");
  odd.replace(0x2C, 7, FileText("Yes\0No", 7));
  const std::vector<TGLString> strings = Loaded(odd);
  EXPECT_EQ(strings,
            (std::vector<TGLString>{{u"Yes", u"Bye", u"No.wav"}, {u"No", u"Hi", u"Yes.wav"}}));
}

TEST(ReadFileTest, EveryByteAndUnitComesThrough) {
  FileText names;
  Text data;
  for (int byte = 1; byte < 256; ++byte) names += static_cast<char>(byte);
  for (int unit = 1; unit < 0x10000; ++unit) data += static_cast<char16_t>(unit);
  FileText bytes = Header(1) + FileText(12, '\0') + Long(256) + names + '\0' + Long(0x10000);
  for (const char16_t unit : data) bytes += {static_cast<char>(unit), static_cast<char>(unit >> 8)};
  bytes += FileText(2, '\0') + Long(256) + names + '\0';

  MemoryFiles files;
  files.Put(kPath, bytes);
  TGLFile file(files);
  file.SetFilename(kPath);
  file.Load();
  EXPECT_EQ(file.Strings().Item(1)->Data, data);
  file.Update(kPath, true);
  EXPECT_EQ(files.Bytes(kPath), bytes);
}

TEST(ReadFileTest, NamesOfFilesThatCantBeRead) {
  MemoryFiles disk;
  disk.Put(kPath, kExampleFile);
  FailingFiles files(disk);
  TGLFileRep rep(files);
  EXPECT_EQ(Raised([&] { rep.ReadFile(u" "); }),
            kReadFailed + "No source filename specified.  Load failed.");
  EXPECT_EQ(Raised([&] { rep.ReadFile(u"Z:\\bc\\none.TGL"); }),
            kReadFailed + "Couldn't find source file 'Z:\\bc\\none.TGL.'  Load failed.");
  for (const auto step : {test::FileStep::Open, test::FileStep::Read}) {
    rep.ReadFile(kPath);
    EXPECT_EQ(rep.MajorVersion(), 1);
    files.Fail(step, 1, kReadFault);
    EXPECT_EQ(Raised([&] { rep.ReadFile(kPath); }),
              kReadFailed + Utf8FromText(SystemErrorText(kReadFault)));
    EXPECT_EQ(rep.MajorVersion(), 0);
  }
}

TEST(ReadFileTest, AFailedLoadLeavesTheStringsAndTheObject) {
  MemoryFiles files;
  files.Put(kPath, kExampleFile.substr(0, 0x2F));
  TGLFile file(files);
  file.SetFilename(u"  " + kPath + u" ");
  EXPECT_EQ(file.Filename(), kPath);
  file.Strings().Add(u"kept", u"d", u"m");
  EXPECT_NE(Raised([&] { file.Load(); }), "");
  EXPECT_EQ(file.Strings().Item(1)->Name, u"kept");
  files.Put(kPath, kExampleFile);
  file.Load();
  EXPECT_EQ(Records(file.Strings()), (std::vector<TGLString>{kExample[1], kExample[0]}));
}

}  // namespace
}  // namespace tarvo
