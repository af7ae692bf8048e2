#include "ships/ShipFiles.h"

#include <algorithm>
#include <array>

#include "text/Cleaning.h"
#include "text/LetterCase.h"

namespace tarvo {
namespace {

bool IsForbidden(char16_t unit) {
  return IsUnprintable(unit) || unit == u'*' || unit == u'?';
}

bool EndsIn(TextView name, TextView ending) {
  return name.size() >= ending.size() &&
         EqualIgnoringCase(name.substr(name.size() - ending.size()), ending);
}

}  // namespace

Text ShipOfFile(TextView fileName, TextView ending) {
  if (!EndsIn(fileName, ending)) return {};
  if (std::any_of(fileName.begin(), fileName.end(), IsForbidden)) return {};
  return Without(fileName.substr(0, fileName.size() - ending.size()), ending);
}

bool IsNoPlugin(TextView fileName) {
  static constexpr std::array<TextView, 4> kNoPlugins = {u"DamoclesModPack.py", u"__init__.py",
                                                         u"FTBLoader.py", u"Custom.py"};
  return std::ranges::find(kNoPlugins, fileName) != kNoPlugins.end();
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
  std::replace_if(text.begin(), text.end(), IsUnprintable, u' ');
  return text;
}

}  // namespace tarvo
