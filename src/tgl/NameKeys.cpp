#include "tgl/NameKeys.h"

#include <algorithm>
#include <array>

#include "text/CodePage.h"
#include "text/LetterCase.h"
#include "tgl/TGLFormat.h"

namespace tarvo {
namespace {

/// For each byte of a name the folded unit that it stands for.
const std::array<char16_t, 256>& FoldedUnits() {
  static const std::array<char16_t, 256> units = [] {
    FileText bytes;
    for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
    const Text folded = FoldCase(TextFromFileText(bytes));
    std::array<char16_t, 256> table;
    std::copy(folded.begin(), folded.end(), table.begin());
    return table;
  }();
  return units;
}

/// A hash over folded units, which `unit` gives for each element of `key`.
template <class Key, class UnitOf>
std::uint32_t HashUnits(const Key& key, UnitOf unit) {
  std::uint64_t hash = 0xCBF29CE484222325;
  for (const auto element : key) hash = (hash ^ unit(element)) * 0x100000001B3;
  return static_cast<std::uint32_t>(hash ^ hash >> 32);
}

}  // namespace

char16_t FoldedUnit(char byte) {
  return FoldedUnits()[static_cast<unsigned char>(byte)];
}

FileTextView NameIn(const FileText& file, std::uint32_t at) {
  return StringBytes(file, at, kTGLColumns[0].Form);
}

bool SameKey(FileTextView a, FileTextView b) {
  return std::ranges::equal(a, b, {}, FoldedUnit, FoldedUnit);
}

std::uint32_t HashOfKey(FileTextView name) {
  return HashUnits(name, FoldedUnit);
}

std::uint32_t HashOfKey(TextView foldedName) {
  return HashUnits(foldedName, [](char16_t unit) { return unit; });
}

}  // namespace tarvo
