#include <gtest/gtest.h>

#include "TGLTesting.h"

namespace tarvo {
namespace {

TEST(TGLStringsTest, AddFillsBlankDataAndMedia) {
  const struct {
    const char* Case;
    TGLString Given;
    TGLString Stored;
  } cases[] = {
      {"all given", {u" Ship ", u" x", u"y "}, {u" Ship ", u" x", u"y "}},
      {"empty Data", {u"Ship", u"", u"s.wav"}, {u"Ship", u" ", u"s.wav"}},
      {"blank Data", {u"Ship", u"   ", u"s.wav"}, {u"Ship", u" ", u"s.wav"}},
      {"empty Media", {u"Ship", u"d", u""}, {u"Ship", u"d", u"Ship.wav"}},
      {"blank Media", {u" Ship", u"d", u"  "}, {u" Ship", u"d", u" Ship.wav"}},
      {"a tab isn't blank", {u"\t", u"\r\n", u"\t"}, {u"\t", u"\r\n", u"\t"}},
  };
  for (const auto& [name, given, stored] : cases) {
    TGLStrings strings;
    EXPECT_EQ(*strings.Add(given.Name, given.Data, given.MediaFilename), stored) << name;
    EXPECT_EQ(Records(strings), std::vector{stored}) << name;
  }
}

TEST(TGLStringsTest, AddRefusesBlankNamesAndKeys) {
  TGLStrings strings;
  const char* blankName =
      "TGLStrings.Add: The TGL string's Name parameter cannot be blank.  Add failed.";
  EXPECT_EQ(Raised([&] { strings.Add(u"", u"d", u"m", u"key"); }), blankName);
  EXPECT_EQ(Raised([&] { strings.Add(u"  ", u"d", u"m", u" "); }), blankName);
  EXPECT_EQ(Raised([&] { strings.Add(u"n", u"d", u"m", u" "); }),
            "TGLStrings.Add: The Key parameter may not be a blank string.  Add failed.");
  EXPECT_EQ(strings.Count(), 0);
}

TEST(TGLStringsTest, OneKeyStandsOnceWithoutRegardToCase) {
  TGLStrings strings;
  const auto first = strings.Add(u"ships", u"1", u"m");
  const auto second = strings.Add(u"SHIPS", u"2", u"m");
  EXPECT_EQ(second->Data, u"2");
  EXPECT_EQ(strings.Count(), 1);
  EXPECT_EQ(strings.Lookup(u"Ships"), first);
  EXPECT_NE(strings.Add(u"Ships", u"3", u"m", u"other"), nullptr);
  EXPECT_EQ(strings.Count(), 2);
  EXPECT_EQ(strings.Lookup(u"OTHER")->Data, u"3");
}

TEST(TGLStringsTest, EntriesAreFoundByPlaceAndByTheKeyTheyCameWith) {
  TGLStrings strings;
  const auto entry = strings.Add(u"1", u"one", u"m");
  strings.Add(u"b", u"two", u"m");
  entry->Name = u"renamed";
  EXPECT_EQ(strings.Item(u"1"), entry);
  EXPECT_EQ(strings.Item(1)->Name, u"renamed");
  EXPECT_EQ(strings.Item(2)->Data, u"two");
  EXPECT_EQ(strings.Lookup(u"renamed"), nullptr);
  EXPECT_EQ(strings.Item(u"2"), nullptr);
  for (const int place : {0, 3, -1}) EXPECT_EQ(strings.Item(place), nullptr) << place;
}

TEST(TGLStringsTest, RemoveMovesThePlacesUpAndFreesTheKey) {
  TGLStrings strings;
  for (const Text name : {u"a", u"b", u"c", u"d"}) strings.Add(name, name, name);
  const auto held = strings.Item(u"b");
  strings.Remove(u"B");
  strings.Remove(1);
  EXPECT_EQ(Records(strings), (std::vector<TGLString>{{u"c", u"c", u"c"}, {u"d", u"d", u"d"}}));
  EXPECT_EQ(held->Name, u"b");
  strings.Add(u"b", u"new", u"m");
  EXPECT_EQ(strings.Item(3)->Data, u"new");
  strings.Remove(3);
  EXPECT_EQ(strings.Lookup(u"b"), nullptr);

  EXPECT_NE(Raised([&] { strings.Remove(u"b"); }), "");
  EXPECT_NE(Raised([&] { strings.Remove(3); }), "");
  EXPECT_NE(Raised([&] { strings.Remove(0); }), "");
  EXPECT_EQ(strings.Count(), 2);
  strings.Clear();
  EXPECT_EQ(strings.Lookup(u"c"), nullptr);
  EXPECT_EQ(strings.Item(1), nullptr);
}

}  // namespace
}  // namespace tarvo
