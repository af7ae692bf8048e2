#pragma once

#include "text/Text.h"

namespace tarvo {

/// One entry of a text database: a plain record, with no checks. A file holds Name and
/// MediaFilename in code page Windows-1252, where a character that the page lacks becomes "?", and
/// Data as its 16-bit units. A NUL unit inside a field ends it for whoever reads the file.
struct TGLString {
  Text Name;           ///< The key text.
  Text Data;           ///< What is shown.
  Text MediaFilename;  ///< The sound that goes with it.

  friend bool operator==(const TGLString&, const TGLString&) = default;
};

}  // namespace tarvo
