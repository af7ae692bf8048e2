#pragma once

#include <cstdint>

#include "text/Text.h"

namespace tarvo {

/// The hash that orders the strings of a TGL file: four Pearson hashes side by side, each with a
/// table of its own. The tables are constants of the format. Holds no state; nothing throws.
class TGLStringHasher {
 public:
  /// Exactly 8 characters, digits and capital letters A to F. `Source` is hashed unchanged, with
  /// no folding of case and no trimming; a unit above 255 counts by its low byte alone.
  Text HashString(TextView Source) const;

  /// The same hash as a number, the first hash byte being the most significant: the order of these
  /// numbers is the order of the texts of HashString.
  std::uint32_t HashNumber(TextView Source) const;

  /// HashNumber's number written as HashString's text.
  static Text HashText(std::uint32_t hash);
};

}  // namespace tarvo
