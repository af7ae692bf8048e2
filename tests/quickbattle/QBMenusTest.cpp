#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "quickbattle/FieldReader.h"
#include "quickbattle/QBMenus.h"

namespace tarvo {
namespace {

TEST(QBMenus, PluginIsInEachMenuThatItsTextNames) {
  const FileText federation = "menuGroup = 'Fed Ships'\r\n";
  const FileText romulan = "# once a Klingon Ships hull\nmenuGroup = \"Romulan Ships\"\n";
  struct Case {
    FileText plugin;
    TextView menu;
    bool expected;
  };
  for (const Case& c :
       {Case{federation, u"Federation Ships", true}, Case{federation, u"Fed Ships", true},
        Case{"# Federation Ships", u"Federation Ships", false},
        Case{"'Card Ships'", u"Cardassian Ships", true},
        Case{"'Cardassian Ships'", u"Cardassian Ships", false},
        Case{"'federation ships'", u"Federation ships", false},
        Case{"'Federation ships'", u"Federation ships", true},
        Case{romulan, u"Romulan Ships", true}, Case{romulan, u"Klingon Ships", true},
        Case{romulan, u"klingon ships", false},
        Case{"'\x8A\xFC\x80 Ships'", u"\u0160\u00FC\u20AC Ships", true},
        Case{"'? Ships'", u"\u0416 Ships", true}, Case{"", u"Bases", false},
        Case{federation, u"", false}}) {
    EXPECT_EQ(PluginIsInMenu(c.plugin, c.menu), c.expected) << c.plugin;
  }
}

TEST(QBMenus, GroupLineIsTheFirstFieldThatBeginsWithTheWord) {
  struct Case {
    FileText plugin;
    bool expected;
  };
  for (const Case& c :
       {Case{"import App\r\nmenuGroup = 'Borg Ships'\r\n", true},
        Case{"import App\nmenuGroup = \"Borg Ships\"", true},
        Case{"import App\rmenuGroup='Big Borg Ships'\r", true},
        Case{"   menuGroup = 'Borg Ships'", true}, Case{"a, menuGroup = 'Borg Ships'", true},
        Case{"\"menuGroup = 'Borg Ships'\"", true},
        Case{"\"\"\"A ship, or two\"\"\"\nmenuGroup = 'Borg Ships'", true},
        Case{"playerMenuGroup = 'Borg Ships'\r\nif menuGroup: 'Borg Ships'\r\n", false},
        Case{"menuGroup = 'borg ships'\r\n", false},
        Case{"menuGroup = 'Other Ships'\r\nmenuGroup = 'Borg Ships'\r\n", false},
        Case{"menuGroup = 'The Borg, Borg Ships'", false},
        Case{"\"not closed\r\nmenuGroup = 'Borg Ships'", false},
        Case{"# menuGroup = 'Borg Ships'", false}}) {
    const bool holds = GroupLine(c.plugin).find("Borg Ships") != FileTextView::npos;
    EXPECT_EQ(holds, c.expected) << c.plugin;
  }
  EXPECT_EQ(GroupLine("menuGroup = 'A, B Ships'"), "menuGroup = 'A");
}

TEST(FieldReader, FieldsEndAtCommaAndLineEnd) {
  struct Case {
    FileText text;
    std::vector<FileTextView> fields;
  };
  for (const Case& c :
       {Case{"a, b", {"a", "b"}}, Case{"a  ,  b  ", {"a  ", "b  "}},
        Case{"a\r\n\nb\rc\n", {"a", "", "b", "c"}}, Case{"a,,b,", {"a", "", "b"}},
        Case{"\"a, b\r\nc\" d, e", {"a, b\r\nc", "e"}},
        Case{"it's 5\" long, x", {"it's 5\" long", "x"}}, Case{"\"open, x\r\ny", {"open, x\r\ny"}},
        Case{"\ta", {"\ta"}}, Case{"   ", {""}}, Case{"", {}},
        Case{FileText("a\0b,c", 5), {FileTextView("a\0b", 3), "c"}}}) {
    FieldReader reader(c.text);
    std::vector<FileTextView> fields;
    while (const auto field = reader.Next()) fields.push_back(*field);
    EXPECT_THAT(fields, testing::ElementsAreArray(c.fields)) << c.text;
  }
}

}  // namespace
}  // namespace tarvo
