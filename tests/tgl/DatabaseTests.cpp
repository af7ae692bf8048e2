#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <utility>

#include "TGLTesting.h"
#include "text/CodePage.h"
#include "text/LetterCase.h"
#include "tgl/TGLFile.h"
#include "tgl/TGLStringHasher.h"

namespace tarvo {
namespace {

using Random = std::mt19937;

std::size_t Upto(Random& random, std::size_t greatest) {
  return std::uniform_int_distribution<std::size_t>(0, greatest)(random);
}

/// Mostly short, now and then long.
std::size_t AnyLength(Random& random) {
  return Upto(random, Upto(random, 99) == 0 ? 3000 : Upto(random, 9) == 0 ? 300 : 12);
}

Text AnyData(Random& random) {
  Text text(AnyLength(random), u' ');
  const std::size_t greatest = Upto(random, 1) == 0 ? 0x7E : 0xFFFE;
  for (char16_t& unit : text) unit = static_cast<char16_t>(1 + Upto(random, greatest));
  return text;
}

/// A text of bytes that aren't 0, as names and media have it.
Text AnyBytes(Random& random) {
  FileText bytes(AnyLength(random), ' ');
  const std::size_t greatest = Upto(random, 1) == 0 ? 0x7E : 0xFE;
  for (char& byte : bytes) byte = static_cast<char>(1 + Upto(random, greatest));
  return TextFromFileText(bytes);
}

/// Strings that can stand in one file, in no order.
std::vector<TGLString> AnyStrings(Random& random, std::size_t count) {
  std::vector<TGLString> strings;
  std::set<Text> keys;
  std::set<Text> hashes;
  while (strings.size() < count) {
    Text name = AnyBytes(random);
    if (name.find_first_not_of(u' ') == Text::npos) continue;
    if (keys.contains(FoldCase(name))) continue;
    if (!hashes.insert(TGLStringHasher().HashString(name)).second) continue;
    keys.insert(FoldCase(name));
    strings.push_back({std::move(name), AnyData(random), AnyBytes(random)});
  }
  return strings;
}

/// The order by exchanging, on the texts of the hashes.
void ExchangeSort(std::vector<TGLString>& strings) {
  std::vector<std::pair<Text, std::size_t>> keys;
  for (const TGLString& string : strings) {
    keys.emplace_back(TGLStringHasher().HashString(string.Name), keys.size());
  }
  for (std::size_t i = 0; i + 1 < keys.size(); ++i) {
    for (std::size_t j = i; j < keys.size(); ++j) {
      if (keys[i].first > keys[j].first) std::swap(keys[i], keys[j]);
    }
  }
  std::vector<TGLString> sorted;
  for (const auto& [hash, at] : keys) sorted.push_back(strings[at]);
  strings = std::move(sorted);
}

/// The file of sorted strings, put together straight from the description of the format.
FileText FileOf(const std::vector<TGLString>& strings) {
  FileText offsets;
  FileText names;
  FileText data;
  FileText media;
  for (const TGLString& string : strings) {
    offsets += Long(static_cast<std::uint32_t>(names.size())) +
               Long(static_cast<std::uint32_t>(data.size() / 2)) +
               Long(static_cast<std::uint32_t>(media.size()));
    names += FileTextFromText(string.Name) + '\0';
    for (const char16_t unit : string.Data + u'\0') {
      data += {static_cast<char>(unit), static_cast<char>(unit >> 8)};
    }
    media += FileTextFromText(string.MediaFilename) + '\0';
  }
  return Long(0x1701) + Long(1) + Long(0) + Long(static_cast<std::uint32_t>(strings.size())) +
         offsets + Long(static_cast<std::uint32_t>(names.size())) + names +
         Long(static_cast<std::uint32_t>(data.size() / 2)) + data +
         Long(static_cast<std::uint32_t>(media.size())) + media;
}

/// Adds the strings in their own order and updates, then loads the file and updates again: both
/// times it must be the file put together by hand.
void ExpectComesBack(std::vector<TGLString> strings) {
  MemoryFiles files;
  TGLFile made(files);
  for (const TGLString& string : strings) {
    const auto entry = made.Strings().Add(string.Name, u"", u"");
    entry->Data = string.Data;
    entry->MediaFilename = string.MediaFilename;
  }
  made.Update(kPath);
  ExchangeSort(strings);
  const FileText wanted = FileOf(strings);
  ASSERT_TRUE(files.Bytes(kPath) == wanted);

  TGLFile loaded(files);
  loaded.SetFilename(kPath);
  loaded.Load();
  // Strings that were looked at and strings that weren't take different ways to the file.
  loaded.Strings().Item(loaded.Strings().Count() / 2 + 1);
  loaded.Update(u"Z:\\again.TGL");
  ASSERT_TRUE(files.Bytes(u"Z:\\again.TGL") == wanted);
  ASSERT_EQ(Records(loaded.Strings()), strings);
  loaded.Update(kPath, true);
  ASSERT_TRUE(files.Bytes(kPath) == wanted);
}

TEST(DatabaseTest, TenThousandGeneratedDatabasesComeBackByteForByte) {
  Random random(20020226);
  for (int i = 0; i < 10000; ++i) {
    SCOPED_TRACE(i);
    ASSERT_NO_FATAL_FAILURE(ExpectComesBack(AnyStrings(random, 1 + Upto(random, 11))));
  }
}

TEST(DatabaseTest, ThousandsOfStringsComeBackByteForByte) {
  Random random(5889);
  for (const std::size_t count : {500u, 2000u, 4001u}) {
    SCOPED_TRACE(count);
    ASSERT_NO_FATAL_FAILURE(ExpectComesBack(AnyStrings(random, count)));
  }
}

// A loaded collection and a plain list go through the same changes.
TEST(DatabaseTest, KeysPlacesAndFileStayInStepThroughManyChanges) {
  Random random(1701);
  MemoryFiles files;
  std::vector<TGLString> pool = AnyStrings(random, 600);
  std::vector<TGLString> model(pool.begin(), pool.begin() + 300);
  files.Put(kPath, FileOf(model));
  TGLFile file(files);
  file.SetFilename(kPath);
  file.Load();
  for (int i = 0; i < 4000; ++i) {
    const TGLString& string = pool[Upto(random, pool.size() - 1)];
    const auto at = std::find(model.begin(), model.end(), string);
    const auto found = file.Strings().Lookup(FoldCase(string.Name));
    ASSERT_EQ(found != nullptr, at != model.end());
    if (!found) {
      *file.Strings().Add(string.Name, u"", u"") = string;
      model.push_back(string);
    } else if (Upto(random, 1) == 0) {
      file.Strings().Remove(FoldCase(string.Name));
      model.erase(at);
    } else {
      ASSERT_EQ(*found, string);
      file.Strings().Remove(static_cast<std::int32_t>(at - model.begin()) + 1);
      model.erase(at);
    }
  }
  ASSERT_EQ(Records(file.Strings()), model);
  file.Update(kPath, true);
  ExchangeSort(model);
  EXPECT_TRUE(files.Bytes(kPath) == FileOf(model));
}

}  // namespace
}  // namespace tarvo
