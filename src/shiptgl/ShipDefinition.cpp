#include "shiptgl/ShipDefinition.h"

#include <array>

#include "text/FileNames.h"
#include "text/LetterCase.h"
#include "text/RaisedError.h"

namespace tarvo {
namespace {

constexpr TextView kLineEnd = u"\r\n";

struct Part {
  TextView Label;  ///< Followed by one blank.
  Text ShipTexts::*Field;
};

/// The parts of a composed description, in their order.
constexpr std::array<Part, 5> kParts = {{
    {u"Description:", &ShipTexts::Description},
    {u"Weapons:", &ShipTexts::Weapons},
    {u"Shield Rating:", &ShipTexts::Shields},
    {u"Hull Rating:", &ShipTexts::Hull},
    {u"Tactics:", &ShipTexts::Tactics},
}};

Text Compose(const ShipTexts& texts) {
  Text composed;
  for (const Part& part : kParts) {
    if (!composed.empty()) composed += kLineEnd;
    composed += Text(part.Label) + u" " + texts.*part.Field;
  }
  return composed;
}

/// Takes the text between the end of one label and the next label, which is searched for from one
/// unit behind the place of the first.
void Split(TextView composed, ShipTexts& texts) {
  const Text folded = FoldCase(composed);
  std::size_t label = 0;
  for (std::size_t i = 0; i < kParts.size(); ++i) {
    const std::size_t start = label + kParts[i].Label.size() + 1;
    if (i + 1 == kParts.size()) {
      texts.*kParts[i].Field = Text(composed.substr(std::min(start, composed.size())));
      return;
    }
    const std::size_t next = folded.find(FoldCase(kParts[i + 1].Label), label + 1);
    if (next == Text::npos || next < start + kLineEnd.size()) {
      throw RaisedError(u"LoadShipTGL", u"The description has no part \"" +
                                            Text(kParts[i + 1].Label) + u"\" in its place.");
    }
    texts.*kParts[i].Field = Text(composed.substr(start, next - kLineEnd.size() - start));
    label = next;
  }
}

Text DataOf(const TGLStrings& strings, const Text& name) {
  const TGLStrings::Entry entry = strings.Lookup(name);
  return entry ? entry->Data : Text();
}

void RequireUsableName(const Text& ship) {
  const Text fault = FaultOfGameName(ship);
  if (!fault.empty()) throw RaisedError(u"SaveShipTGL", fault);
}

}  // namespace

Text NameEntry(const Text& ship) {
  return ship;
}

Text DescriptionEntry(const Text& ship) {
  return ship + u" Description";
}

Text QuickBattleEntry(const Text& ship) {
  return u"QB" + ship;
}

Text DefinitionPath(const Text& programFolder, const Text& ship) {
  return programFolder + u"\\ShipTGLs\\" + ship + u".TGL";
}

void AddDefinition(TGLStrings& strings, const Text& ship, const ShipTexts& texts) {
  RequireUsableName(ship);
  strings.Add(NameEntry(ship), texts.LongName, ship + u".wav");
  strings.Add(DescriptionEntry(ship), Compose(texts), ship + u"Description.wav");
  strings.Add(QuickBattleEntry(ship), texts.LongName, u"sfx/QuickBattle/" + ship + u".mp3");
}

ShipTexts TextsOfDefinition(const TGLStrings& strings, const Text& ship) {
  ShipTexts texts;
  texts.LongName = DataOf(strings, NameEntry(ship));
  Split(DataOf(strings, DescriptionEntry(ship)), texts);
  return texts;
}

}  // namespace tarvo
