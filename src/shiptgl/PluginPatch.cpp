#include "shiptgl/PluginPatch.h"

#include <algorithm>

namespace tarvo {
namespace {

constexpr FileTextView kMarker = "# Uncomment these if you have TGL";
constexpr FileTextView kDescription = ".desc = '";

/// What stays in front of the new rows: all up to the marker, and two characters behind it, which
/// are blanks in a plug-in of ours. Where its row is shorter, blanks take the place of the next
/// row's characters, so that the next patch finds two again.
FileText Head(FileTextView plugin, std::size_t marker) {
  const std::size_t end = marker + kMarker.size();
  FileText behind(plugin.substr(end, 2));
  if (behind != "\r\n") {
    behind.resize(std::min(behind.find_first_of("\r\n"), behind.size()));
    behind.resize(2, ' ');
  }
  return FileText(plugin.substr(0, end)) + behind;
}

}  // namespace

std::optional<FileText> PatchForTGL(const WholeText& whole, FileTextView ship) {
  const FileTextView plugin = whole.Bytes();
  const std::size_t marker = plugin.find(kMarker);
  if (marker == FileTextView::npos) return {};
  const std::size_t description = plugin.find(kDescription);
  if (description == FileTextView::npos || description < marker) return {};
  const FileText definition = "Foundation.ShipDef." + FileText(ship);
  FileText patched = Head(plugin, marker);
  patched += "\r\n" + definition + ".hasTGLName = 1";
  patched += "\r\n" + definition + ".hasTGLDesc = 1";
  patched += "\r\n\r\n# Otherwise, uncomment this and type something in:";
  patched += "\r\n# " + definition + FileText(kDescription);
  patched += plugin.substr(description + kDescription.size());
  return patched;
}

}  // namespace tarvo
