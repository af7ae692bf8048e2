#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "ships/Golden.h"
#include "ships/ShipCheck.h"
#include "text/CodePage.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

constexpr FileTextView kPlainScript =
    "\"FilenameHigh\": \"data/Models/a.nif\",\r\n\"FilenameMed\": \"m.nif\",\r\n"
    "\"FilenameLow\": \"l.nif\",\r\n\"Name\": \"A\",\r\n\"HardpointFile\": \"h\",\r\n";

/// The paths of a script's references, each behind its label.
std::vector<Text> Paths(FileTextView script) {
  std::vector<Text> paths;
  for (const ShipReference& reference : ShipReferences(script)) {
    paths.push_back(Text(reference.Label) + reference.Path);
  }
  return paths;
}

/// The path of the reference with that label; "(none)" where there is none.
Text PathOf(FileTextView script, TextView label) {
  for (const ShipReference& reference : ShipReferences(script)) {
    if (reference.Label == label) return reference.Path;
  }
  return u"(none)";
}

TEST(ShipReferences, StandInTheOrderOfTheReportWhateverTheScripts) {
  const std::vector<Text> expected = {u"FileNameHigh:\\data\\Models\\a.nif", u"FileNameMed:\\m.nif",
                                      u"FileNameLow:\\l.nif", u"Name:\\scripts\\ships\\A.py",
                                      u"HardpointFile:\\scripts\\ships\\Hardpoints\\h.py"};
  EXPECT_EQ(Paths(kPlainScript), expected);
  EXPECT_EQ(Paths("\"HardpointFile\": \"h\",\"Name\": \"A\",\n\"FilenameLow\": \"l.nif\",\n"
                  "\"FilenameMed\": \"m.nif\",\t\"FilenameHigh\": \"data/Models/a.nif\","),
            expected);
}

TEST(ShipReferences, ValuesEndOneCharacterInFrontOfTheNextComma) {
  struct Case {
    FileTextView script;
    TextView label;
    TextView path;
  };
  for (const Case& c : {
           Case{"\"FilenameLow\": \"a/b\\c,d\",", u"FileNameLow:", u"\\a\\b\\"},
           Case{"\"FilenameLow\": \"a\" ,", u"FileNameLow:", u"\\a\""},
           Case{"\"FilenameLow\": \",", u"FileNameLow:", u"\\"},
           Case{"\"FilenameLow\": \"\",", u"FileNameLow:", u"\\"},
           Case{"\"FilenameLow\": \"a\"\n}", u"FileNameLow:", u"\\"},
           Case{"\"FilenameLow\": \"", u"FileNameLow:", u"\\"},
           Case{"\"FilenameLow\": \"a\",\"FilenameLow\": \"b\",", u"FileNameLow:", u"\\a"},
           Case{"\"filenameLow\": \"a\",", u"FileNameLow:", u"(none)"},
           Case{"\"FilenameLow\":\"a\",", u"FileNameLow:", u"(none)"},
           Case{"\"FilenameLow\" : \"a\",", u"FileNameLow:", u"(none)"},
           Case{"'FilenameLow': 'a',", u"FileNameLow:", u"(none)"},
           Case{"FilenameLow\": \"a\",", u"FileNameLow:", u"(none)"},
           Case{"\"MyName\": \"a\",\"Name\": \"b\",", u"Name:", u"\\scripts\\ships\\b.py"},
           Case{"\"Name\": \"\xC4\x80\",", u"Name:", u"\\scripts\\ships\\\u00C4\u20AC.py"},
           // Without its key a name is cut from the script's beginning.
           Case{"", u"Name:", u"\\scripts\\ships\\.py"},
           Case{"12345678abc\",", u"Name:", u"\\scripts\\ships\\abc.py"},
           Case{"1234567,8ab/c\",", u"Name:", u"\\scripts\\ships\\8ab\\c.py"},
           Case{"12345678901234567abc\",", u"HardpointFile:",
                u"\\scripts\\ships\\Hardpoints\\abc.py"},
           Case{":::\": \"", u"HardpointFile:", u"\\scripts\\ships\\Hardpoints\\.py"},
       }) {
    EXPECT_EQ(PathOf(c.script, c.label), c.path) << c.script;
  }
}

