#include <gtest/gtest.h>

#include "TGLTesting.h"
#include "tgl/TGLFileRep.h"
#include "tgl/TGLRepair.h"

namespace tarvo {
namespace {

/// A file with strings of one letter each in data and media, counted up from A.
FileText FileOf(const std::vector<FileText>& names) {
  FileText bytes = Long(5889) + Long(1) + Long(0) + Long(static_cast<std::uint32_t>(names.size()));
  bytes += FileText(12 * names.size(), '\x7F') + Long(0);
  for (const FileText& name : names) bytes += name + '\0';
  bytes += Long(0);
  for (std::size_t i = 0; i < names.size(); ++i) {
    bytes += {static_cast<char>('A' + i), '\0', '\0', '\0'};
  }
  bytes += Long(0);
  for (std::size_t i = 0; i < names.size(); ++i) bytes += {static_cast<char>('a' + i), '\0'};
  return bytes;
}

TEST(RepairTest, DropsWhatTheLoaderRefusesAndWritesTheRest) {
  MemoryFiles files;
  files.Put(kPath, FileOf({"", "Ship365020", "No", "nO", "  ", "Ship216254", "Yes", "No"}));
  TGLFileRep rep(files);
  EXPECT_NE(Raised([&] { rep.ReadFile(kPath); }), "");

  const TGLRepair repair(rep.ReadEntries(kPath));
  const TGLRepair::Dropped dropped[] = {
      {1, u"", u"its name is blank"},
      {4, u"nO", u"its name differs only in case from 'No'"},
      {5, u"  ", u"its name is blank"},
      {6, u"Ship216254", u"its name has the same hash as 'Ship365020'"},
      {8, u"No", u"its name stands already"},
  };
  ASSERT_EQ(repair.DroppedCount(), std::size(dropped));
  for (std::size_t i = 0; i < std::size(dropped); ++i) {
    EXPECT_EQ(repair.DroppedAt(i).Place, dropped[i].Place);
    EXPECT_EQ(repair.DroppedAt(i).Name, dropped[i].Name);
    EXPECT_EQ(repair.DroppedAt(i).Why, dropped[i].Why);
  }

  rep.WriteFile(u"Z:\\repaired.TGL", &repair.Strings());
  EXPECT_EQ(Records(rep.ReadFile(u"Z:\\repaired.TGL")),
            (std::vector<TGLString>{
                {u"No", u"C", u"c"}, {u"Ship365020", u"B", u"b"}, {u"Yes", u"G", u"g"}}));
}

TEST(RepairTest, ACutFileKeepsTheNamesThatItHolds) {
  MemoryFiles files;
  files.Put(kPath, kExampleFile.substr(0, 0x2F));
  const TGLEntries entries = TGLFileRep(files).ReadEntries(kPath);
  ASSERT_EQ(entries.Count(), 2);
  EXPECT_EQ(entries.At(1), (TGLString{u"No", u"", u""}));
  EXPECT_EQ(entries.At(2), (TGLString{u"", u"", u""}));
}

TEST(RepairTest, RefusesWhatIsNoDatabase) {
  const std::string failed =
      "TGLFileRep.ReadFile: An error occurred while attempting to read the file.  Error: ";
  const FileText header = kExampleFile.substr(0, 12);
  const struct {
    FileText File;
    std::string Words;
  } cases[] = {
      {"", "The file does not appear to be a valid TGL file!"},
      {header + Long(0),
       "An error occurred while reading in the file offset blocks!  Error: A file can't hold 0 "
       "strings."},
      {header + Long(84) + FileText(1007, '\0'), "The file ends inside its offset blocks."},
      {header + Long(178000000), "The file ends inside its offset blocks."},
  };
  for (const auto& [bytes, words] : cases) {
    MemoryFiles files;
    files.Put(kPath, bytes);
    EXPECT_EQ(Raised([&] { TGLFileRep(files).ReadEntries(kPath); }), failed + words);
  }
}

}  // namespace
}  // namespace tarvo
