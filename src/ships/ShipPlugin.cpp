#include "ships/ShipPlugin.h"

#include <algorithm>

#include "text/CodePage.h"
#include "text/LetterCase.h"

namespace tarvo {
namespace {

constexpr std::size_t kWidth = 87;
constexpr TextView kLineEnd = u"\r\n";
constexpr TextView kTemplateShip = u"Galaxy";
constexpr TextView kBaseWord = u"StarBase";

/// The lines of a plug-in. Rows of comment are framed by "#" at both ends, `kWidth` wide.
class PluginLines {
 public:
  void Add(std::initializer_list<TextView> pieces) {
    for (const TextView piece : pieces) text_ += piece;
    text_ += kLineEnd;
  }
  void Row(TextView words) {
    Text row = u"#" + Text(words);
    row.resize(kWidth - 1, u' ');
    Add({row, u"#"});
  }
  void HashRow() { Add({Text(kWidth, u'#')}); }

  /// What stands between two sections.
  void Break() {
    Row(u"");
    HashRow();
    Row(u"");
  }

  const Text& All() const { return text_; }

 private:
  Text text_;
};

void AddHead(PluginLines& lines, TextView shortDate) {
  lines.HashRow();
  lines.Row(u"  Custom Ship Plugin");
  lines.Row(u"  Created by Tarvo Packager");
  lines.Add({u"#  Date: ", shortDate, Text(68, u' '), u"#"});
  lines.HashRow();
  lines.Row(u"");
  lines.Add({u"import Foundation"});
  lines.Add({u"import App"});
  lines.Break();
}

void AddNames(PluginLines& lines, const ShipPlugin& plugin) {
  const TextView playerMenu = plugin.Menu == u"Bases" ? TextView() : TextView(plugin.Menu);
  lines.Add({u"abbrev = '", plugin.Ship, u"'"});
  lines.Add({u"iconName = '", plugin.Icon, u"'"});
  lines.Add({u"longName = '", plugin.Ship, u"'"});
  lines.Add({u"shipFile = '", plugin.Ship, u"' "});
  lines.Add({u"menuGroup = '", plugin.Menu, u"'"});
  lines.Add({u"playerMenuGroup = '", playerMenu, u"'"});
  lines.Add({u"species = App.SPECIES_GALAXY"});
  lines.Break();
}

void AddCredits(PluginLines& lines, const ShipPlugin& plugin) {
  lines.Row(u" Mod Info.  Use this as an opportunity to describe your work in brief.  This may");
  lines.Row(u" have use later on for updates and such.");
  lines.Row(u"");
  lines.Add({u"credits = {"});
  lines.Add({u"\t'modName': '", plugin.ModName, u"',"});
  lines.Add({u"\t'author': '", plugin.Author, u"',"});
  lines.Add({u"\t'version': '", plugin.Version, u"',"});
  lines.Add({u"\t'sources': [ '", plugin.Sources, u"' ],"});
  lines.Add({u"\t'comments': '", plugin.Comments, u"'"});
  lines.Add({u"}"});
  lines.Break();
}

void AddShipDef(PluginLines& lines, const ShipPlugin& plugin, TextView raceWord) {
  const TextView ending = raceWord == kBaseWord ? u"Def" : u"ShipDef";
  lines.Row(u" This is the ShipDef that adds the Ship to the game... Tarvo Packager has");
  lines.Row(u" automatically generated the proper ShipDef Line for you.");
  lines.Row(u"");
  lines.Add({u"Foundation.ShipDef.", plugin.Ship, u" = Foundation.", raceWord, ending,
             u"(abbrev, species, { 'name': longName, 'iconName': iconName, "
             u"'shipFile': shipFile })"});
  lines.Break();
}

void AddDescription(PluginLines& lines, const ShipPlugin& plugin) {
  lines.Row(u" Uncomment these if you have TGL");
  lines.Row(u"");
  lines.Add({u"# Foundation.ShipDef.", plugin.Ship, u".hasTGLName = 1"});
  lines.Add({u"# Foundation.ShipDef.", plugin.Ship, u".hasTGLDesc = 1"});
  lines.Row(u"");
  lines.Row(u" Otherwise, uncomment this and type something in:");
  lines.Row(u"");
  lines.Add({u"Foundation.ShipDef.", plugin.Ship, u".desc = 'No Description Available'"});
  lines.Break();
}

void AddMenus(PluginLines& lines, const ShipPlugin& plugin) {
  lines.Row(u" These register the ship with the QuickBattle menus.  Don't touch them!!!");
  lines.Row(u"");
  lines.Add({u"if menuGroup:           Foundation.ShipDef.", plugin.Ship,
             u".RegisterQBShipMenu(menuGroup)"});
  lines.Add({u"if playerMenuGroup:     Foundation.ShipDef.", plugin.Ship,
             u".RegisterQBPlayerShipMenu(playerMenuGroup)"});
  lines.Add({});
  lines.Add({u"if Foundation.shipList._keyList.has_key(longName):"});
  for (const TextView details : {u"friendlyDetails", u"enemyDetails"}) {
    lines.Add({u"     Foundation.ShipDef.__dict__[longName].", details,
               u"[2] = Foundation.shipList[longName].", details, u"[2]"});
  }
  lines.Row(u"");
  lines.HashRow();
}

/// `text` without every `word`, whatever the letter case.
Text WithoutWord(TextView text, TextView word) {
  const Text folded = FoldCase(text);
  const Text sought = FoldCase(word);
  Text rest;
  std::size_t from = 0;
  for (std::size_t at = folded.find(sought); at != Text::npos; at = folded.find(sought, from)) {
    rest += text.substr(from, at - from);
    from = at + word.size();
  }
  return rest += text.substr(from);
}

}  // namespace

Text MenuInPlugin(TextView shown) {
  if (shown == u"Federation Ships") return u"Fed Ships";
  if (shown == u"Cardassian Ships") return u"Card Ships";
  return Text(shown);
}

Text MenuOnScreen(TextView inPlugin) {
  if (inPlugin == u"Fed Ships") return u"Federation Ships";
  if (inPlugin == u"Card Ships") return u"Cardassian Ships";
  return Text(inPlugin);
}

Text RaceWord(TextView menu, bool isCustomMenu, const std::vector<Text>& customMenus) {
  if (isCustomMenu) return {};
  Text word = menu == u"Bases" ? Text() : WithoutWord(menu, u" Ships");
  if (word.empty()) word = kBaseWord;
  if (word == u"Other") return {};
  const auto found = std::find(customMenus.begin(), customMenus.end(), word);
  return found == customMenus.end() ? word : Text();
}

FileText ShipPluginText(const ShipPlugin& plugin, TextView raceWord, TextView shortDate) {
  PluginLines lines;
  AddHead(lines, shortDate);
  AddNames(lines, plugin);
  AddCredits(lines, plugin);
  AddShipDef(lines, plugin, raceWord);
  AddDescription(lines, plugin);
  AddMenus(lines, plugin);
  return FileTextFromText(lines.All());
}

FileText ShipScriptText(const WholeText& whole, TextView ship) {
  const FileTextView pattern = whole.Bytes();
  const FileText sought = FileTextFromText(kTemplateShip);
  const FileText name = FileTextFromText(ship);
  FileText script;
  std::size_t from = 0;
  for (std::size_t at = pattern.find(sought); at != FileTextView::npos;
       at = pattern.find(sought, from)) {
    script += pattern.substr(from, at - from);
    script += name;
    from = at + sought.size();
  }
  return script += pattern.substr(from);
}

}  // namespace tarvo
