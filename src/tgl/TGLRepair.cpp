#include "tgl/TGLRepair.h"

#include <string>
#include <unordered_map>
#include <utility>

#include "text/Utf8.h"
#include "tgl/Blanks.h"
#include "tgl/TGLStringHasher.h"

namespace tarvo {
namespace {

/// Why an entry can't stand beside those that stay; empty when it can. `earlier` holds the kept
/// entry with the hash of this one's Name, if there is one.
Text WhyDropped(const TGLString& entry, const TGLStrings& kept, const TGLString* earlier) {
  if (IsBlank(entry.Name)) return u"its name is blank";
  if (const TGLStrings::Entry same = kept.Lookup(entry.Name)) {
    if (same->Name == entry.Name) return u"its name stands already";
    return u"its name differs only in case from '" + same->Name + u"'";
  }
  if (earlier) return u"its name has the same hash as '" + earlier->Name + u"'";
  return {};
}

}  // namespace

TGLRepaired RepairTGLStrings(std::vector<TGLString> entries) {
  const TGLStringHasher hasher;
  TGLRepaired repaired;
  std::unordered_map<std::uint32_t, const TGLString*> byHash;
  std::int32_t place = 0;
  for (TGLString& entry : entries) {
    ++place;
    const std::uint32_t hash = hasher.HashNumber(entry.Name);
    const auto found = byHash.find(hash);
    Text why = WhyDropped(entry, repaired.Strings, found == byHash.end() ? nullptr : found->second);
    if (!why.empty()) {
      repaired.Dropped.push_back({place, std::move(entry), std::move(why)});
      continue;
    }
    const TGLStrings::Entry kept = repaired.Strings.Add(entry.Name, {}, {});
    kept->Data = std::move(entry.Data);  // As it stands: Add has rules for empty texts.
    kept->MediaFilename = std::move(entry.MediaFilename);
    byHash.emplace(hash, kept.get());
  }
  return repaired;
}

}  // namespace tarvo
