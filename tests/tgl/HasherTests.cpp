#include <gtest/gtest.h>

#include "text/Utf8.h"
#include "tgl/TGLStringHasher.h"

namespace tarvo {
namespace {

TEST(TGLStringHasherTest, KnownHashes) {
  const struct {
    Text Source;
    const char* Hash;
  } cases[] = {
      {u"", "00000000"},
      {u"A", "B4E6D68C"},
      {u"a", "DC417FD4"},
      {u"Galaxy", "CFEBE96E"},
      {u"QBGalaxy", "F0215DF4"},
      {u"Galaxy Description", "0AD81C3A"},
      {u"Shuttle", "1F2FBC5D"},
      {u"Sovereign", "C2237024"},
      {u"Yes", "8B96546A"},
      {u"No", "6BCCCAFE"},
      {u"\u0141", "B4E6D68C"},
      {u"Galax\uFF79", "CFEBE96E"},
      {Text(1, u'\0'), "1D9F355F"},
  };
  for (const auto& [source, hash] : cases) {
    EXPECT_EQ(Utf8FromText(TGLStringHasher().HashString(source)), hash) << Utf8FromText(source);
  }
}

// Folding or trimming would give two of these one hash. Between them they look up every entry of
// each table, so that a wrong entry changes the sum; the sums were reckoned apart from this
// program.
TEST(TGLStringHasherTest, EveryEntryOfTheTablesCounts) {
  const TGLStringHasher hasher;
  EXPECT_NE(hasher.HashNumber(u"Galaxy "), hasher.HashNumber(u"Galaxy"));
  std::uint32_t mixed = 0;
  for (char16_t unit = 0; unit < 256; ++unit) {
    mixed = mixed * 31 + hasher.HashNumber(Text(1, unit));
  }
  EXPECT_EQ(mixed, 0xAD4D507Au);
}

}  // namespace
}  // namespace tarvo
