#include <gtest/gtest.h>

#include "TGLTesting.h"
#include "tgl/FileHelpers.h"
#include "tgl/VBFileStream.h"

namespace tarvo {
namespace {

using Access = VBFileStream::Access;

TEST(VBFileStreamTest, StringsEndAtTheirTerminatorTheirCountOrTheFile) {
  const struct {
    const char* Case;
    const char* File;
    StringType Form;
    std::int32_t Count;
    Text Read;
    std::int64_t PlaceBehind;
  } cases[] = {
      {"empty, one byte", "00 41", StringType::SingleByte, -1, u"", 2},
      {"empty, one unit", "0000 4100", StringType::SixteenBit, -1, u"", 3},
      {"bound before the terminator", "41424344", StringType::SingleByte, 3, u"ABC", 4},
      {"bound on the terminator", "414200 44", StringType::SingleByte, 3, u"AB", 4},
      {"bound behind the terminator", "4100 44", StringType::SingleByte, 3, u"A", 3},
      {"bound, units", "4100 4200 4300", StringType::SixteenBit, 2, u"AB", 5},
      {"no bound", "4100", StringType::SingleByte, 0, u"A", 3},
      {"code page", "80 81 FF 00", StringType::SingleByte, -1, u"\u20AC\u0081\u00FF", 5},
      {"units unchanged", "3412 00D8 0000", StringType::SixteenBit, -1, u"\u1234\xD800", 7},
      {"the file ends", "4142", StringType::SingleByte, -1, u"AB", 4},
      {"the file ends, units", "4100", StringType::SixteenBit, -1, u"A", 5},
      {"the file ends in a unit", "4100 42", StringType::SixteenBit, -1, u"AB", 7},
      {"a 0 byte alone ends no unit", "0041 0000", StringType::SixteenBit, -1, u"\u4100", 5},
  };
  for (const auto& item : cases) {
    MemoryFiles files;
    files.Put(kPath, Bytes(item.File));
    VBFileStream stream(files);
    stream.OpenFile(kPath, Access::Read);
    EXPECT_EQ(stream.ReadString(item.Form, item.Count), item.Read) << item.Case;
    EXPECT_EQ(stream.CurrentFilePos(), item.PlaceBehind) << item.Case;
  }
}

TEST(VBFileStreamTest, NumbersAreLittleEndianAndPastTheEndZero) {
  MemoryFiles files;
  files.Put(kPath, Bytes("04030280 FFFFFFFF 0102"));
  VBFileStream stream(files);
  stream.OpenFile(kPath, Access::Read);
  EXPECT_EQ(stream.FileSize(), 10);
  EXPECT_EQ(stream.ReadLong(), static_cast<std::int32_t>(0x80020304));
  EXPECT_EQ(stream.ReadLong(), -1);
  EXPECT_EQ(stream.ReadLong(), 0x0201);
  stream.Skip(4000000000u);
  EXPECT_EQ(stream.ReadLong(), 0);
  EXPECT_EQ(stream.ReadString(StringType::SingleByte), u"");
}

TEST(VBFileStreamTest, WritesTerminatorsAndReplacesOnlyWhenClosed) {
  MemoryFiles files;
  files.Put(kPath, "a longer old file");
  {
    VBFileStream dropped(files);
    dropped.OpenFile(kPath, Access::Replace);
    dropped.WriteLong(1);
  }
  EXPECT_EQ(files.Bytes(kPath), "a longer old file");

  VBFileStream stream(files);
  stream.OpenFile(kPath, Access::Replace);
  stream.WriteString("", StringType::SingleByte);
  stream.WriteString("", StringType::SixteenBit);
  stream.WriteString("\x80x?", StringType::SingleByte);
  stream.WriteString("4\x12", StringType::SixteenBit);
  stream.WriteLong(-2);
  EXPECT_EQ(stream.FileSize(), 15);
  EXPECT_EQ(stream.CurrentFilePos(), 16);
  stream.CloseFile();
  EXPECT_EQ(files.Bytes(kPath), Bytes("00 0000 80783F00 34120000 FEFFFFFF"));
}

TEST(VBFileStreamTest, CountsWhatHasLeftMemoryAsWell) {
  MemoryFiles files;
  VBFileStream stream(files);
  stream.OpenFile(kPath, Access::Replace);
  for (int i = 0; i < 3; ++i) stream.WriteString(FileText(300000, 'x'), StringType::SingleByte);
  EXPECT_EQ(stream.FileSize(), 900003);
  stream.CloseFile();
  EXPECT_EQ(files.Bytes(kPath).size(), 900003u);
}

TEST(VBFileStreamTest, RefusesWhatIsNotOpen) {
  MemoryFiles files;
  files.Put(kPath, "x");
  const char* notOpen =
      "FileStream.ValidateFileHandle: Invalid file handle.  VBFileStream has not been opened!";
  VBFileStream stream(files);
  EXPECT_EQ(Raised([&] { stream.ReadLong(); }), notOpen);
  EXPECT_EQ(Raised([&] { stream.ReadString(StringType::SingleByte); }), notOpen);
  EXPECT_EQ(Raised([&] { stream.WriteLong(1); }), notOpen);
  EXPECT_EQ(stream.FileSize() + stream.CurrentFilePos(), 0);

  stream.OpenFile(kPath, Access::Read);
  EXPECT_EQ(Raised([&] { stream.WriteString("x", StringType::SingleByte); }), notOpen);
  EXPECT_EQ(Raised([&] { stream.OpenFile(u"  ", Access::Read); }),
            "VBFileStream.CreateFile: The Filename parameter is empty.  Please specify a non-empty "
            "string when calling CreateFile.");
  EXPECT_THROW(stream.OpenFile(u"Z:\\none", Access::Read), PlatformError);
  EXPECT_EQ(stream.Filename(), u"");
  EXPECT_EQ(Raised([&] { stream.ReadLong(); }), notOpen);
}

TEST(FileHelpersTest, FilesFoldersAndWildcardsCountAsExisting) {
  MemoryFiles files;
  files.Put(u"Z:\\bc\\data\\Ships.TGL", "x");
  const struct {
    Text Name;
    bool Exists;
  } cases[] = {
      {u"", false},
      {u"Z:\\bc\\DATA\\ships.tgl", true},
      {u"Z:\\bc\\data", true},
      {u"Z:\\bc\\data\\*.TGL", true},
      {u"Z:\\bc\\data\\Ship?.TGL", true},
      {u"Z:\\bc\\data\\*.py", false},
      {u"Z:\\bc\\data\\Ships", false},
  };
  for (const auto& [name, exists] : cases) {
    EXPECT_EQ(helper_FileExists(files, name), exists) << Utf8FromText(name);
  }
}

}  // namespace
}  // namespace tarvo
