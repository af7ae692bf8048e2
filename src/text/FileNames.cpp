#include "text/FileNames.h"

#include <algorithm>

#include "text/Cleaning.h"
#include "text/CodePage.h"

namespace tarvo {
namespace {

Text Fault(TextView name, TextView reason) {
  return u"\"" + Text(name) + u"\": " + Text(reason) + u".";
}

}  // namespace

Text FaultOfFileName(TextView name) {
  if (std::ranges::any_of(name, IsUnprintable)) {
    return Fault(name, u"a name can't hold a control character");
  }
  const std::size_t odd = name.find_first_of(u"\\/:*?\"<>|");
  if (odd != TextView::npos) return Fault(name, u"a name can't hold " + Text(1, name[odd]));
  if (name.find(u"..") == TextView::npos) return {};
  return Fault(name, u"a name can't hold two dots in a row");
}

Text FaultOfGameName(TextView name) {
  if (Text fault = FaultOfFileName(name); !fault.empty()) return fault;
  const Text unknown = OutsideCodePage(name);
  if (unknown.empty()) return {};
  return Fault(name, u"the game doesn't know the characters " + unknown);
}

}  // namespace tarvo
