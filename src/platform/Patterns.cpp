#include <algorithm>

#include "platform/Files.h"
#include "platform/NameLists.h"
#include "text/LetterCase.h"

namespace tarvo {

bool MatchesPattern(TextView name, TextView pattern) {
  if (pattern == u"*.*") return true;
  const Text text = FoldCase(name);
  const Text wanted = FoldCase(pattern);
  std::size_t at = 0;
  std::size_t next = 0;
  std::size_t lastStar = Text::npos;
  std::size_t starAt = 0;
  while (at < text.size()) {
    if (next < wanted.size() && wanted[next] == u'*') {
      lastStar = next++;
      starAt = at;
    } else if (next < wanted.size() && (wanted[next] == u'?' || wanted[next] == text[at])) {
      ++next;
      ++at;
    } else if (lastStar != Text::npos) {
      next = lastStar + 1;
      at = ++starAt;
    } else {
      return false;
    }
  }
  return wanted.find_first_not_of(u'*', next) == Text::npos;
}

bool MatchesAnyPattern(TextView name, TextView patterns) {
  for (std::size_t begin = 0; begin <= patterns.size();) {
    const std::size_t end = std::min(patterns.find(u';', begin), patterns.size());
    if (end > begin && MatchesPattern(name, patterns.substr(begin, end - begin))) return true;
    begin = end + 1;
  }
  return false;
}

std::vector<Text> SortedNames(std::vector<Text> names) {
  std::sort(names.begin(), names.end(), [](const Text& a, const Text& b) {
    if (LessIgnoringCase(a, b)) return true;
    return !LessIgnoringCase(b, a) && a < b;
  });
  return names;
}

}  // namespace tarvo
