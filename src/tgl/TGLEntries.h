#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "text/Text.h"
#include "tgl/TGLString.h"

namespace tarvo {

/// The strings of a file as they stand in it, also those that no collection takes. Keeps the bytes
/// of the file, and makes a string when it is asked for: a file of many small strings doesn't take
/// more memory than twice its size.
class TGLEntries {
 public:
  /// Where the fields of a string begin in its file, in bytes from 0.
  using Places = std::array<std::uint32_t, 3>;

  std::int32_t Count() const { return static_cast<std::int32_t>(places_.size()); }

  /// The string at a place counted from 1, which must be there.
  TGLString At(std::int32_t place) const;

 private:
  friend class TGLFileRep;
  friend class TGLRepair;

  FileText file_;  ///< Ends in kEndBytes 0 bytes.
  std::vector<Places> places_;
};

}  // namespace tarvo
