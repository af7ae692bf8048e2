#include <gtest/gtest.h>

#include "WaveFile.h"
#include "desktop/WaveLength.h"

namespace tarvo::test {
namespace {

using namespace std::chrono_literals;

TEST(WaveLength, IsWhatTheHeaderSaysAndTheFileHolds) {
  const FileText whole = WaveFile(500);
  EXPECT_EQ(WaveLength(whole), 500ms);
  EXPECT_EQ(WaveLength(whole.substr(0, 44 + 22050 / 5)), 100ms) << "cut off";

  FileText boast = whole;
  boast.replace(40, 4, "\xFF\xFF\xFF\xFF");
  EXPECT_EQ(WaveLength(boast), 500ms) << "a length beyond the file's end";

  FileText other = whole;
  other.insert(36, "LIST" + LittleEndian(3, 4) + "odd" + FileText(1, '\0'));
  EXPECT_EQ(WaveLength(other), 500ms) << "a chunk of odd length in between";
}

TEST(WaveLength, IsNothingForGarbage) {
  const FileText whole = WaveFile(20);
  for (std::size_t size = 0; size < 44; ++size) {
    EXPECT_EQ(WaveLength(whole.substr(0, size)), std::nullopt) << size;
  }
  FileText idle = whole;
  idle.replace(28, 4, FileText(4, '\0'));
  EXPECT_EQ(WaveLength(idle), std::nullopt) << "no bytes a second";
  FileText endless = whole.substr(0, 12);
  for (int chunks = 0; chunks < 9; ++chunks) endless += "junk" + FileText(4, '\xFF');
  EXPECT_EQ(WaveLength(endless), std::nullopt);
  EXPECT_EQ(WaveLength(FileText(4096, 'R')), std::nullopt);
}

}  // namespace
}  // namespace tarvo::test
