#include "text/Lines.h"

#include "text/Utf8.h"

namespace tarvo {
namespace {

constexpr std::size_t kShown = 12;

}  // namespace

Text FirstLines(const std::vector<Text>& lines, TextView separator) {
  Text text;
  for (std::size_t i = 0; i < lines.size() && i < kShown; ++i) text += Text(separator) + lines[i];
  if (lines.size() <= kShown) return text;
  return text + Text(separator) + u"... and " +
         TextFromUtf8(std::to_string(lines.size() - kShown)) + u" more";
}

Text Joined(const std::vector<Text>& parts, TextView separator) {
  Text line;
  for (const Text& part : parts)
    line += (&part == &parts.front() ? Text() : Text(separator)) + part;
  return line;
}

}  // namespace tarvo
