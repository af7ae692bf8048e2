#pragma once

#include <optional>

#include "text/Text.h"

namespace tarvo {

/// Reads a text field by field. A field ends at a comma or a line end (CR LF, LF or CR); blanks in
/// front of it are dropped. A field that begins with a double quote runs to the next double quote,
/// over commas and line ends, and has neither quote; what stands between its end and the comma or
/// line end behind is dropped. A double quote further in is a character like any other.
class FieldReader {
 public:
  /// `text` must outlive the reader and its fields.
  explicit FieldReader(FileTextView text) : rest_(text) {}

  /// The next field; nothing at the end of the text. An empty line is an empty field.
  std::optional<FileTextView> Next();

 private:
  FileTextView rest_;
};

}  // namespace tarvo