/// The same by plain searches, one a key.
std::vector<Text> PathsBySearching(FileTextView script) {
  struct Rule {
    FileTextView key;
    TextView front;
    bool always;
  };
  std::vector<Text> paths;
  for (const Rule& rule :
       {Rule{"\"FilenameHigh\": \"", u"FileNameHigh:\\", false},
        Rule{"\"FilenameMed\": \"", u"FileNameMed:\\", false},
        Rule{"\"FilenameLow\": \"", u"FileNameLow:\\", false},
        Rule{"\"Name\": \"", u"Name:\\scripts\\ships\\", true},
        Rule{"\"HardpointFile\": \"", u"HardpointFile:\\scripts\\ships\\Hardpoints\\", true}}) {
    const std::size_t at = script.find(rule.key);
    if (at == FileTextView::npos && !rule.always) continue;
    const std::size_t from = at == FileTextView::npos ? rule.key.size() - 1 : at + rule.key.size();
    const std::size_t comma = script.find(',', from);
    const bool hasValue = comma != FileTextView::npos && comma > from;
    Text value = hasValue ? TextFromFileText(script.substr(from, comma - from - 1)) : Text();
    std::replace(value.begin(), value.end(), u'/', u'\\');
    paths.push_back(Text(rule.front) + value + (rule.always ? u".py" : u""));
  }
  return paths;
}

TEST(ShipReferences, AgreeWithPlainSearchesOnJumbledScripts) {
  constexpr FileTextView kPieces[] = {"\"FilenameHigh\": \"",
                                      "\"FilenameMed\": \"",
                                      "\"FilenameLow\": \"",
                                      "\"Name\": \"",
                                      "\"HardpointFile\": \"",
                                      "\"Name",
                                      "\": \"",
                                      "Name",
                                      ":",
                                      "\"",
                                      ",",
                                      "a/b.nif\",",
                                      " ",
                                      "\r\n\t",
                                      "Filename"};
  std::mt19937 random(7);
  for (int round = 0; round < 20'000; ++round) {
    FileText script;
    for (auto left = random() % 14; left > 0; --left) {
      script += kPieces[random() % std::size(kPieces)];
    }
    ASSERT_EQ(Paths(script), PathsBySearching(script)) << script;
  }
}

constexpr FileAnswer kThere{u"--> OK!", true};
constexpr FileAnswer kGone{u"--> ERROR:  Missing File!!!", false};

TEST(ShipCheckReport, IsThatOfTheGoldenFile) {
  const std::vector<CheckedReference> references = {
      {{u"FileNameHigh:", u"\\data\\Models\\a.nif", false}, kThere, {}},
      {{u"FileNameLow:", u"\\data\\Models\\a\tLow.nif", false}, kGone, {}},
      {{u"Name:", u"\\scripts\\ships\\A.py", true}, kGone, kThere},
      {{u"HardpointFile:", u"\\scripts\\ships\\Hardpoints\\a\nb.py", true}, kGone, kGone}};
  EXPECT_EQ(FileTextFromText(CheckReport(u"Z:\\bc", references)), Golden("report.txt"));
}

TEST(ShipCheckReport, VerdictCountsTheErrors) {
  EXPECT_EQ(CheckVerdict(0),
            u"List of Possible Problems...\r\n\r\nNone:  All Ship files were found!");
  EXPECT_EQ(CheckVerdict(12),
            u"List of Possible Problems...\r\n\r\n12 Critical Error(s):  Please check your File "
            u"Names and Folder Paths for all Failed Items!!!");
}

}  // namespace
}  // namespace tarvo::test
