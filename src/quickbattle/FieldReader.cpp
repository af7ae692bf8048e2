#include "quickbattle/FieldReader.h"

#include <algorithm>

namespace tarvo {

std::optional<FileTextView> FieldReader::Next() {
  if (rest_.empty()) return {};
  rest_.remove_prefix(std::min(rest_.find_first_not_of(' '), rest_.size()));
  const bool quoted = rest_.starts_with('"');
  if (quoted) rest_.remove_prefix(1);
  const FileTextView field = rest_.substr(0, rest_.find_first_of(quoted ? "\"" : ",\r\n"));
  rest_.remove_prefix(field.size());
  rest_.remove_prefix(std::min(rest_.find_first_of(",\r\n"), rest_.size()));
  rest_.remove_prefix(rest_.starts_with("\r\n") ? 2 : std::min<std::size_t>(1, rest_.size()));
  return field;
}

}  // namespace tarvo
