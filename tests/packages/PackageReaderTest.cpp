#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "packages/PackageCheck.h"
#include "packages/PackageFormat.h"
#include "packages/PackageReader.h"
#include "platform/Files.h"
#include "text/Utf8.h"

namespace tarvo::test {
namespace {

/// A file in memory that gives at most 7 bytes a read, to try every seam.
class MemoryFile : public FileReader {
 public:
  explicit MemoryFile(FileText bytes, std::size_t most = 7)
      : bytes_(std::move(bytes)), most_(most) {}
  std::uint64_t Size() const override { return bytes_.size(); }
  std::size_t ReadAt(std::uint64_t position, std::span<char> block) override {
    reach = std::max(reach, position);
    if (position >= bytes_.size()) return 0;
    const std::size_t count = std::min({block.size(), most_, bytes_.size() - position});
    std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(position), count, block.begin());
    return count;
  }
  std::uint64_t reach = 0;  ///< The furthest position asked for.

 private:
  FileText bytes_;
  std::size_t most_;
};

FileText Package(TextView list, const std::vector<FileText>& bodies) {
  FileText package = PackageHead(list, u"1/1/2026");
  for (const FileText& body : bodies) package += body + BodyEnd();
  return package;
}

/// The bodies as the reader finds them; "(malformed)" when it refuses the package.
std::vector<FileText> Bodies(const FileText& package) {
  MemoryFile file(package);
  try {
    const PackageList list = ReadPackageList(file);
    std::vector<FileText> bodies;
    for (const PackageBody& body :
         FindBodies(file, list.BodiesStart, EntriesOf(list.List).size(), 64, [] {})) {
      bodies.push_back(package.substr(body.Start, body.Length));
    }
    return bodies;
  } catch (const RaisedError&) {
    return {"(malformed)"};
  }
}

TEST(PackageReader, BodiesComeBackByteForByte) {
  FileText all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  const std::vector<FileText> bodies = {
      all, "", "ends in line end\r\n", "\r\n===Next File==", ";", "===Next Fil" + all};
  const FileText package = Package(u"\\a\r\n\\b\r\n\\c\r\n\\d\r\n\\e\r\n\\f\r\n", bodies);
  EXPECT_EQ(Bodies(package), bodies);
  EXPECT_EQ(Bodies(package + "extra" + BodyEnd()), bodies);
}

TEST(PackageReader, PackageCutAtAnyByteIsRefusedUntilItsLastMarkerIsWhole) {
  const FileText whole = Package(u"\\a.py\r\n\\b.py\r\n", {"first", "second\r\n"});
  const std::size_t complete = whole.size() - kLineEnd.size();
  for (std::size_t size = 0; size < whole.size(); ++size) {
    const std::vector<FileText> expected = size < complete
                                               ? std::vector<FileText>{"(malformed)"}
                                               : std::vector<FileText>{"first", "second\r\n"};
    EXPECT_EQ(Bodies(whole.substr(0, size)), expected) << "cut to " << size;
  }
}

TEST(PackageReader, MarkerWithNoRoomForALineEndIsMalformed) {
  const FileText head = PackageHead(u"\\a\r\n", u"");
  EXPECT_EQ(Bodies(head + "===Next File===\r\n"), std::vector<FileText>{"(malformed)"});
  EXPECT_EQ(Bodies(head + "x===Next File===\r\n"), std::vector<FileText>{"(malformed)"});
  EXPECT_EQ(Bodies(head + "xy===Next File===\r\n"), std::vector<FileText>{""});
}

TEST(PackageReader, ListIsReadWithoutItsBodies) {
  const FileText package = Package(u"\\a\r\n", {FileText(1'000'000, 'x')});
  MemoryFile file(package, 1 << 20);
  EXPECT_EQ(ReadPackageList(file).List, u"\\a\r\n");
  EXPECT_LT(file.reach, 100'000u);
}

TEST(PackageReader, ListWithoutEndIsRefusedBeforeItFillsTheMemory) {
  MemoryFile file("\r\n\r\n" + FileText(64 << 20, 'a'), 1 << 20);
  EXPECT_THROW(ReadPackageList(file), RaisedError);
  EXPECT_LT(file.reach, 16u << 20);
}

TEST(MarkerSearch, FindsWhatASearchInOneTextFinds) {
  std::mt19937 random(7);
  const FileText piece = "===Next File===";
  for (int round = 0; round < 300; ++round) {
    FileText text;
    for (int i = 0; i < 12; ++i) text += piece.substr(random() % 15, random() % 16);
    std::vector<std::uint64_t> expected;
    for (std::size_t at = text.find(piece); at != FileText::npos; at = text.find(piece, at + 1)) {
      expected.push_back(at);
    }
    std::vector<std::uint64_t> found;
    MarkerSearch search;
    for (std::size_t at = 0; at < text.size();) {
      const std::size_t size = 1 + random() % 40;
      search.Feed(FileTextView(text).substr(at, size),
                  [&](std::uint64_t place) { found.push_back(place); });
      at += size;
    }
    EXPECT_EQ(found, expected) << text;
  }
}

TEST(PackageCheck, NamesWhatIsNotInOrder) {
  const FileText good = Package(u"\\a\r\n\\b\r\n", {"12345", ""});
  const auto findings = [](const FileText& package) {
    MemoryFile file(package, 1 << 20);
    std::string lines;
    for (const Text& finding : CheckPackage(file).Findings) lines += Utf8FromText(finding) + "\n";
    return lines;
  };
  MemoryFile file(good, 1 << 20);
  const PackageReport report = CheckPackage(file);
  EXPECT_EQ(report.Entries, 2u);
  EXPECT_EQ(report.Bytes, 5u);
  EXPECT_EQ(findings(good), "");
  EXPECT_EQ(findings(good + "abc"), "3 bytes stand behind the last file\n");
  EXPECT_EQ(findings(good.substr(0, good.size() - 1)), "\\b: its end is not framed by line ends\n");
  EXPECT_EQ(findings(Package(u"\\..\\a\r\n", {"x"})), "\\..\\a: it leads out of its folder\n");
  EXPECT_NE(findings(good.substr(0, good.size() - 8)).find("a file has no end"), std::string::npos);
  EXPECT_NE(findings("").find("byte 0: the list of files has no end"), std::string::npos);
}

}  // namespace
}  // namespace tarvo::test
