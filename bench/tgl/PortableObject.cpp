#include "PortableObject.h"

#include <span>
#include <string>
#include <utility>

#include "text/Utf8.h"

namespace tarvo {
namespace {

/// The text between the first and the last quote of a line, its escapes resolved.
Text Quoted(FileTextView line) {
  const std::size_t first = line.find('"') + 1;
  line = line.substr(first, line.rfind('"') - first);
  std::string plain;
  plain.reserve(line.size());
  for (;;) {
    const std::size_t escape = line.find('\\');
    if (escape == FileTextView::npos || escape + 1 == line.size()) break;
    const char kind = line[escape + 1];
    plain.append(line.substr(0, escape));
    plain += kind == 'n' ? '\n' : kind == 't' ? '\t' : kind;
    line.remove_prefix(escape + 2);
  }
  plain.append(line);
  return TextFromUtf8(plain);
}

/// Takes one line into the message that is being read; true when it completes it.
bool TakeLine(FileTextView line, Message& message) {
  if (line.starts_with("#. ")) message.Media = TextFromUtf8(line.substr(3));
  if (line.starts_with("msgid ")) message.Name = Quoted(line);
  if (!line.starts_with("msgstr ")) return false;
  message.Data = Quoted(line);
  return true;
}

}  // namespace

void ReadPortableObject(FileReader& source, const std::function<void(Message)>& take) {
  constexpr std::size_t kBlock = 64 * 1024;
  FileText text;
  Message message;
  std::uint64_t position = 0;
  while (position < source.Size()) {
    const std::size_t kept = text.size();
    text.resize(kept + kBlock);
    const std::size_t count = source.ReadAt(position, std::span(text).subspan(kept));
    if (count == 0) return;
    position += count;
    text.resize(kept + count);
    std::size_t start = 0;
    for (std::size_t end; (end = text.find('\n', start)) != FileText::npos; start = end + 1) {
      if (!TakeLine(FileTextView(text).substr(start, end - start), message)) continue;
      if (!message.Name.empty()) take(std::move(message));
      message = {};
    }
    text.erase(0, start);
  }
}

}  // namespace tarvo
