#include "state/UnfinishedNote.h"

#include <charconv>
#include <iomanip>
#include <sstream>

#include "platform/FileCopies.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

constexpr FileTextView kFirstLine = "tarvo change 1\n";

FileText Hex(std::uint64_t number) {
  std::ostringstream text;
  text << std::hex << std::setw(16) << std::setfill('0') << number;
  return text.str();
}

std::optional<std::uint64_t> Number(FileTextView text, int base) {
  std::uint64_t number = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number, base);
  if (text.empty() || read.ec != std::errc() || read.ptr != text.data() + text.size()) return {};
  return number;
}

class NoteReader {
 public:
  explicit NoteReader(FileTextView text) : rest_(text) {}

  bool AtEnd() const { return rest_.empty(); }

  /// What stands in the next line behind `word` and a blank; nothing for another line.
  std::optional<FileTextView> Line(FileTextView word) {
    const std::size_t end = rest_.find('\n');
    if (end == FileTextView::npos || !rest_.starts_with(word)) return {};
    const FileTextView value = rest_.substr(word.size(), end - word.size());
    rest_.remove_prefix(end + 1);
    return value;
  }

  /// So many bytes, which a line end follows.
  std::optional<FileTextView> Bytes(std::uint64_t count) {
    if (count >= rest_.size() || rest_[count] != '\n') return {};
    const FileTextView bytes = rest_.substr(0, count);
    rest_.remove_prefix(count + 1);
    return bytes;
  }

  std::optional<NotedFile> File() {
    NotedFile file;
    const auto path = Line("path ");
    const auto before = Line("before ");
    const auto after = Line("after ");
    if (!path || !before || !after) return {};
    file.Path = TextFromUtf8(*path);
    if (*before != "none") {
      file.Before = Number(*before, 16);
      if (!file.Before) return {};
    }
    if (*after != "none") {
      const auto count = Number(*after, 10);
      const auto bytes = count ? Bytes(*count) : std::nullopt;
      if (!bytes) return {};
      file.After = FileText(*bytes);
    }
    return file;
  }

 private:
  FileTextView rest_;
};

}  // namespace

FileText NoteText(const std::vector<NotedFile>& files) {
  FileText text(kFirstLine);
  for (const NotedFile& file : files) {
    text += "path " + Utf8FromText(file.Path) + "\nbefore ";
    text += file.Before ? Hex(*file.Before) : "none";
    text += "\nafter ";
    text += file.After ? std::to_string(file.After->size()) + "\n" + *file.After : "none";
    text += "\n";
  }
  return text + "end " + Hex(HashOf(text)) + "\n";
}

std::optional<std::vector<NotedFile>> ParseNote(const FileText& text) {
  const std::size_t end = text.rfind("end ");
  if (!text.starts_with(kFirstLine) || end == FileText::npos) return {};
  const FileTextView body = FileTextView(text).substr(0, end);
  if (text.substr(end) != "end " + Hex(HashOf(body)) + "\n") return {};
  std::vector<NotedFile> files;
  for (NoteReader reader(body.substr(kFirstLine.size())); !reader.AtEnd();) {
    auto file = reader.File();
    if (!file) return {};
    files.push_back(std::move(*file));
  }
  return files;
}

}  // namespace tarvo
