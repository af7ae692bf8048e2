#include <gtest/gtest.h>

#include "packages/PackageFormat.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

TEST(PackageFormat, HeadIsBannerListAndSemicolon) {
  const FileText rule(87, '#');
  const FileText head =
      PackageHead(u"\\scripts\\ships\\B\u00FCrger.py\r\n\\ShipTGLs\\a.TGL\r\n", u"11/22/2026");
  EXPECT_EQ(head, rule +
                      "\r\n"
                      "#  Bridge Commander Tarvo Pak                                               "
                      "          #\r\n"
                      "#  Created by Tarvo Packager BETA v4.0                                      "
                      "          #\r\n"
                      "#  Date: 11/22/2026                                                         "
                      "           #\r\n" +
                      rule +
                      "\r\n\r\n"
                      "\\scripts\\ships\\B\xFCrger.py\r\n"
                      "\\ShipTGLs\\a.TGL\r\n"
                      ";\r\n");
  EXPECT_EQ(BodyEnd(), "\r\n===Next File===\r\n");
}

TEST(PackageFormat, EntriesAreWhatStandsInFrontOfEachLineEnd) {
  EXPECT_EQ(EntriesOf(u"\\a\r\n\\b c\r\n\r\n\\d"), (std::vector<Text>{u"\\a", u"\\b c", u""}));
  EXPECT_TRUE(EntriesOf(u"").empty());
}

TEST(PackageFormat, OnlyCapitalTGLLiesBelowTheProgramFolder) {
  EXPECT_TRUE(IsTGLEntry(u"\\ShipTGLs\\a.TGL"));
  EXPECT_TRUE(IsTGLEntry(u"\\xTGL"));
  EXPECT_FALSE(IsTGLEntry(u"\\ShipTGLs\\a.tgl"));
  EXPECT_FALSE(IsTGLEntry(u"GL"));
}

TEST(PackageFormat, EntriesThatCouldHarmAreUnsafe) {
  const Text nul(u"\\a\0.py", 6);
  for (const Text& entry : {Text(u""),
                            Text(u"scripts\\a.py"),
                            Text(u"\\\\server\\a"),
                            Text(u"\\..\\a"),
                            Text(u"\\a\\..\\b"),
                            Text(u"\\a\\.."),
                            Text(u"\\C:\\a"),
                            Text(u"\\a.py:stream"),
                            nul,
                            Text(u"\\a\n.py"),
                            Text(u"\\a\x7F"),
                            Text(u"\\a/../../b"),
                            Text(u"\\a\\"),
                            Text(u"\\a\\\\b"),
                            Text(u"\\a.\\b"),
                            Text(u"\\a \\b"),
                            Text(u"\\a\\b."),
                            Text(u"\\a\\b "),
                            Text(u"\\."),
                            Text(u"\\CON"),
                            Text(u"\\a\\nul.py"),
                            Text(u"\\Aux .txt"),
                            Text(u"\\com1"),
                            Text(u"\\LPT9.tar.gz"),
                            Text(u"\\com\u00B9.x"),
                            Text(u"\\conin$"),
                            Text(u"\\ShipTGLs\\*.TGL"),
                            Text(u"\\a?"),
                            Text(u"\\a\"b"),
                            Text(u"\\a<b>\\c"),
                            Text(u"\\a|b"),
                            u"\\a\\" + Text(128, u'\u00FC')}) {
    EXPECT_TRUE(UnsafeReason(entry)) << Utf8FromText(entry);
  }
}

TEST(PackageFormat, EntriesOfRealModsAreSafe) {
  for (const TextView entry :
       {u"\\stbc.exe", u"\\scripts\\ships\\Sovereign.py",
        u"\\data\\Models\\Ships\\It's \u00FC\\a b.NIF", u"\\.hidden", u"\\a..b", u"\\console.py",
        u"\\com10", u"\\com0", u"\\ a", u"\\nulls"}) {
    EXPECT_FALSE(UnsafeReason(entry)) << Utf8FromText(entry);
    EXPECT_FALSE(UnpackableReason(entry)) << Utf8FromText(entry);
  }
}

TEST(PackageFormat, WhatTheFramingOrCodePageCantCarryIsUnpackable) {
  EXPECT_TRUE(UnpackableReason(u"\\a;b.py"));
  EXPECT_TRUE(UnpackableReason(u"\\\u4E2D.py"));
  EXPECT_TRUE(UnpackableReason(u"\\a.py "));
}

}  // namespace
}  // namespace tarvo::test
