#include "ships/ShipCheck.h"

#include <algorithm>
#include <array>

#include "ships/ShipFiles.h"
#include "text/CodePage.h"

namespace tarvo {
namespace {

constexpr TextView kLineEnd = u"\r\n";

/// What stands between a key's word and its value. All keys are `"` + word + this.
constexpr FileTextView kKeyEnd = "\": \"";

struct ReferenceRule {
  FileTextView Word;
  TextView Label;
  TextView Folder;
  bool IsScript;

  std::size_t KeyLength() const { return 1 + Word.size() + kKeyEnd.size(); }
};

constexpr std::array<ReferenceRule, 5> kRules = {{
    {"FilenameHigh", u"FileNameHigh:", u"\\", false},
    {"FilenameMed", u"FileNameMed:", u"\\", false},
    {"FilenameLow", u"FileNameLow:", u"\\", false},
    {"Name", u"Name:", u"\\scripts\\ships\\", true},
    {"HardpointFile", u"HardpointFile:", u"\\scripts\\ships\\Hardpoints\\", true},
}};

using ValuePlaces = std::array<std::size_t, kRules.size()>;

/// The place behind the first occurrence of each key, npos where there is none. Scripts hold few
/// colons, so the search goes from one to the next, once through the text at most.
ValuePlaces FindValues(FileTextView script) {
  ValuePlaces places;
  places.fill(FileTextView::npos);
  std::size_t missing = kRules.size();
  for (std::size_t colon = script.find(':'); colon != FileTextView::npos && missing > 0;
       colon = script.find(':', colon + 1)) {
    if (colon == 0 || script.compare(colon - 1, kKeyEnd.size(), kKeyEnd) != 0) continue;
    const FileTextView front = script.substr(0, colon - 1);
    for (std::size_t i = 0; i < kRules.size(); ++i) {
      const FileTextView word = kRules[i].Word;
      if (places[i] != FileTextView::npos || !front.ends_with(word)) continue;
      if (front.size() == word.size() || front[front.size() - word.size() - 1] != '"') continue;
      places[i] = colon - 1 + kKeyEnd.size();
      --missing;
    }
  }
  return places;
}

/// The value that begins at `from`, with backslashes. Empty when no comma follows.
Text ValueAt(FileTextView script, std::size_t from) {
  const std::size_t comma = script.find(',', from);
  if (comma == FileTextView::npos || comma == from) return {};
  Text value = TextFromFileText(script.substr(from, comma - from - 1));
  std::replace(value.begin(), value.end(), u'/', u'\\');
  return value;
}

Text Line(TextView words) {
  return Text(words) + Text(kLineEnd);
}

}  // namespace

std::vector<ShipReference> ShipReferences(FileTextView script) {
  const ValuePlaces places = FindValues(script);
  std::vector<ShipReference> references;
  references.reserve(kRules.size());
  for (std::size_t i = 0; i < kRules.size(); ++i) {
    const ReferenceRule& rule = kRules[i];
    const bool isMissing = places[i] == FileTextView::npos;
    if (isMissing && !rule.IsScript) continue;
    const std::size_t from = isMissing ? rule.KeyLength() - 1 : places[i];
    Text path = Text(rule.Folder) + ValueAt(script, from);
    if (rule.IsScript) path += kEnabledEnding;
    references.push_back({rule.Label, std::move(path), rule.IsScript});
  }
  return references;
}

bool ShowsAllReferences(FileTextView head) {
  const ValuePlaces places = FindValues(head);
  return std::all_of(places.begin(), places.end(), [&](std::size_t place) {
    return place != FileTextView::npos && head.find(',', place) != FileTextView::npos;
  });
}

Text CheckReport(TextView gamePath, const std::vector<CheckedReference>& references) {
  const Text rule = Line(Text(27, u'='));
  Text report = Line(u"Checking File Structures...") + Text(kLineEnd);
  for (const CheckedReference& checked : references) {
    const Text path = Showable(checked.Reference.Path);
    report += rule + Line(checked.Reference.Label);
    report += Line(Text(gamePath) + path) + Line(checked.Answers.File.Words);
    if (checked.Answers.Compiled) {
      report +=
          checked.Answers.Compiled->Found ? u"BUT .PYC was found!  " : u"AND .PYC was not found!  ";
      report += Line(path + u"c") + Line(checked.Answers.Compiled->Words);
    }
    report += rule + Text(kLineEnd);
  }
  return report;
}

Text CheckVerdict(int errors) {
  Text verdict = Line(u"List of Possible Problems...") + Text(kLineEnd);
  if (errors <= 0) return verdict + u"None:  All Ship files were found!";
  const std::string count = std::to_string(errors);
  verdict += Text(count.begin(), count.end()) + u" Critical Error(s):";
  return verdict + u"  Please check your File Names and Folder Paths for all Failed Items!!!";
}

}  // namespace tarvo
