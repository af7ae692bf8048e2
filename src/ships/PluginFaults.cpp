#include "ships/PluginFaults.h"

#include <algorithm>
#include <array>

#include "text/Cleaning.h"
#include "text/CodePage.h"

namespace tarvo {
namespace {

/// The words that the game's Python keeps for itself.
constexpr std::array<TextView, 28> kKeywords = {
    u"and",    u"assert", u"break",  u"class", u"continue", u"def",    u"del",
    u"elif",   u"else",   u"except", u"exec",  u"finally",  u"for",    u"from",
    u"global", u"if",     u"import", u"in",    u"is",       u"lambda", u"not",
    u"or",     u"pass",   u"print",  u"raise", u"return",   u"try",    u"while"};

bool IsLetter(char16_t unit) {
  return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || unit == u'_';
}

bool IsPythonName(TextView name) {
  const auto goesOn = [](char16_t unit) {
    return IsLetter(unit) || (unit >= u'0' && unit <= u'9');
  };
  return !name.empty() && IsLetter(name.front()) && std::ranges::all_of(name, goesOn) &&
         std::ranges::find(kKeywords, name) == kKeywords.end();
}

/// A backslash that none stands in front of takes the closing apostrophe for itself.
bool EndsInBackslash(TextView value) {
  const std::size_t last = value.find_last_not_of(u'\\');
  const std::size_t text = last == TextView::npos ? 0 : last + 1;
  return (value.size() - text) % 2 == 1;
}

}  // namespace

Text FaultOfValue(TextView value) {
  if (value.find(u'\'') != TextView::npos) {
    return u"An apostrophe (') breaks the plug-in: the game won't have the ship.";
  }
  if (EndsInBackslash(value)) {
    return u"A backslash at the end breaks the plug-in: the game won't have the ship.";
  }
  if (std::ranges::any_of(value, IsUnprintable)) {
    return u"A control character breaks the plug-in: the game won't have the ship.";
  }
  const Text unknown = OutsideCodePage(value);
  if (unknown.empty()) return {};
  return u"The game doesn't know the characters " + unknown + u": each becomes a question mark.";
}

Text FaultOfShipName(TextView name) {
  if (IsPythonName(name)) return {};
  return u"The game won't have a ship \"" + Text(name) +
         u"\": use letters from A to Z, digits and _, with a letter in front, and no word of " +
         u"Python.";
}

}  // namespace tarvo
