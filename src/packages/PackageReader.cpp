#include "packages/PackageReader.h"

#include <algorithm>
#include <span>

#include "packages/PackageFormat.h"
#include "platform/Files.h"
#include "text/CodePage.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

constexpr std::size_t kListBlock = 16 * 1024;
constexpr std::size_t kScanBlock = 256 * 1024;

/// Cuts the list out of the package's first bytes; `semicolon` is the place of its end.
PackageList CutList(FileTextView head, std::size_t listStart, std::size_t semicolon) {
  if (semicolon < listStart + kLineEnd.size()) {
    throw MalformedPackage(semicolon, u"the list of files is empty");
  }
  const std::size_t length = semicolon - listStart - kLineEnd.size();
  return {TextFromFileText(head.substr(listStart, length)) + u"\r\n",
          semicolon + 1 + kLineEnd.size()};
}

/// Reads `file` from `position` to its end in blocks; one that ends early ends there.
void ReadBlocks(FileReader& file, std::uint64_t position, std::size_t blockSize,
                const std::function<void(FileTextView)>& onBlock) {
  FileText buffer(std::min<std::uint64_t>(blockSize, file.Size()), '\0');
  while (position < file.Size()) {
    const std::size_t got = file.ReadAt(position, std::span(buffer));
    if (got == 0) return;
    onBlock(FileTextView(buffer).substr(0, got));
    position += got;
  }
}

}  // namespace

RaisedError MalformedPackage(std::uint64_t position, TextView what) {
  return {u"Package", u"byte " + TextFromUtf8(std::to_string(position)) + u": " + Text(what)};
}

PackageList ReadPackageList(FileReader& package) {
  FileText head;
  std::size_t listStart = FileText::npos;
  while (head.size() <= kLongestHead) {
    const std::size_t before = head.size();
    head.resize(before + kListBlock);
    const std::size_t got = package.ReadAt(before, std::span(head).subspan(before));
    head.resize(before + got);
    const std::size_t overlap = std::min<std::size_t>(before, 3);
    if (listStart == FileText::npos) {
      const std::size_t gap = head.find("\r\n\r\n", before - overlap);
      if (gap != FileText::npos) listStart = gap + 4;
    }
    if (listStart != FileText::npos) {
      const std::size_t semicolon = head.find(';', std::max(listStart, before));
      if (semicolon != FileText::npos) return CutList(head, listStart, semicolon);
    }
    if (got == 0) break;
  }
  throw MalformedPackage(head.size(), u"the list of files has no end");
}

void MarkerSearch::Feed(FileTextView block, const std::function<void(std::uint64_t)>& found) {
  const std::size_t keep = kMarker.size() - 1;
  FileText seam = tail_;
  seam += block.substr(0, keep);
  const std::uint64_t seamStart = position_ - tail_.size();
  for (std::size_t at = seam.find(kMarker); at < tail_.size(); at = seam.find(kMarker, at + 1)) {
    found(seamStart + at);
  }
  for (std::size_t at = block.find(kMarker); at != FileTextView::npos;
       at = block.find(kMarker, at + 1)) {
    found(position_ + at);
  }
  position_ += block.size();
  const FileTextView last = block.size() < keep ? FileTextView(seam) : block;
  tail_ = last.substr(last.size() - std::min(keep, last.size()));
}

std::vector<PackageBody> FindBodies(FileReader& package, std::uint64_t bodiesStart,
                                    std::size_t count, std::size_t blockSize,
                                    const std::function<void()>& onBlock) {
  std::vector<PackageBody> bodies;
  std::uint64_t start = bodiesStart;
  MarkerSearch search;
  ReadBlocks(package, bodiesStart, blockSize, [&](FileTextView block) {
    search.Feed(block, [&](std::uint64_t found) {
      const std::uint64_t marker = bodiesStart + found;
      if (bodies.size() == count || marker < start) return;
      if (marker < start + kLineEnd.size()) {
        throw MalformedPackage(marker, u"a body has no line end");
      }
      bodies.push_back({start, marker - kLineEnd.size() - start});
      start = marker + kMarkerLine;
    });
    onBlock();
  });
  if (bodies.size() < count) throw MalformedPackage(package.Size(), u"a file has no end");
  return bodies;
}

bool HoldsMarker(FileReader& file, std::uint64_t position) {
  MarkerSearch search;
  bool holds = false;
  ReadBlocks(file, position, kScanBlock,
             [&](FileTextView block) { search.Feed(block, [&](std::uint64_t) { holds = true; }); });
  return holds;
}

bool IsFramed(FileReader& package, const PackageBody& body) {
  FileText frame(BodyEnd().size(), '\0');
  frame.resize(package.ReadAt(body.Start + body.Length, std::span(frame)));
  return frame == BodyEnd();
}

std::uint64_t SectionEnd(const PackageBody& body) {
  return body.Start + body.Length + BodyEnd().size();
}

}  // namespace tarvo
