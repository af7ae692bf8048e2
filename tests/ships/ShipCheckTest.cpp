#include <gtest/gtest.h>

#include "ships/Golden.h"
#include "ships/ShipCheck.h"
#include "text/CodePage.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

/// The path of the reference with that label; "(none)" where there is none.
Text PathOf(FileTextView script, TextView label) {
  for (const ShipReference& reference : ShipReferences(script)) {
    if (reference.Label == label) return reference.Path;
  }
  return u"(none)";
}

TEST(ShipReferences, StandInTheOrderOfTheReportWhateverTheScripts) {
  Text paths;
  for (const ShipReference& reference :
       ShipReferences("\"HardpointFile\": \"h\",\"Name\": \"A\",\n\"FilenameLow\": \"l.nif\",\n"
                      "\"FilenameMed\": \"m.nif\",\t\"FilenameHigh\": \"data/Models/a.nif\",")) {
    paths += Text(reference.Label) + reference.Path + u"\n";
  }
  EXPECT_EQ(paths,
            u"FileNameHigh:\\data\\Models\\a.nif\nFileNameMed:\\m.nif\nFileNameLow:\\l.nif\n"
            u"Name:\\scripts\\ships\\A.py\nHardpointFile:\\scripts\\ships\\Hardpoints\\h.py\n");
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

constexpr FileAnswer kThere{u"--> OK!", true};
constexpr FileAnswer kGone{u"--> ERROR:  Missing File!!!", false};

TEST(ShipCheckReport, IsThatOfTheGoldenFile) {
  const std::vector<CheckedReference> references = {
      {{u"FileNameHigh:", u"\\data\\Models\\a.nif", false}, kThere, {}},
      {{u"FileNameLow:", u"\\data\\Models\\a\tLow.nif", false}, kGone, {}},
      {{u"Name:", u"\\scripts\\ships\\A.py", true}, kGone, kThere},
      {{u"HardpointFile:", u"\\scripts\\ships\\Hardpoints\\a\nb.py", true}, kGone, kGone}};
  EXPECT_EQ(FileTextFromText(CheckReport(u"Z:\\bc", references)), Golden("report.txt"));
  EXPECT_EQ(CheckVerdict(12),
            u"List of Possible Problems...\r\n\r\n12 Critical Error(s):  Please check your File "
            u"Names and Folder Paths for all Failed Items!!!");
}

}  // namespace
}  // namespace tarvo::test
