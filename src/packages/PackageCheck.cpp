#include "packages/PackageCheck.h"

#include "packages/PackageFormat.h"
#include "packages/PackageReader.h"
#include "platform/Files.h"
#include "text/Utf8.h"

namespace tarvo {
namespace {

constexpr std::size_t kBlock = 256 * 1024;

Text ByteCount(std::uint64_t count) {
  return TextFromUtf8(std::to_string(count));
}

}  // namespace

PackageReport CheckPackage(FileReader& package) {
  PackageReport report;
  try {
    const PackageList list = ReadPackageList(package);
    const std::vector<Text> entries = EntriesOf(list.List);
    report.Entries = entries.size();
    for (const Text& entry : entries) {
      if (const auto reason = UnsafeReason(entry)) {
        report.Findings.push_back(entry + u": " + *reason);
      }
    }
    std::uint64_t end = list.BodiesStart;
    const auto bodies = FindBodies(package, list.BodiesStart, entries.size(), kBlock, [] {});
    for (std::size_t i = 0; i < bodies.size(); ++i) {
      report.Bytes += bodies[i].Length;
      end = SectionEnd(bodies[i]);
      if (!IsFramed(package, bodies[i])) {
        report.Findings.push_back(entries[i] + u": its end is not framed by line ends");
      }
    }
    if (package.Size() > end) {
      report.Findings.push_back(ByteCount(package.Size() - end) +
                                u" bytes stand behind the last file");
    }
  } catch (const RaisedError& error) {
    report.Findings.push_back(error.Description);
  }
  return report;
}

}  // namespace tarvo
