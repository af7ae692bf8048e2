#include "ships/ShipFiles.h"

#include <algorithm>

#include "text/LetterCase.h"

namespace tarvo {
namespace {

bool IsControl(char16_t unit) {
  return unit < 0x20 || (unit >= 0x7F && unit < 0xA0);
}

bool IsForbidden(char16_t unit) {
  return IsControl(unit) || unit == u'*' || unit == u'?';
}

bool EndsIn(TextView name, TextView ending) {
  return name.size() >= ending.size() &&
         EqualIgnoringCase(name.substr(name.size() - ending.size()), ending);
}

}  // namespace

Text ShipOfFile(TextView fileName, TextView ending) {
  if (!EndsIn(fileName, ending)) return {};
  if (std::any_of(fileName.begin(), fileName.end(), IsForbidden)) return {};
  Text ship(fileName.substr(0, fileName.size() - ending.size()));
  for (std::size_t at = ship.find(ending); at != Text::npos; at = ship.find(ending, at)) {
    ship.erase(at, ending.size());
  }
  return ship;
}

bool BelongsToShip(TextView fileName, TextView ship) {
  if (fileName.size() <= ship.size() || fileName[ship.size()] != u'.') return false;
  if (!EqualIgnoringCase(fileName.substr(0, ship.size()), ship)) return false;
  for (const TextView ending : {kEnabledEnding, kDisabledEnding}) {
    if (EndsIn(fileName, ending)) return ShipOfFile(fileName, ending) == ship;
  }
  return !EndsIn(fileName, kCompiledEnding) ||
         EqualIgnoringCase(ShipOfFile(fileName, kCompiledEnding), ship);
}

Text Showable(Text text) {
  std::replace_if(text.begin(), text.end(), IsControl, u' ');
  return text;
}

}  // namespace tarvo
