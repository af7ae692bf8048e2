#include "sounds/WeaponNames.h"

#include <unordered_set>

#include "text/CodePage.h"

namespace tarvo {
namespace {

struct Marker {
  FileTextView Words;
  std::size_t Rare;        ///< Where in it a character stands that scripts seldom hold.
  std::size_t NameBehind;  ///< Characters from its start to that of the name.
};

constexpr Marker kMarkers[] = {{"SetFireSound", 3, 14}, {"Tactical.Projectiles.", 12, 21}};
constexpr FileTextView kNameEnd = "\")";

/// A script is large and names few weapons: it is searched by the marker's rare character, which
/// takes a fraction of a search by the first one.
std::size_t Find(const Marker& marker, FileTextView script, std::size_t from) {
  std::size_t rare = from + marker.Rare;
  while ((rare = script.find(marker.Words[marker.Rare], rare)) != FileTextView::npos) {
    const std::size_t start = rare - marker.Rare;
    if (script.substr(start).starts_with(marker.Words)) return start;
    ++rare;
  }
  return FileTextView::npos;
}

}  // namespace

std::vector<Text> WeaponNames(FileTextView hardpointScript) {
  std::vector<Text> names;
  std::unordered_set<FileTextView> found;
  for (const Marker& marker : kMarkers) {
    std::size_t position = 0;
    while ((position = Find(marker, hardpointScript, position)) != FileTextView::npos) {
      const std::size_t start = position + marker.NameBehind;
      const std::size_t end = hardpointScript.find(kNameEnd, position);
      if (end == FileTextView::npos) break;
      position = end;
      if (end < start) continue;
      const FileTextView name = hardpointScript.substr(start, end - start);
      if (found.insert(name).second) names.push_back(TextFromFileText(name));
    }
  }
  return names;
}

}  // namespace tarvo
